// No password of any spelling leaves withoutPasswords().
//
// The input builds a text that holds secrets, each spelled as a connection string or a URL can
// spell it. Any other text stands between them.
#include "fuzz/Input.h"
#include "fuzz/Property.h"
#include "host/suite/ShownText.h"

#include <algorithm>
#include <array>

namespace kvex::fuzz {
namespace {

/// Stands at both ends of each secret, and nowhere else.
constexpr std::u16string_view mark = u"\u03A9\u2126";
/// What may stand before a key.
constexpr std::array<std::u16string_view, 6> beginnings{u"",  u" ",        u"\n",
                                                        u"?", u"DSN=sms;", u"UID={a;}}b}; "};

char16_t lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

bool contains(std::u16string_view text, std::u16string_view part) {
    return text.find(part) != std::u16string_view::npos;
}

/// Text without secrets, which opens none: without the mark, names, marks of values and the URL's
/// sign.
std::u16string otherText(Input &input) {
    std::u16string text = input.text();
    std::u16string folded = text;
    for (char16_t &unit : folded) {
        unit = lower(unit);
    }
    constexpr std::array<std::u16string_view, 7> openings{
        u"pwd", u"passw", u"passphrase", u"secret", u"://", u"=", mark};
    const bool opens =
        std::ranges::any_of(openings, [&](auto opening) { return contains(folded, opening); });
    return opens ? std::u16string() : text;
}

std::u16string withoutUnits(std::u16string text, std::u16string_view units) {
    std::erase_if(text, [&](char16_t unit) { return contains(units, {&unit, 1}); });
    return text;
}

std::u16string secretOf(std::u16string_view inner) {
    return std::u16string(mark).append(inner).append(mark);
}

std::u16string inAnyCase(Input &input, std::u16string_view name) {
    std::u16string written(name);
    for (char16_t &unit : written) {
        unit = input.flag() ? static_cast<char16_t>(unit - 32) : unit;
    }
    return written;
}

std::u16string blanks(Input &input) {
    constexpr std::array<std::u16string_view, 4> choices{u"", u" ", u"\t", u" \t "};
    return std::u16string(input.one(choices));
}

/// The value in `opening` and `closing`, with each closing mark in it doubled.
std::u16string enclosed(char16_t opening, std::u16string_view value, char16_t closing) {
    std::u16string result(1, opening);
    for (const char16_t unit : value) {
        result.append(unit == closing ? 2 : 1, unit);
    }
    return result + closing;
}

std::u16string key(Input &input) {
    constexpr std::array<std::u16string_view, 5> names{u"pwd", u"password", u"passwd",
                                                       u"passphrase", u"secret"};
    constexpr std::array<std::u16string_view, 4> prefixes{u"", u"ssl", u"Proxy", u"my_"};
    constexpr std::array<std::u16string_view, 3> numbers{u"", u"2", u"10"};
    std::u16string text(input.one(prefixes));
    text += inAnyCase(input, input.one(names));
    text += input.one(numbers);
    return text + blanks(input) + u"=" + blanks(input);
}

std::u16string keyAndSecret(Input &input) {
    const std::u16string name = key(input);
    const std::size_t spelling = input.below(4);
    const std::u16string secret = secretOf(input.text());
    switch (spelling) {
    case 0:
        return name + enclosed(u'{', secret, u'}');
    case 1:
        return name + enclosed(u'"', secret, u'"');
    case 2:
        return name + enclosed(u'\'', secret, u'\'');
    default:
        return name + withoutUnits(secret, u";");
    }
}

/// The secret as the server's library reads it: in quotation marks or without, with "\" before what
/// could end it.
std::u16string option(Input &input) {
    const bool quoted = input.flag();
    std::u16string value;
    for (const char16_t unit : secretOf(input.text())) {
        value.append(contains(quoted ? u"'\\" : u"' \t\r\n\\", {&unit, 1}) ? u"\\" : u"");
        value += unit;
    }
    return key(input) + (quoted ? u"'" + value + u"'" : value);
}

/// Options of the server's library, in the value of a key.
std::u16string optionsWithSecret(Input &input) {
    return u"pqopt=" + enclosed(u'{', u"sslmode=require " + option(input) + u" user=me", u'}');
}

/// The secret may hold "@", but no "=": that one must be encoded, because it begins another value.
std::u16string urlWithSecret(Input &input) {
    constexpr std::array<std::u16string_view, 4> schemes{u"postgresql", u"jdbc:mysql", u"x", u""};
    std::u16string text(input.one(schemes));
    text += u"://" + withoutUnits(otherText(input), u":\r\n");
    return text + u":" + withoutUnits(secretOf(input.text()), u"=\r\n") + u"@";
}

void check(Input input) {
    std::u16string text;
    do {
        text += otherText(input);
        text += input.one(beginnings);
        // A value without marks goes on until a ";", so that one ends each secret.
        constexpr std::array spellings{keyAndSecret, urlWithSecret, optionsWithSecret};
        text += input.one(spellings)(input) + u";";
    } while (!input.atEnd());
    text += otherText(input);

    const std::u16string shown = host::withoutPasswords(text);
    require(!contains(shown, mark), "no password is in the result", text + u" -> " + shown);
    require(contains(shown, u"***"), "a password leaves a trace", shown);
}

} // namespace
} // namespace kvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    kvex::fuzz::check(kvex::fuzz::Input(data, size));
    return 0;
}
