#include "host/suite/Passwords.h"

#include <algorithm>
#include <array>

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

} // namespace

std::u16string withoutPasswords(std::u16string_view text) {
    std::u16string result;
    for (std::size_t at = 0; at < text.size();) {
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
