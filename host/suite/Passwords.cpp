#include "host/suite/Passwords.h"

#include <algorithm>
#include <array>
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

/// Past "NAME =" when it stands at `at`, else `at`.
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

/// Past the value that begins at `at`; a doubled closing mark stands for itself.
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

/// Where the password of a URL's user begins, whose "://" ends at `at`, and where it ends: both
/// `at` when there is none.
std::pair<std::size_t, std::size_t> urlPassword(Text text, std::size_t at) {
    const std::size_t colon = text.find(u':', at);
    const Text line = text.substr(0, text.find_first_of(u"\r\n", at));
    const std::size_t end = line.rfind(u'@');
    if (end == Text::npos || end < at || colon > end) {
        return {at, at};
    }
    return {colon + 1, end};
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

} // namespace kvex::host
