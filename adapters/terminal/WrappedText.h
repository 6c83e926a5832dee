// Text as lines of a terminal.
#pragma once

#include "adapters/terminal/io/ShownText.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace kvex::terminal {

/// The longest beginning of `text` that takes at most so many columns. No cluster is split.
[[nodiscard]] std::u16string_view beginning(std::u16string_view text, int columns,
                                            Characters characters);

/// The units of a line, without the line break, and without the blank at which a line wraps.
struct WrappedLine {
    std::size_t from;
    std::size_t to;
};

/// The lines of `text`, wrapped between words, or inside a word that is too long. At least one. CR,
/// LF and CR LF break lines.
[[nodiscard]] std::vector<WrappedLine> wrapped(std::u16string_view text, int columns,
                                               Characters characters);
/// The columns of the longest line before it is wrapped, and of the longest word.
[[nodiscard]] int longestLine(std::u16string_view text, Characters characters);
[[nodiscard]] int longestWord(std::u16string_view text, Characters characters);
/// The line in which the unit `at` stands, from 0.
[[nodiscard]] std::size_t lineOf(const std::vector<WrappedLine> &lines, std::size_t at);
/// The cluster boundary in the line that is nearest to this column, from the left.
[[nodiscard]] std::size_t unitAt(std::u16string_view text, const WrappedLine &line, int column,
                                 Characters characters);

} // namespace kvex::terminal
