// Case mapping of UTF-16 text and classes of characters; the tables are an adapter's.
#pragma once

#include <string>
#include <string_view>

namespace kvex {

/// Every character replaced by its simple upper-case mapping, whatever the locale. The length
/// in characters stays; "ß" stays as it is.
[[nodiscard]] std::u16string upperCase(std::u16string_view text);

/// Every character replaced by its simple case folding: two texts are equal without regard to
/// case exactly when their foldings are equal. The length in UTF-16 units stays, and so do
/// unpaired surrogates.
[[nodiscard]] std::u16string foldCase(std::u16string_view text);

/// Whether the character is a letter or a decimal digit, of whatever script.
[[nodiscard]] bool isLetterOrDigit(char32_t character);

} // namespace kvex
