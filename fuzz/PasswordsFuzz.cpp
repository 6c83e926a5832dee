// No password of any spelling leaves withoutPasswords().
//
// The input builds a text that holds secrets, each spelled as a connection string or a URL can
// spell it. Any other text stands between them.
#include "fuzz/Input.h"
#include "fuzz/Property.h"
#include "host/suite/ShownText.h"

#include <array>

namespace kvex::fuzz {
namespace {

/// Stands at both ends of each secret, and nowhere else.
constexpr std::u16string_view mark = u"\u03A9\u2126";
/// A name begins where no other word goes on.
constexpr std::array<std::u16string_view, 6> boundaries{u";", u" ", u"\n", u"?", u"=", u"\u00E9"};

char16_t lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

bool contains(std::u16string_view text, std::u16string_view part) {
    return text.find(part) != std::u16string_view::npos;
}

/// Text without secrets, which opens none: without the mark, the names and the URL's sign.
std::u16string otherText(Input &input) {
    std::u16string text = input.text();
    std::u16string folded = text;
    for (char16_t &unit : folded) {
        unit = lower(unit);
    }
    const bool opens = contains(folded, u"pwd") || contains(folded, u"password") ||
                       contains(folded, u"://") || contains(folded, mark);
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

std::u16string keyAndSecret(Input &input) {
    constexpr std::array<std::u16string_view, 2> names{u"pwd", u"password"};
    std::u16string text = inAnyCase(input, input.one(names));
    text += blanks(input) + u"=" + blanks(input);
    const std::size_t spelling = input.below(4);
    const std::u16string secret = secretOf(input.text());
    switch (spelling) {
    case 0:
        return text + enclosed(u'{', secret, u'}');
    case 1:
        return text + enclosed(u'"', secret, u'"');
    case 2:
        return text + enclosed(u'\'', secret, u'\'');
    default:
        return text + withoutUnits(secret, u";");
    }
}

std::u16string urlWithSecret(Input &input) {
    constexpr std::array<std::u16string_view, 4> schemes{u"postgresql", u"jdbc:mysql", u"x", u""};
    std::u16string text(input.one(schemes));
    text += u"://" + withoutUnits(otherText(input), u":\r\n");
    return text + u":" + withoutUnits(secretOf(input.text()), u"\r\n") + u"@";
}

void check(Input input) {
    std::u16string text;
    do {
        text += otherText(input);
        text += input.one(boundaries);
        // A value without marks goes on until a ";", so that one ends each secret.
        text += (input.below(3) == 2 ? urlWithSecret(input) : keyAndSecret(input)) + u";";
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
