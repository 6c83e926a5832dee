// The list in which a dialog gathers entries, and the buttons that wait for one.
#pragma once

#include "platform/controls/CommandButton.h"
#include "platform/controls/ListView.h"
#include "platform/controls/TextBox.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex {

/// The rows' texts, or their sub-items `subItem` where it is not 0, from `firstRow` on, without
/// surrounding blanks and joined by ";".
[[nodiscard]] std::u16string joinedRows(const ListView &list, int firstRow, int subItem);

/// An entry as its row shows it.
[[nodiscard]] std::u16string indented(std::u16string_view entry);

/// Entries stand indented below a heading row, where the list has one: a row that is no entry and
/// is never removed. Removing and clearing set the session's change flag first.
class EntryList {
public:
    enum class Heading { none, firstRow };

    /// `waiting`: enabled while there are entries, as far as the procedures below say.
    EntryList(ListView &list, Heading heading, std::vector<CommandButton *> waiting);

    [[nodiscard]] bool empty() const { return list_.rowCount() <= headings_; }
    /// The heading counts.
    [[nodiscard]] bool hasRows() const { return list_.rowCount() > 0; }

    /// Adds one entry; gives its row.
    int add(std::u16string_view entry);
    /// Adds what `entries` holds between ";", and enables the buttons; nothing for "".
    void addJoined(std::u16string_view entries);
    /// Ends the adding of an entry typed into `box`, whether or not one was added.
    void finishTyping(TextBox &box);
    void enableButtons(bool enabled);

    /// Removes the selected entry, for a selected heading the first one. Without a selection or
    /// an entry nothing happens.
    void removeSelected();
    /// Removes all entries when the user confirms it.
    void clearIfConfirmed();

    /// The entries' texts, or their sub-items `subItem`, as joinedRows gives them.
    [[nodiscard]] std::u16string joined(int subItem = 0) const {
        return joinedRows(list_, firstEntry(), subItem);
    }

private:
    [[nodiscard]] int firstEntry() const { return headings_ + 1; }

    ListView &list_;
    int headings_;
    std::vector<CommandButton *> waiting_;
};

} // namespace kvex
