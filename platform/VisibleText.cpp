#include "platform/VisibleText.h"

#include "platform/Utf16.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>

namespace kvex {

bool isHiddenCharacter(char32_t character) {
    const bool control = character < 0x20 || (character >= 0x7F && character <= 0x9F);
    const bool separator = character == 0x2028 || character == 0x2029;
    const bool direction = (character >= 0x202A && character <= 0x202E) ||
                           (character >= 0x2066 && character <= 0x2069);
    const bool noCharacter = character == 0xFFFE || character == 0xFFFF;
    return control || separator || direction || noCharacter;
}

std::u16string escaped(char32_t character) {
    switch (character) {
    case u'\\':
        return u"\\\\";
    case u'\n':
        return u"\\n";
    case u'\r':
        return u"\\r";
    case u'\t':
        return u"\\t";
    default:
        break;
    }
    char digits[8];
    char *const end = std::to_chars(std::begin(digits), std::end(digits),
                                    static_cast<std::uint32_t>(character), 16)
                          .ptr;
    return u"\\u{" + std::u16string(std::begin(digits), end) + u"}";
}

std::u16string visible(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (const char16_t unit : text) {
        if (unit == u'\\' || isHiddenCharacter(unit)) {
            result += escaped(unit);
        } else {
            result.push_back(unit);
        }
    }
    return result;
}

std::u16string harmless(std::u16string_view text) {
    std::u16string result(text);
    std::ranges::replace_if(result, isHiddenCharacter, u'\uFFFD');
    return result;
}

std::u16string harmlessLines(std::u16string_view text) {
    std::u16string result;
    for (;;) {
        const std::size_t end = text.find(u'\n');
        std::u16string_view line = text.substr(0, end);
        if (end != std::u16string_view::npos && line.ends_with(u'\r')) {
            line.remove_suffix(1);
        }
        result += harmless(line);
        if (end == std::u16string_view::npos) {
            return result;
        }
        result += u'\n';
        text.remove_prefix(end + 1);
    }
}

std::u16string quoted(std::u16string_view text, std::size_t longest) {
    std::u16string shown(text);
    if (shown.size() > longest) {
        std::size_t from = longest / 2;
        std::size_t to = shown.size() - longest / 2;
        from -= isLowSurrogate(shown[from]) ? 1 : 0;
        to += isLowSurrogate(shown[to]) ? 1 : 0;
        shown.replace(from, to - from, u"…");
    }
    std::erase(shown, u'\r');
    std::ranges::replace(shown, u'\n', u' ');
    return u'"' + shown + u'"';
}

} // namespace kvex
