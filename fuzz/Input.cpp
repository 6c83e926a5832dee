#include "fuzz/Input.h"

#include "platform/Text.h"

#include <algorithm>

namespace kvex::fuzz {

std::uint8_t Input::byte() {
    const std::string_view taken = take(1);
    return taken.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(taken.front());
}

std::u16string Input::text() {
    const std::size_t length = byte();
    return fromUtf8(take(length));
}

std::string_view Input::rest() {
    return take(bytes_.size());
}

std::string_view Input::take(std::size_t count) {
    const auto taken = bytes_.first(std::min(count, bytes_.size()));
    bytes_ = bytes_.subspan(taken.size());
    return {reinterpret_cast<const char *>(taken.data()), taken.size()};
}

} // namespace kvex::fuzz
