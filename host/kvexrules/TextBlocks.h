// The texts of the table of commands: paragraphs, lines and characters. Texts are in UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// Lines that are shown as they stand, or a paragraph, which is one line.
struct TextBlock {
    bool isLiteral;
    std::vector<std::string> lines;
};

/// The blocks of a command's description. An empty line ends a block; so does a change between
/// lines that begin with a blank and others.
[[nodiscard]] std::vector<TextBlock> blocksOf(std::string_view text);

/// Breaks `text` between words into lines of at most `width` characters. A longer word is a line.
[[nodiscard]] std::vector<std::string> wrapped(std::string_view text, std::size_t width);

[[nodiscard]] std::size_t charactersIn(std::string_view text);

/// The lines of `text`, without the newline that ends each of them.
[[nodiscard]] std::vector<std::string_view> linesOf(std::string_view text);

} // namespace kvex::host
