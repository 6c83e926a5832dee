#include "adapters/controls/ListMatch.h"

#include "platform/Unicode.h"

namespace kvex::controls {
namespace {

char32_t characterAt(std::u16string_view text, std::size_t at) {
    const char32_t first = text[at];
    const char32_t second = at + 1 < text.size() ? text[at + 1] : 0;
    const bool isPair = (first & 0xFC00) == 0xD800 && (second & 0xFC00) == 0xDC00;
    return isPair ? 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00) : first;
}

bool beginsWithWhole(std::u16string_view text, std::u16string_view beginning) {
    return text.starts_with(beginning) && (text.size() == beginning.size() ||
                                           !isLetterOrDigit(characterAt(text, beginning.size())));
}

} // namespace

ListMatch::ListMatch(std::u16string_view text, FindMatch match)
    : folded_(foldCase(text)), match_(match) {}

bool ListMatch::operator()(std::u16string_view rowText) const {
    const std::u16string folded = foldCase(rowText);
    if (match_ == FindMatch::wholeText) {
        return folded == folded_;
    }
    return beginsWithWhole(folded, folded_) || beginsWithWhole(folded_, folded);
}

} // namespace kvex::controls
