#include "adapters/recordset/EqualIgnoringCase.h"

#include "platform/Unicode.h"

namespace kvex::recordset {
namespace {

constexpr char16_t asciiEnd = 0x80;

char16_t asciiLower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

} // namespace

bool equalIgnoringCase(std::u16string_view left, std::u16string_view right) {
    // A folding is as long as its text: most texts differ in that already.
    if (left.size() != right.size()) {
        return false;
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

} // namespace kvex::recordset
