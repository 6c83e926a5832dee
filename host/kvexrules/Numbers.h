// Numbers as the user writes them.
#pragma once

#include <charconv>
#include <optional>
#include <string_view>

namespace kvex::host {

/// The value of `text` when it is all digits, with a "-" before them or not, and fits.
template <class Integer> [[nodiscard]] std::optional<Integer> wholeNumber(std::string_view text) {
    Integer number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

} // namespace kvex::host
