#include "host/rules/StoredIds.h"

#include "platform/Error.h"
#include "platform/Text.h"

#include <charconv>
#include <nlohmann/json.hpp>

namespace kvex::host {

std::optional<std::int32_t> idOf(std::u16string_view text) {
    try {
        return toInt32(text);
    } catch (const Error &) {
        return std::nullopt;
    }
}

nlohmann::ordered_json idJson(std::u16string_view text) {
    const std::string digits = toUtf8(text);
    const char *const end = digits.data() + digits.size();
    std::int64_t number = 0;
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    return stop == end && error == std::errc() ? nlohmann::ordered_json(number)
                                               : nlohmann::ordered_json(digits);
}

} // namespace kvex::host
