#include "platform/LineBreaks.h"

#include "platform/Text.h"

#include <algorithm>

namespace kvex {
namespace {

bool isBreak(char16_t unit) {
    return unit == u'\r' || unit == u'\n';
}

/// Most texts have none, and this check is fast.
bool hasBreak(std::u16string_view text) {
    constexpr auto npos = std::u16string_view::npos;
    return findUnit(text, u'\r') != npos || findUnit(text, u'\n') != npos;
}

} // namespace

void appendWithCrLf(std::u16string &target, std::u16string_view text) {
    if (!hasBreak(text)) {
        target.append(text);
        return;
    }
    for (;;) {
        const auto line =
            static_cast<std::size_t>(std::ranges::find_if(text, isBreak) - text.begin());
        target.append(text.substr(0, line));
        if (line == text.size()) {
            return;
        }
        target.append(u"\r\n");
        text.remove_prefix(line + (text.substr(line, 2) == u"\r\n" ? 2 : 1));
    }
}

std::u16string withCrLf(std::u16string text) {
    if (!hasBreak(text)) {
        return text;
    }
    std::u16string result;
    appendWithCrLf(result, text);
    return result;
}

} // namespace kvex
