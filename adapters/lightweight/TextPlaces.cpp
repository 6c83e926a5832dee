#include "adapters/lightweight/TextPlaces.h"

#include "platform/Unicode.h"
#include "platform/Utf16.h"

#include <algorithm>
#include <optional>

namespace kvex::lightweight {
namespace {

enum class Kind { blank, lineBreak, word, sign };

Kind kindOf(std::u16string_view text, std::size_t at) {
    const char32_t character = nextCharacter(text, at);
    if (character == u'\r' || character == u'\n') {
        return Kind::lineBreak;
    }
    if (character <= u' ') {
        return Kind::blank;
    }
    return isLetterOrDigit(character) || character == u'_' ? Kind::word : Kind::sign;
}

std::size_t lineStart(std::u16string_view text, std::size_t at) {
    const std::size_t end = at == 0 ? std::u16string_view::npos : text.rfind(u'\n', at - 1);
    return end == std::u16string_view::npos ? 0 : end + 1;
}

/// The beginning of the last word or group of signs between two places.
std::optional<std::size_t> lastGroup(std::u16string_view text, std::size_t from, std::size_t to) {
    std::optional<std::size_t> group;
    Kind before = Kind::blank;
    for (std::size_t at = from; at < to; at = clusterEnd(text, at)) {
        const Kind kind = kindOf(text, at);
        if (kind != Kind::blank && kind != before) {
            group = at;
        }
        before = kind;
    }
    return group;
}

} // namespace

TextLine unwrappedLine(std::u16string_view text, std::size_t at) {
    const std::size_t end = std::min(text.find(u"\r\n", at), text.size());
    return {lineStart(text, at), end, end == text.size() ? noLine : end + 2};
}

bool isInsideCharacter(std::u16string_view text, std::size_t at) {
    if (at == 0 || at >= text.size()) {
        return false;
    }
    const bool isPair = isHighSurrogate(text[at - 1]) && isLowSurrogate(text[at]);
    return isPair || text.substr(at - 1, 2) == u"\r\n";
}

std::size_t characterBefore(std::u16string_view text, std::size_t at) {
    const std::size_t before = at == 0 ? 0 : at - 1;
    return isInsideCharacter(text, before) ? before - 1 : before;
}

std::size_t clusterBefore(std::u16string_view text, std::size_t at) {
    return at == 0 ? 0 : clusterStart(text, at);
}

std::size_t clusterAfter(std::u16string_view text, std::size_t at) {
    return at >= text.size() ? text.size() : clusterEnd(text, at);
}

/// Reads the line forward, because clusters are found faster that way.
std::size_t wordBefore(std::u16string_view text, std::size_t at) {
    const std::size_t start = lineStart(text, at);
    return start == at ? characterBefore(text, at) : lastGroup(text, start, at).value_or(start);
}

std::size_t wordAfter(std::u16string_view text, std::size_t at) {
    const auto isStill = [&](Kind kind) { return at < text.size() && kindOf(text, at) == kind; };
    const Kind first = at < text.size() ? kindOf(text, at) : Kind::blank;
    do {
        at = clusterAfter(text, at);
    } while (first != Kind::lineBreak && isStill(first));
    while (first != Kind::lineBreak && isStill(Kind::blank)) {
        at = clusterEnd(text, at);
    }
    return at;
}

int columnOf(std::u16string_view text, const TextLine &line, std::size_t at) {
    int column = 0;
    for (std::size_t from = line.from; from < at;) {
        const std::size_t end = clusterEnd(text, from);
        column += columnsOf(text.substr(from, end - from));
        from = end;
    }
    return column;
}

std::size_t placeInLine(std::u16string_view text, const TextLine &line, int column) {
    std::size_t at = line.from;
    while (at < line.to) {
        const std::size_t end = clusterEnd(text, at);
        column -= columnsOf(text.substr(at, end - at));
        if (column < 0) {
            break;
        }
        at = end;
    }
    return at;
}

} // namespace kvex::lightweight
