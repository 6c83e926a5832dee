// Makes text from anywhere fit for a list or a terminal.
#pragma once

#include <string>
#include <string_view>

namespace kvex {

/// `text` with an escape for each character that could break a line or deceive a terminal. These
/// are control characters, line and paragraph separators, marks that override the direction of
/// writing, and units that are not characters. The escapes are "\n", "\r", "\t" and "\u{HEX}",
/// and "\\" for a backslash. Different texts give different results.
[[nodiscard]] std::u16string visible(std::u16string_view text);

/// Whether visible() writes an escape for the character, a backslash excepted.
[[nodiscard]] bool isHiddenCharacter(char32_t character);

/// The escape of any character, as visible() writes it.
[[nodiscard]] std::u16string escaped(char32_t character);

/// `text` with U+FFFD in place of each of these characters; a backslash stays. The result is for
/// reading alone: different texts can give the same.
[[nodiscard]] std::u16string harmless(std::u16string_view text);

/// Like harmless(), but keeps line breaks (LF and CR LF), both as LF.
[[nodiscard]] std::u16string harmlessLines(std::u16string_view text);

/// `text` in quotation marks and on one line. A text of more than `longest` units has "…" in place
/// of its middle; no character is split.
[[nodiscard]] std::u16string quoted(std::u16string_view text, std::size_t longest);

} // namespace kvex
