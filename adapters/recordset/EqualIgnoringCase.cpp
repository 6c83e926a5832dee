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

/// The same for all that one unit can become when case is ignored. What lies beyond ASCII counts
/// as one; so do k and s, to which the Kelvin sign and the long s fold.
std::uint32_t withoutCase(char16_t unit) {
    constexpr char16_t caseBit = u'a' ^ u'A';
    const auto lower = static_cast<char16_t>(unit | caseBit);
    return lower >= asciiEnd || lower == u'k' || lower == u's' ? asciiEnd : lower;
}

} // namespace

bool equalIgnoringCase(std::u16string_view left, std::u16string_view right) {
    // A folding is as long as its text: most texts differ in that already.
    if (left.size() != right.size()) {
        return false;
    }
    // As bytes: the operator compares character by character.
    if (std::ranges::equal(left, right)) {
        return true;
    }
    // Folding goes character by character, so the first two ASCII characters that differ decide.
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
    // The golden ratio spreads sums that lie side by side.
    constexpr std::uint32_t spreading = 0x9E3779B1;
    return std::max<std::uint16_t>(static_cast<std::uint16_t>((sum * spreading) >> 16), 1);
}

} // namespace kvex::recordset
