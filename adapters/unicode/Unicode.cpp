#include "platform/Unicode.h"

#include "platform/Utf16.h"

#include <algorithm>
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

/// Asks for the form of an emoji in colours.
constexpr utf8proc_int32_t emojiStyle = 0xFE0F;

/// The library gives a vowel sign at a letter's side no column, and a Korean vowel or final
/// consonant one. Terminals do the opposite.
int columnsOfCharacter(utf8proc_int32_t character) {
    const bool isKoreanPart = (character >= 0x1160 && character <= 0x11FF) ||
                              (character >= 0xD7B0 && character <= 0xD7FF);
    if (isKoreanPart) {
        return 0;
    }
    return utf8proc_category(character) == UTF8PROC_CATEGORY_MC ? 1 : utf8proc_charwidth(character);
}

} // namespace

std::u16string upperCase(std::u16string_view text) {
    return mapped(text, upper);
}

std::u16string foldCase(std::u16string_view text) {
    return mapped(text, folded);
}

std::size_t clusterEnd(std::u16string_view text, std::size_t from) {
    // Between two ASCII characters there is an end, except within CR LF.
    constexpr char16_t firstBeyondAscii = 0x80;
    if (text[from] >= u' ' && text[from] < firstBeyondAscii &&
        (from + 1 == text.size() || text[from + 1] < firstBeyondAscii)) {
        return from + 1;
    }
    std::size_t at = from;
    auto last = static_cast<utf8proc_int32_t>(nextCharacter(text, at));
    utf8proc_int32_t state = 0;
    while (at < text.size()) {
        std::size_t next = at;
        const auto character = static_cast<utf8proc_int32_t>(nextCharacter(text, next));
        if (utf8proc_grapheme_break_stateful(last, character, &state)) {
            break;
        }
        last = character;
        at = next;
    }
    return at;
}

std::size_t clusterStart(std::u16string_view text, std::size_t to) {
    // Whether two characters belong together can depend on those before them. The two sides of a
    // control character, such as a line break, never do.
    std::size_t start = to;
    while (start > 0 && text[start - 1] >= 0x20) {
        --start;
    }
    start = start == to ? to - 1 - (to > 1 && text.substr(to - 2, 2) == u"\r\n" ? 1 : 0) : start;
    for (std::size_t end = clusterEnd(text, start); end < to; end = clusterEnd(text, start)) {
        start = end;
    }
    return start;
}

int columnsOf(std::u16string_view cluster) {
    int columns = 0;
    bool isEmoji = false;
    for (std::size_t at = 0; at < cluster.size();) {
        const auto character = static_cast<utf8proc_int32_t>(nextCharacter(cluster, at));
        isEmoji = isEmoji || character == emojiStyle;
        columns += columnsOfCharacter(character);
    }
    return isEmoji ? 2 : std::min(columns, 2);
}

bool isAccent(std::u16string_view cluster) {
    std::size_t at = 0;
    const auto character = static_cast<utf8proc_int32_t>(nextCharacter(cluster, at));
    switch (utf8proc_category(character)) {
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_ME:
        return true;
    default:
        return false;
    }
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

/// In every script the digits from 0 to 9 follow each other.
std::optional<int> digitValue(char32_t character) {
    int digitsBefore = -1;
    for (; utf8proc_category(static_cast<utf8proc_int32_t>(character)) == UTF8PROC_CATEGORY_ND;
         --character) {
        ++digitsBefore;
    }
    return digitsBefore < 0 ? std::nullopt : std::optional(digitsBefore % 10);
}

std::string unicodeLibrary() {
    return std::string("utf8proc ") + utf8proc_version();
}

} // namespace kvex
