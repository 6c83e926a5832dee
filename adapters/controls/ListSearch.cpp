#include "adapters/controls/ListSearch.h"

#include "platform/Unicode.h"

namespace kvex::controls {

int ListSearch::rowAfter(std::u16string_view character) {
    const std::u16string folded = foldCase(character);
    const bool isFirst = !isRunning();
    typed_ += folded;
    const bool isRepeated = isOneCharacterRepeated(folded);
    const std::u16string &wanted = isRepeated ? folded : typed_;

    const int count = rows_.rowCount();
    const int selected = rows_.selectedRow();
    // A longer text may keep the selected row. Otherwise the search starts after it.
    const int before = isFirst || isRepeated || selected == 0 ? selected : selected - 1;
    for (int step = 0; step < count; ++step) {
        const int row = (before + step) % count + 1;
        // Folding keeps the number of units, so the beginning of the row is enough.
        if (foldCase(rows_.rowText(row).substr(0, wanted.size())) == wanted) {
            return row;
        }
    }
    return 0;
}

bool ListSearch::isOneCharacterRepeated(std::u16string_view character) const {
    for (std::size_t at = 0; at < typed_.size(); at += character.size()) {
        if (std::u16string_view(typed_).substr(at, character.size()) != character) {
            return false;
        }
    }
    return true;
}

} // namespace kvex::controls
