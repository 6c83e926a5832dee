#include "platform/Text.h"

#include "platform/Error.h"
#include "platform/Utf16.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <optional>

namespace kvex {
namespace {

constexpr char32_t replacement = 0xFFFD;

void appendUtf8(std::string &target, char32_t code) {
    const auto put = [&](char32_t byte) { target.push_back(static_cast<char>(byte)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | (code >> 6));
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | (code >> 12));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | (code >> 18));
        put(0x80 | ((code >> 12) & 0x3F));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

/// The number of bytes in the sequence that begins with `lead`; 0 when no sequence begins with it.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 3;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

bool isWellFormed(char32_t code, std::size_t length) {
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    return code >= smallest[length] && code <= 0x10FFFF && !isHighSurrogate(code) &&
           !isLowSurrogate(code);
}

/// The number of ASCII units at the beginning. It checks eight bytes at a time, because most texts
/// are ASCII only.
template <class Unit> std::size_t asciiLength(std::basic_string_view<Unit> text) {
    constexpr std::uint64_t others = sizeof(Unit) == 1 ? 0x8080808080808080 : 0xFF80FF80FF80FF80;
    constexpr std::size_t count = sizeof others / sizeof(Unit);
    std::size_t at = 0;
    for (std::uint64_t units = 0; at + count <= text.size(); at += count) {
        std::memcpy(&units, text.data() + at, sizeof units);
        if ((units & others) != 0) {
            break;
        }
    }
    while (at < text.size() && (text[at] & ~0x7F) == 0) {
        ++at;
    }
    return at;
}

/// Reads the character at `at` and moves `at` past it, or past one byte that cannot be read.
char32_t readCharacter(std::string_view text, std::size_t &at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    const std::size_t length = sequenceLength(lead);
    char32_t code = length == 1 ? lead : lead & (0x7FU >> length);
    bool whole = length > 0 && at + length <= text.size();
    for (std::size_t i = 1; whole && i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[at + i]);
        whole = (next & 0xC0) == 0x80;
        code = (code << 6) | (next & 0x3F);
    }
    const bool readable = whole && isWellFormed(code, length);
    at += readable ? length : 1;
    return readable ? code : replacement;
}

/// The text of a decimal number in ASCII; "" for any other text.
std::string decimalForm(std::u16string_view text) {
    const std::u16string_view body = trimmed(text);
    std::string form;
    std::size_t at = 0;
    const auto digits = [&] {
        const std::size_t from = at;
        while (at < body.size() && body[at] >= u'0' && body[at] <= u'9') {
            form.push_back(static_cast<char>(body[at++]));
        }
        return at - from;
    };
    const auto sign = [&] {
        if (at < body.size() && (body[at] == u'+' || body[at] == u'-')) {
            if (body[at++] == u'-') {
                form.push_back('-');
            }
        }
    };
    sign();
    std::size_t mantissa = digits();
    if (at < body.size() && body[at] == u'.') {
        form.push_back('.');
        ++at;
        mantissa += digits();
    }
    if (mantissa == 0) {
        return {};
    }
    if (at < body.size() && (body[at] == u'e' || body[at] == u'E')) {
        form.push_back('e');
        ++at;
        sign();
        if (digits() == 0) {
            return {};
        }
    }
    return at == body.size() ? form : std::string();
}

/// For a number that a double cannot hold: true when it is too close to 0, false when it is too
/// large.
bool isTooSmall(std::string_view form) {
    const std::size_t mark = std::min(form.find('e'), form.size());
    const std::string_view mantissa = form.substr(0, mark);
    const auto point = static_cast<std::ptrdiff_t>(std::min(mantissa.find('.'), mark));
    const auto first = static_cast<std::ptrdiff_t>(mantissa.find_first_of("123456789"));
    // The power of ten that belongs to the first digit other than 0.
    const std::ptrdiff_t place = first < point ? point - first - 1 : point - first;

    const std::string_view digits = form.substr(std::min(mark + 1, form.size()));
    std::ptrdiff_t exponent = 0;
    const auto error = std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec;
    return error == std::errc::result_out_of_range ? digits.starts_with('-') : exponent < -place;
}

/// The value of a decimal form; 0 when it is too close to 0, nothing when it is too large.
std::optional<double> valueOf(const std::string &form) {
    double number = 0;
    const auto error = std::from_chars(form.data(), form.data() + form.size(), number).ec;
    if (error != std::errc::result_out_of_range) {
        return number;
    }
    return isTooSmall(form) ? std::optional<double>(0) : std::nullopt;
}

template <class Integer> Integer rounded(double number) {
    const double whole = std::nearbyint(number);
    // A double holds this power of two exactly. It cannot hold the largest 64-bit integer.
    constexpr auto bound = -static_cast<double>(std::numeric_limits<Integer>::min());
    if (!(whole >= -bound && whole < bound)) {
        throw Error(error_number::overflow);
    }
    return static_cast<Integer>(whole);
}

template <class Number> std::u16string printed(Number number) {
    char buffer[32];
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer), number).ptr;
    return {buffer, end};
}

} // namespace

std::u16string fromUtf8(std::string_view text) {
    std::u16string result(text.size(), u'\0');
    const char16_t *end = fromUtf8(text, result.data());
    result.resize(static_cast<std::size_t>(end - result.data()));
    return result;
}

char16_t *fromUtf8(std::string_view text, char16_t *target) noexcept {
    for (std::size_t at = 0; at < text.size();) {
        for (const std::size_t ascii = at + asciiLength(text.substr(at)); at < ascii; ++at) {
            *target++ = static_cast<unsigned char>(text[at]);
        }
        if (at < text.size()) {
            target = putCharacter(target, readCharacter(text, at));
        }
    }
    return target;
}

std::string toUtf8(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t ascii = asciiLength(text.substr(at));
        result.resize(result.size() + ascii);
        std::ranges::transform(text.substr(at, ascii),
                               result.end() - static_cast<std::ptrdiff_t>(ascii),
                               [](char16_t unit) { return static_cast<char>(unit); });
        at += ascii;
        if (at < text.size()) {
            const char32_t code = nextCharacter(text, at);
            const bool isUnpaired = isHighSurrogate(code) || isLowSurrogate(code);
            appendUtf8(result, isUnpaired ? replacement : code);
        }
    }
    return result;
}

std::u16string_view trimmed(std::u16string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

std::size_t findUnit(std::u16string_view text, char16_t unit, std::size_t from) noexcept {
    // The C library searches many bytes at a time. A byte that it finds can belong to another unit.
    const auto *bytes = reinterpret_cast<const unsigned char *>(text.data());
    const std::size_t size = text.size() * sizeof(char16_t);
    for (std::size_t at = from * sizeof(char16_t); at < size; ++at) {
        const void *found = std::memchr(bytes + at, static_cast<unsigned char>(unit), size - at);
        if (found == nullptr) {
            break;
        }
        at = static_cast<std::size_t>(static_cast<const unsigned char *>(found) - bytes);
        if (text[at / sizeof(char16_t)] == unit) {
            return at / sizeof(char16_t);
        }
    }
    return std::u16string_view::npos;
}

std::vector<std::u16string_view> split(std::u16string_view text, char16_t separator) {
    std::vector<std::u16string_view> items;
    items.reserve(static_cast<std::size_t>(std::ranges::count(text, separator)) + 1);
    for (;;) {
        const std::size_t at = text.find(separator);
        items.push_back(text.substr(0, at));
        if (at == std::u16string_view::npos) {
            return items;
        }
        text.remove_prefix(at + 1);
    }
}

std::u16string joined(const std::vector<std::u16string> &items, char16_t separator) {
    std::u16string text;
    for (const std::u16string &item : items) {
        text.append(item).push_back(separator);
    }
    if (!text.empty()) {
        text.pop_back();
    }
    return text;
}

std::u16string_view withoutTrailingSeparator(std::u16string_view text) noexcept {
    if (text.ends_with(u';')) {
        text.remove_suffix(1);
    }
    return text;
}

std::u16string toText(std::int64_t number) {
    return printed(number);
}
std::u16string toText(double number) {
    return printed(number);
}

bool isNumeric(std::u16string_view text) {
    const std::string form = decimalForm(text);
    return !form.empty() && valueOf(form);
}

double toDouble(std::u16string_view text) {
    const std::string form = decimalForm(text);
    if (form.empty()) {
        throw Error(error_number::typeMismatch);
    }
    if (const auto number = valueOf(form)) {
        return *number;
    }
    throw Error(error_number::overflow);
}

std::int64_t toInt64(std::u16string_view text) {
    return toInt64(toDouble(text));
}
std::int32_t toInt32(std::u16string_view text) {
    return toInt32(toDouble(text));
}
std::int16_t toInt16(std::u16string_view text) {
    return toInt16(toDouble(text));
}
std::int64_t toInt64(double number) {
    return rounded<std::int64_t>(number);
}
std::int32_t toInt32(double number) {
    return rounded<std::int32_t>(number);
}
std::int16_t toInt16(double number) {
    return rounded<std::int16_t>(number);
}

} // namespace kvex
