#include "adapters/recordset/EqualIgnoringCase.h"

#include "platform/Unicode.h"

#include <algorithm>

namespace kvex::recordset {
namespace {

constexpr char16_t asciiEnd = 0x80;

char16_t asciiLower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

} // namespace

bool equalIgnoringCase(std::u16string_view left, std::u16string_view right) {
    // Folding goes character by character, so the first two ASCII characters that differ decide.
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (left[i] >= asciiEnd || right[i] >= asciiEnd) {
            return foldCase(left.substr(i)) == foldCase(right.substr(i));
        }
        if (asciiLower(left[i]) != asciiLower(right[i])) {
            return false;
        }
    }
    return left.size() == right.size();
}

} // namespace kvex::recordset
