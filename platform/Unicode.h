// Case mapping and character classes of Unicode. An adapter implements these functions.
#pragma once

#include <string>
#include <string_view>

namespace kvex {

/// Replaces every character by its simple upper-case mapping; the locale does not matter. The
/// number of characters stays the same, and "ß" stays as it is.
[[nodiscard]] std::u16string upperCase(std::u16string_view text);

/// Replaces every character by its simple case folding. Two texts are equal without regard to case
/// exactly when their foldings are equal. The number of UTF-16 units stays the same, and so do
/// unpaired surrogates.
[[nodiscard]] std::u16string foldCase(std::u16string_view text);

/// True for a letter or a decimal digit of any script.
[[nodiscard]] bool isLetterOrDigit(char32_t character);

/// The library that knows the characters, with its version.
[[nodiscard]] std::string unicodeLibrary();

} // namespace kvex
