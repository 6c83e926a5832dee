// Characters in UTF-16 text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvex {

[[nodiscard]] constexpr bool isHighSurrogate(char32_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
[[nodiscard]] constexpr bool isLowSurrogate(char32_t unit) noexcept {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The character that begins at `at`, which moves behind it. An unpaired surrogate is a character
/// of its own.
[[nodiscard]] constexpr char32_t nextCharacter(std::u16string_view text, std::size_t &at) noexcept {
    const char32_t first = text[at++];
    if (isHighSurrogate(first) && at < text.size() && isLowSurrogate(text[at])) {
        return 0x10000 + ((first - 0xD800) << 10) + (char32_t{text[at++]} - 0xDC00);
    }
    return first;
}

inline void appendCharacter(std::u16string &target, char32_t character) {
    if (character < 0x10000) {
        target.push_back(static_cast<char16_t>(character));
        return;
    }
    character -= 0x10000;
    target.push_back(static_cast<char16_t>(0xD800 + (character >> 10)));
    target.push_back(static_cast<char16_t>(0xDC00 + (character & 0x3FF)));
}

} // namespace kvex
