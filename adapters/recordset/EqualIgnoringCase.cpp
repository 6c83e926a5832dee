#include "adapters/recordset/EqualIgnoringCase.h"

#include "platform/Unicode.h"

#include <algorithm>
#include <cstddef>

namespace kvex::recordset {
namespace {

constexpr char16_t asciiEnd = 0x80;
constexpr std::size_t fingerprintLength = 64;

char16_t asciiLower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

/// One value for all units that are equal without regard to case. All units beyond ASCII share one
/// value. So do k and s, because the Kelvin sign and the long s fold to them.
std::uint32_t withoutCase(char16_t unit) {
    constexpr char16_t caseBit = u'a' ^ u'A';
    const auto lower = static_cast<char16_t>(unit | caseBit);
    return lower >= asciiEnd || lower == u'k' || lower == u's' ? asciiEnd : lower;
}

} // namespace

bool equalIgnoringCase(std::u16string_view left, std::u16string_view right) {
    // A folding is as long as its text, and most texts differ in length.
    if (left.size() != right.size()) {
        return false;
    }
    // This compares blocks of memory, which is faster than operator==: that compares single
    // characters.
    if (std::ranges::equal(left, right)) {
        return true;
    }
    // Folding works character by character, so the first two ASCII characters that differ decide.
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (left[i] >= asciiEnd || right[i] >= asciiEnd) {
            return foldCase(left.substr(i)) == foldCase(right.substr(i));
        }
        if (asciiLower(left[i]) != asciiLower(right[i])) {
            return false;
        }
    }
    return true;
}

std::uint16_t fingerprintIgnoringCase(std::u16string_view text) {
    auto sum = static_cast<std::uint32_t>(text.size());
    if (text.size() <= fingerprintLength) {
        for (const char16_t unit : text) {
            sum = sum * 31 + withoutCase(unit);
        }
    }
    // Multiplying by the golden ratio spreads neighbouring sums.
    constexpr std::uint32_t spreading = 0x9E3779B1;
    return std::max<std::uint16_t>(static_cast<std::uint16_t>((sum * spreading) >> 16), 1);
}

} // namespace kvex::recordset
