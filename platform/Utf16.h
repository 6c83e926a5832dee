// Reads and writes the characters of UTF-16 text.
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

/// Reads the character at `at` and moves `at` past it. An unpaired surrogate is a character of its
/// own.
[[nodiscard]] constexpr char32_t nextCharacter(std::u16string_view text, std::size_t &at) noexcept {
    const char32_t first = text[at++];
    if (isHighSurrogate(first) && at < text.size() && isLowSurrogate(text[at])) {
        return 0x10000 + ((first - 0xD800) << 10) + (char32_t{text[at++]} - 0xDC00);
    }
    return first;
}

/// Writes the character to `target` and returns the position after it.
constexpr char16_t *putCharacter(char16_t *target, char32_t character) noexcept {
    if (character < 0x10000) {
        *target++ = static_cast<char16_t>(character);
    } else {
        character -= 0x10000;
        *target++ = static_cast<char16_t>(0xD800 + (character >> 10));
        *target++ = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
    }
    return target;
}

inline void appendCharacter(std::u16string &target, char32_t character) {
    char16_t units[2];
    target.append(units, putCharacter(units, character));
}

} // namespace kvex
