#include "adapters/terminal/WrappedText.h"

#include "platform/Unicode.h"

#include <algorithm>

namespace kvex::terminal {
namespace {

/// Cuts a line without line breaks into pieces of at most so many columns.
void wrapLine(std::u16string_view text, WrappedLine whole, int columns, Characters characters,
              std::vector<WrappedLine> &lines) {
    std::size_t from = whole.from;
    // Where the line breaks if the next cluster does not fit. None yet: equal to `from`.
    std::size_t wordStart = from;
    int taken = 0;
    for (std::size_t at = whole.from; at < whole.to;) {
        const bool isPlain = isPlainAt(text, at);
        const std::size_t end = isPlain ? at + 1 : std::min(clusterEnd(text, at), whole.to);
        const int width = isPlain ? 1 : shownCluster(text.substr(at, end - at), characters).columns;
        const bool isBlank = text[at] == u' ';
        if (taken + width > columns && !isBlank && at > from) {
            const bool isBetweenWords = wordStart > from;
            std::size_t to = isBetweenWords ? wordStart : at;
            const std::size_t next = to;
            while (isBetweenWords && to > from && text[to - 1] == u' ') {
                --to;
            }
            lines.push_back({from, to});
            from = wordStart = next;
            taken = shownColumns(text.substr(from, at - from), characters);
        }
        taken += width;
        at = end;
        if (isBlank) {
            wordStart = at;
        }
    }
    lines.push_back({from, whole.to});
}

/// The columns of the longest part between any of these ends.
int longestPart(std::u16string_view text, std::u16string_view ends, Characters characters) {
    int longest = 0;
    for (std::size_t from = 0; from < text.size();) {
        const std::size_t end = std::min(text.find_first_of(ends, from), text.size());
        longest = std::max(longest, shownColumns(text.substr(from, end - from), characters));
        from = end + 1;
    }
    return longest;
}

} // namespace

std::u16string_view beginning(std::u16string_view text, int columns, Characters characters) {
    std::size_t at = 0;
    while (at < text.size()) {
        const bool isPlain = isPlainAt(text, at);
        const std::size_t end = isPlain ? at + 1 : clusterEnd(text, at);
        columns -= isPlain ? 1 : shownCluster(text.substr(at, end - at), characters).columns;
        if (columns < 0) {
            break;
        }
        at = end;
    }
    return text.substr(0, at);
}

std::vector<WrappedLine> wrapped(std::u16string_view text, int columns, Characters characters) {
    std::vector<WrappedLine> lines;
    std::size_t from = 0;
    while (true) {
        const std::size_t end = std::min(text.find_first_of(u"\r\n", from), text.size());
        wrapLine(text, {from, end}, std::max(columns, 1), characters, lines);
        if (end == text.size()) {
            return lines;
        }
        from = end + (text.substr(end, 2) == u"\r\n" ? 2 : 1);
    }
}

int longestLine(std::u16string_view text, Characters characters) {
    return longestPart(text, u"\r\n", characters);
}

int longestWord(std::u16string_view text, Characters characters) {
    return longestPart(text, u" \r\n", characters);
}

std::size_t lineOf(const std::vector<WrappedLine> &lines, std::size_t at) {
    const auto after = std::ranges::upper_bound(lines, at, {}, &WrappedLine::from);
    return static_cast<std::size_t>(after - lines.begin()) - 1;
}

std::size_t unitAt(std::u16string_view text, const WrappedLine &line, int column,
                   Characters characters) {
    return line.from +
           beginning(text.substr(line.from, line.to - line.from), column, characters).size();
}

} // namespace kvex::terminal
