#include "adapters/controls/LineBreaks.h"

#include <algorithm>

namespace kvex::controls {
namespace {

bool isBreak(char16_t unit) {
    return unit == u'\r' || unit == u'\n';
}

/// Most texts have none. It looks at all units, so that it can take many at a time.
bool hasBreak(std::u16string_view text) {
    char16_t found = 0;
    for (const char16_t unit : text) {
        found = std::max(found, isBreak(unit) ? char16_t{1} : char16_t{0});
    }
    return found != 0;
}

} // namespace

std::u16string withCrLf(std::u16string_view text) {
    if (!hasBreak(text)) {
        return std::u16string(text);
    }
    std::u16string result;
    for (;;) {
        const auto line =
            static_cast<std::size_t>(std::ranges::find_if(text, isBreak) - text.begin());
        result.append(text.substr(0, line));
        if (line == text.size()) {
            return result;
        }
        result.append(u"\r\n");
        text.remove_prefix(line + (text.substr(line, 2) == u"\r\n" ? 2 : 1));
    }
}

} // namespace kvex::controls
