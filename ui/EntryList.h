// The list in which a dialog collects entries, and the buttons that wait for an entry.
#pragma once

#include "platform/controls/CommandButton.h"
#include "platform/controls/ListView.h"
#include "platform/controls/TextBox.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex {

/// Joins the rows from `firstRow` on with ";", without blanks around them. Takes the texts of the
/// rows, or their sub-items `subItem` when that is not 0.
[[nodiscard]] std::u16string joinedRows(const ListView &list, int firstRow, int subItem);

/// The text of the row that shows `entry`.
[[nodiscard]] std::u16string indented(std::u16string_view entry);

/// A list of entries. A list with a heading row shows its entries indented below it; the heading is
/// no entry and always stays. Removing and clearing first set the session's change flag.
class EntryList {
public:
    enum class Heading { none, firstRow };

    /// `waiting` are the buttons that enableButtons switches.
    EntryList(ListView &list, Heading heading, std::vector<CommandButton *> waiting);

    [[nodiscard]] bool empty() const { return list_.rowCount() <= headings_; }
    /// The heading row counts, too.
    [[nodiscard]] bool hasRows() const { return list_.rowCount() > 0; }

    /// Adds an entry and returns its row.
    int add(std::u16string_view entry);
    /// Adds the entries that `entries` joins with ";", and enables the buttons. Does nothing for
    /// "".
    void addJoined(std::u16string_view entries);
    /// Empties `box`, moves the focus there and enables the buttons, even when no entry was added.
    void finishTyping(TextBox &box);
    void enableButtons(bool enabled);

    /// Removes the selected entry, or the first entry when the heading is selected. Without a
    /// selection or an entry nothing happens.
    void removeSelected();
    /// Asks the user, and removes all entries on "Yes".
    void clearIfConfirmed();

    /// Joins the entries as joinedRows does.
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
