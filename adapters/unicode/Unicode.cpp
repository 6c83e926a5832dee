#include "platform/Unicode.h"

#include "platform/Utf16.h"

#include <array>
#include <utf8proc.h>

namespace kvex {
namespace {

template <class Map> std::u16string mapped(std::u16string_view text, Map map) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto character = static_cast<utf8proc_int32_t>(nextCharacter(text, at));
        appendCharacter(result, static_cast<char32_t>(map(character)));
    }
    return result;
}

utf8proc_int32_t upper(utf8proc_int32_t character) {
    // The library maps it to the capital sharp s; the Unicode standard does not.
    constexpr utf8proc_int32_t sharpS = 0x00DF;
    return character == sharpS ? character : utf8proc_toupper(character);
}

/// The library knows only the full case folding. Where that has more than one character, the simple
/// folding is the lower case. The dotted capital I is the exception: it has no simple folding.
utf8proc_int32_t folded(utf8proc_int32_t character) {
    constexpr utf8proc_int32_t dottedCapitalI = 0x0130;
    std::array<utf8proc_int32_t, 4> full{};
    int boundary = 0;
    const utf8proc_ssize_t length =
        utf8proc_decompose_char(character, full.data(), full.size(), UTF8PROC_CASEFOLD, &boundary);
    if (length == 1) {
        return full[0];
    }
    return character == dottedCapitalI ? character : utf8proc_tolower(character);
}

} // namespace

std::u16string upperCase(std::u16string_view text) {
    return mapped(text, upper);
}

std::u16string foldCase(std::u16string_view text) {
    return mapped(text, folded);
}

bool isLetterOrDigit(char32_t character) {
    switch (utf8proc_category(static_cast<utf8proc_int32_t>(character))) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_LO:
    case UTF8PROC_CATEGORY_ND:
        return true;
    default:
        return false;
    }
}

std::string unicodeLibrary() {
    return std::string("utf8proc ") + utf8proc_version();
}

} // namespace kvex
