// Case folding of Latin-1 alone.
#include "platform/Unicode.h"

namespace kvex {
std::u16string foldCase(std::u16string_view text) {
    std::u16string folded(text);
    for (char16_t &unit : folded) {
        if ((unit >= u'A' && unit <= u'Z') || (unit >= 0xC0 && unit <= 0xDE && unit != 0xD7)) {
            unit = static_cast<char16_t>(unit + 0x20);
        }
    }
    return folded;
}
} // namespace kvex
