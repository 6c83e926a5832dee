#include "adapters/controls/ListMatch.h"

#include "platform/Unicode.h"
#include "platform/Utf16.h"

namespace kvex::controls {
namespace {

bool beginsWithWhole(std::u16string_view text, std::u16string_view beginning) {
    std::size_t end = beginning.size();
    return text.starts_with(beginning) &&
           (end == text.size() || !isLetterOrDigit(nextCharacter(text, end)));
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
