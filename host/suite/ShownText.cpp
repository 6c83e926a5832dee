#include "host/suite/ShownText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kvex::host {
namespace {

using Text = std::u16string_view;

/// What the name of a secret ends with. Digits may follow, as in "PWD2".
constexpr std::array names{Text(u"password"), Text(u"passwd"), Text(u"pwd"), Text(u"passphrase"),
                           Text(u"secret")};

/// What ends a password that has no quotation marks of its own.
enum class End { semicolon, blank, text };

char16_t lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

bool isEqual(Text text, Text name) {
    return std::ranges::equal(text, name, {}, lower);
}

std::size_t pastBlanks(Text text, std::size_t at) {
    return std::min(text.find_first_not_of(u" \t", at), text.size());
}

/// The position after "NAME =" when that stands at `at`, else `at`.
std::size_t pastName(Text text, std::size_t at) {
    for (const Text name : names) {
        if (!isEqual(text.substr(at, name.size()), name)) {
            continue;
        }
        const std::size_t end =
            std::min(text.find_first_not_of(u"0123456789", at + name.size()), text.size());
        const std::size_t sign = pastBlanks(text, end);
        if (sign < text.size() && text[sign] == u'=') {
            return pastBlanks(text, sign + 1);
        }
    }
    return at;
}

/// The mark that ends what the mark `opening` begins; 0 when it begins nothing.
char16_t closingOf(char16_t opening) {
    if (opening == u'{') {
        return u'}';
    }
    return opening == u'\'' || opening == u'"' ? opening : u'\0';
}

/// The position of the closing mark, or the end of the text. The opening one stands at `at`. A
/// doubled mark closes nothing; `escape` takes the meaning from the character after it.
std::size_t closingMark(Text text, std::size_t at, char16_t escape = 0) {
    const char16_t closing = closingOf(text[at]);
    for (++at; at < text.size(); ++at) {
        if (text[at] == closing && text.substr(at + 1, 1) != text.substr(at, 1)) {
            return at;
        }
        at += text[at] == closing || (escape != 0 && text[at] == escape) ? 1 : 0;
    }
    return text.size();
}

std::size_t unmarkedEnd(Text text, std::size_t at, End end) {
    if (end == End::semicolon) {
        return std::min(text.find(u';', at), text.size());
    }
    while (end == End::blank && at < text.size() && Text(u" \t\r\n").find(text[at]) == Text::npos) {
        at += text[at] == u'\\' ? 2 : 1;
    }
    return end == End::text ? text.size() : std::min(at, text.size());
}

/// The position after the password that begins at `at`.
std::size_t pastValue(Text text, std::size_t at, End end) {
    if (end == End::text || at == text.size() || closingOf(text[at]) == 0) {
        return unmarkedEnd(text, at, end);
    }
    const std::size_t close = closingMark(text, at, end == End::blank ? u'\\' : u'\0');
    const std::size_t past = std::min(close + 1, text.size());
    // Quotation marks may be a part of the password, as in 'a'b.
    const bool isWhole = text[at] == u'{' || pastBlanks(text, past) != past;
    return isWhole ? past : unmarkedEnd(text, past, end);
}

/// The position of the mark that begins a value after the "=" at `at`; 0 when there is none.
std::size_t markBehind(Text text, std::size_t at) {
    const std::size_t mark = text[at] == u'=' ? pastBlanks(text, at + 1) : text.size();
    return mark < text.size() && closingOf(text[mark]) != 0 ? mark : 0;
}

/// Whether a list of the server library's own options follows the "=" at `at`. Blanks separate
/// them.
bool isOptionList(Text text, std::size_t at) {
    constexpr Text name = u"pqopt";
    while (at > 0 && (text[at - 1] == u' ' || text[at - 1] == u'\t')) {
        --at;
    }
    return at >= name.size() && isEqual(text.substr(at - name.size(), name.size()), name);
}

/// The begin and the end of the password in a URL. The URL's "://" ends at `at`. Both are `at` when
/// there is no password. When a key's value begins before the end, the end moves after that value.
std::pair<std::size_t, std::size_t> urlPassword(Text text, std::size_t at, End keysEnd) {
    const std::size_t colon = text.find(u':', at);
    const Text line = text.substr(0, text.find_first_of(u"\r\n", at));
    std::size_t end = line.rfind(u'@');
    if (end == Text::npos || end < at || colon > end) {
        return {at, at};
    }
    for (std::size_t next = colon + 1; next < end;) {
        if (const std::size_t value = pastName(text, next); value != next) {
            next = pastValue(text, value, keysEnd);
        } else if (const std::size_t mark = markBehind(text, next); mark != 0) {
            next = closingMark(text, mark);
        } else {
            ++next;
        }
        end = std::max(end, next);
    }
    return {colon + 1, end};
}

std::u16string hidden(Text text, End end) {
    std::u16string result;
    constexpr Text urlMark = u"://";
    for (std::size_t at = 0; at < text.size();) {
        if (text.substr(at).starts_with(urlMark)) {
            const auto [begin, urlEnd] = urlPassword(text, at + urlMark.size(), end);
            result += text.substr(at, begin - at);
            result += begin == urlEnd ? u"" : u"***";
            at = urlEnd;
        } else if (const std::size_t value = pastName(text, at); value != at) {
            result += text.substr(at, value - at);
            result += u"***";
            at = pastValue(text, value, end);
        } else if (const std::size_t mark = markBehind(text, at);
                   mark != 0 && end == End::semicolon) {
            const std::size_t close = closingMark(text, mark);
            result += text.substr(at, mark + 1 - at);
            result += hidden(text.substr(mark + 1, close - mark - 1),
                             isOptionList(text, at) ? End::blank : End::text);
            at = close;
        } else {
            result.push_back(text[at++]);
        }
    }
    return result;
}

} // namespace

std::u16string withoutPasswords(std::u16string_view text) {
    return hidden(text, End::semicolon);
}

} // namespace kvex::host
