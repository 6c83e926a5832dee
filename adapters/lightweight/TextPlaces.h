// Where a caret can go in a text. Places count UTF-16 units from 0.
#pragma once

#include <cstddef>
#include <string_view>

namespace kvex::lightweight {

inline constexpr std::size_t noLine = std::u16string_view::npos;

/// A line as the user sees it.
struct TextLine {
    std::size_t from;
    /// The last place of the caret in this line. It lies before the line break. Where a long line
    /// is wrapped, it lies before the last cluster.
    std::size_t to;
    /// Where the next line begins; noLine for the last line.
    std::size_t next;
};

/// The line that holds `at`, where only CR LF breaks lines.
[[nodiscard]] TextLine unwrappedLine(std::u16string_view text, std::size_t at);

/// Whether `at` is in the middle of a surrogate pair or of a CR LF.
[[nodiscard]] bool isInsideCharacter(std::u16string_view text, std::size_t at);
/// The beginning of the character, or CR LF, before `at`; 0 if there is none.
[[nodiscard]] std::size_t characterBefore(std::u16string_view text, std::size_t at);

/// One cluster back or forward, at most to the ends of the text.
[[nodiscard]] std::size_t clusterBefore(std::u16string_view text, std::size_t at);
[[nodiscard]] std::size_t clusterAfter(std::u16string_view text, std::size_t at);

/// The beginning of the word, or of the group of signs, before `at`. The beginnings and ends of
/// lines count, too.
[[nodiscard]] std::size_t wordBefore(std::u16string_view text, std::size_t at);
/// The beginning of the next one after `at`.
[[nodiscard]] std::size_t wordAfter(std::u16string_view text, std::size_t at);

/// The columns from the beginning of the line to `at`.
[[nodiscard]] int columnOf(std::u16string_view text, const TextLine &line, std::size_t at);
/// The last place in the line that lies at `column` or before it.
[[nodiscard]] std::size_t placeInLine(std::u16string_view text, const TextLine &line, int column);

} // namespace kvex::lightweight
