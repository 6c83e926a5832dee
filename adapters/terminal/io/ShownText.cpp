#include "adapters/terminal/io/ShownText.h"

#include "platform/Unicode.h"
#include "platform/Utf16.h"
#include "platform/VisibleText.h"

#include <algorithm>

namespace kvex::terminal {
namespace {

bool isAscii(std::u16string_view text) {
    return std::ranges::all_of(text, [](char16_t unit) { return unit < 0x80; });
}

/// The cluster with escapes for what would break the screen, or for all that is not ASCII.
std::u16string withEscapes(std::u16string_view cluster, Characters characters) {
    std::u16string result;
    for (std::size_t at = 0; at < cluster.size();) {
        const char32_t character = nextCharacter(cluster, at);
        const bool isLone = isHighSurrogate(character) || isLowSurrogate(character);
        const bool isForeign = characters == Characters::ascii && character >= 0x80;
        if (isLone || isForeign || isHiddenCharacter(character)) {
            result += escaped(character);
        } else {
            appendCharacter(result, character);
        }
    }
    return result;
}

} // namespace

ShownCluster shownCluster(std::u16string_view cluster, Characters characters) {
    std::u16string text = withEscapes(cluster, characters);
    if (isAscii(text)) {
        const int columns = static_cast<int>(text.size());
        return {std::move(text), columns, true};
    }
    const int columns = columnsOf(text);
    if (columns > 0) {
        return {std::move(text), columns};
    }
    if (isAccent(cluster)) {
        return {u"\u00A0" + text, 1};
    }
    return {};
}

int shownColumns(std::u16string_view line, Characters characters) {
    int columns = 0;
    for (std::size_t at = 0; at < line.size();) {
        if (isPlainAt(line, at)) {
            ++columns;
            ++at;
            continue;
        }
        const std::size_t end = clusterEnd(line, at);
        columns += shownCluster(line.substr(at, end - at), characters).columns;
        at = end;
    }
    return columns;
}

} // namespace kvex::terminal
