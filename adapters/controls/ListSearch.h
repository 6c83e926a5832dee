// The search of a list by the first letters of its rows, as the user types them.
#pragma once

#include "platform/controls/ListView.h"

#include <string>
#include <string_view>

namespace kvex::controls {

/// A search starts with a character and runs until it is ended. Each character more is one more
/// of the text that the row's text must begin with, without regard to case. The same character
/// again and again goes from one row that begins with it to the next.
class ListSearch {
public:
    /// `rows` must outlive the search.
    explicit ListSearch(const ListView &rows) : rows_(rows) {}

    /// A blank is part of a running search. Without one it is for the row's check box.
    [[nodiscard]] bool isRunning() const { return !typed_.empty(); }
    void end() { typed_.clear(); }
    /// The row that this character leads to, from the selected row on and round; 0 when none
    /// begins so. The search goes on in both cases.
    [[nodiscard]] int rowAfter(std::u16string_view character);

private:
    [[nodiscard]] bool isOneCharacterRepeated(std::u16string_view character) const;

    const ListView &rows_;
    /// Case folded.
    std::u16string typed_;
};

} // namespace kvex::controls
