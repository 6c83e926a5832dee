#include "host/suite/ShownText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <utility>

namespace kvex::host {
namespace {

using Text = std::u16string_view;

constexpr std::array names{Text(u"password"), Text(u"pwd")};

char16_t lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

bool isWordPart(char16_t unit) {
    return (lower(unit) >= u'a' && lower(unit) <= u'z') || (unit >= u'0' && unit <= u'9') ||
           unit == u'_';
}

std::size_t pastBlanks(Text text, std::size_t at) {
    return std::min(text.find_first_not_of(u" \t", at), text.size());
}

/// The position after "NAME =" when that stands at `at`, else `at`.
std::size_t pastName(Text text, std::size_t at) {
    if (at > 0 && isWordPart(text[at - 1])) {
        return at;
    }
    for (const Text name : names) {
        if (!std::ranges::equal(text.substr(at, name.size()), name, {}, lower)) {
            continue;
        }
        const std::size_t sign = pastBlanks(text, at + name.size());
        if (sign < text.size() && text[sign] == u'=') {
            return pastBlanks(text, sign + 1);
        }
    }
    return at;
}

/// The position after the value that begins at `at`. A doubled closing mark does not end it.
std::size_t pastValue(Text text, std::size_t at) {
    const char16_t first = at < text.size() ? text[at] : u';';
    const char16_t closing = first == u'{' ? u'}' : first;
    if (closing != u'}' && closing != u'\'' && closing != u'"') {
        return std::min(text.find(u';', at), text.size());
    }
    for (++at; at < text.size(); ++at) {
        if (text[at] == closing) {
            if (at + 1 == text.size() || text[at + 1] != closing) {
                return at + 1;
            }
            ++at;
        }
    }
    return text.size();
}

/// The begin and the end of the password in a URL. The URL's "://" ends at `at`. Both are `at` when
/// there is no password.
std::pair<std::size_t, std::size_t> urlPassword(Text text, std::size_t at) {
    const std::size_t colon = text.find(u':', at);
    const Text line = text.substr(0, text.find_first_of(u"\r\n", at));
    const std::size_t end = line.rfind(u'@');
    if (end == Text::npos || end < at || colon > end) {
        return {at, at};
    }
    return {colon + 1, end};
}

bool isHidden(char16_t unit) {
    const bool control = unit < 0x20 || (unit >= 0x7F && unit <= 0x9F);
    const bool separator = unit == 0x2028 || unit == 0x2029;
    const bool direction = (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
    const bool noCharacter = unit >= 0xFFFE;
    return control || separator || direction || noCharacter;
}

std::u16string escaped(char16_t unit) {
    switch (unit) {
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
    char *const end =
        std::to_chars(std::begin(digits), std::end(digits), static_cast<std::uint32_t>(unit), 16)
            .ptr;
    return u"\\u{" + std::u16string(std::begin(digits), end) + u"}";
}

} // namespace

std::u16string withoutPasswords(std::u16string_view text) {
    std::u16string result;
    constexpr Text urlMark = u"://";
    for (std::size_t at = 0; at < text.size();) {
        if (text.substr(at).starts_with(urlMark)) {
            const auto [begin, end] = urlPassword(text, at + urlMark.size());
            result += text.substr(at, begin - at);
            result += begin == end ? u"" : u"***";
            at = end;
            continue;
        }
        const std::size_t value = pastName(text, at);
        if (value == at) {
            result.push_back(text[at++]);
            continue;
        }
        result += text.substr(at, value - at);
        result += u"***";
        at = pastValue(text, value);
    }
    return result;
}

std::u16string visible(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (const char16_t unit : text) {
        if (unit == u'\\' || isHidden(unit)) {
            result += escaped(unit);
        } else {
            result.push_back(unit);
        }
    }
    return result;
}

std::u16string harmless(std::u16string_view text) {
    std::u16string result(text);
    std::ranges::replace_if(result, isHidden, u'\uFFFD');
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

} // namespace kvex::host
