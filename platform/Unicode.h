// Case mapping, character classes and clusters of Unicode. An adapter implements these functions.
#pragma once

#include <cstddef>
#include <optional>
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

/// The value of a decimal digit of any script, from 0 to 9; nothing for another character.
[[nodiscard]] std::optional<int> digitValue(char32_t character);

/// A cluster is what a reader takes for one character. Examples are a letter with its accents and
/// vowel signs, an emoji of several parts, and CR LF. The functions take positions where clusters
/// begin and end. The first one returns the end of the cluster that begins at `from`, before the
/// end of the text. The second one returns the beginning of the cluster that ends at `to`, after 0.
[[nodiscard]] std::size_t clusterEnd(std::u16string_view text, std::size_t from);
[[nodiscard]] std::size_t clusterStart(std::u16string_view text, std::size_t to);

/// The columns that terminals take for one cluster: 0, 1 or 2. Two are an East Asian character, an
/// emoji, and a letter with a vowel sign at its side.
[[nodiscard]] int columnsOf(std::u16string_view cluster);

/// True when the cluster begins with a mark that belongs on a letter.
[[nodiscard]] bool isAccent(std::u16string_view cluster);

/// The library that knows the characters, with its version.
[[nodiscard]] std::string unicodeLibrary();

} // namespace kvex
