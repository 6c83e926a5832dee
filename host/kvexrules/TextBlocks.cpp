#include "host/kvexrules/TextBlocks.h"

#include <algorithm>

namespace kvex::host {

std::size_t charactersIn(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80; }));
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        if (!lines.empty() && charactersIn(lines.back()) + 1 + charactersIn(word) <= width) {
            lines.back() += " " + std::string(word);
        } else {
            lines.emplace_back(word);
        }
    }
    return lines;
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    return lines;
}

std::vector<TextBlock> blocksOf(std::string_view text) {
    std::vector<TextBlock> blocks;
    bool isNew = true;
    for (const std::string_view line : linesOf(text)) {
        if (line.empty()) {
            isNew = true;
            continue;
        }
        const bool isLiteral = line.starts_with(' ');
        if (isNew || blocks.back().isLiteral != isLiteral) {
            blocks.push_back({isLiteral, {std::string(line)}});
        } else if (isLiteral) {
            blocks.back().lines.emplace_back(line);
        } else {
            blocks.back().lines.front() += " " + std::string(line);
        }
        isNew = false;
    }
    return blocks;
}

} // namespace kvex::host
