// Finds a list's row by the first characters of its text, while the user types them.
#pragma once

#include "adapters/controls/ListRows.h"

#include <string>
#include <string_view>

namespace kvex::controls {

/// The first character starts a search, and end() ends it. The row's text must begin with all the
/// characters typed so far, ignoring case. Typing one character repeatedly goes from each row that
/// begins with it to the next.
class ListSearch {
public:
    /// `rows` must outlive the search.
    explicit ListSearch(const ListRows &rows) : rows_(rows) {}

    /// A blank continues a running search. Otherwise it ticks the row's check box.
    [[nodiscard]] bool isRunning() const { return !typed_.empty(); }
    void end() { typed_.clear(); }
    /// Adds a character and returns the row that it leads to; 0 if there is none. Starts at the
    /// selected row and continues from the top. The search keeps running in both cases.
    [[nodiscard]] int rowAfter(std::u16string_view character);

private:
    [[nodiscard]] bool isOneCharacterRepeated(std::u16string_view character) const;

    const ListRows &rows_;
    /// Case-folded.
    std::u16string typed_;
};

} // namespace kvex::controls
