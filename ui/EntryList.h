// The list in which a dialog collects entries, and the buttons that wait for an entry.
#pragma once

#include "platform/controls/Buttons.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"
#include "platform/controls/TextBox.h"
#include "rules/ReadingHints.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex {

/// The texts of the rows from `firstRow` on, without blanks around them. Takes the rows' sub-items
/// `subItem` when that is not 0.
[[nodiscard]] Entries entriesIn(const ListView &list, int firstRow, int subItem);

/// Joins these texts with ";".
[[nodiscard]] std::u16string joinedRows(const ListView &list, int firstRow, int subItem);

/// The text of the row that shows `entry`.
[[nodiscard]] std::u16string indented(std::u16string_view entry);

/// A list of entries. It can have a hint. A list with a heading row shows its entries indented
/// below it; the heading is no entry and always stays. Removing and clearing first set the
/// session's change flag.
class EntryList {
public:
    enum class Heading { none, firstRow };

    /// `waiting` are the buttons that are enabled while there are entries.
    EntryList(ListView &list, Heading heading, std::vector<CommandButton *> waiting);

    [[nodiscard]] bool empty() const { return list_.rowCount() <= headings_; }
    /// The heading row counts, too.
    [[nodiscard]] bool hasRows() const { return list_.rowCount() > 0; }

    /// Says what the server makes of entries, or "".
    using HintFor = std::u16string (*)(RuleState rule, const Entries &entries);
    /// From now on, updateHint shows what `hintFor` says of the entries and of the text in `box`.
    void explainBy(Label &hint, TextBox &box, HintFor hintFor);
    /// Call it when the text in the box or an option of the entries changes. The functions below
    /// call it, except add.
    void updateHint();

    /// Adds an entry and returns its row.
    int add(std::u16string_view entry);
    /// Adds the entries that `entries` joins with ";", and enables the buttons. Does nothing for
    /// "".
    void addJoined(std::u16string_view entries);
    /// Empties `box`, moves the focus there and enables the buttons, even when no entry was added.
    void finishTyping(TextBox &box);
    /// Call it when entries were added: enables the buttons.
    void finishAdding();

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
    struct Hint {
        Label &label;
        TextBox &box;
        HintFor sentence;
    };

    [[nodiscard]] int firstEntry() const { return headings_ + 1; }
    void enableButtons(bool enabled);

    ListView &list_;
    int headings_;
    std::vector<CommandButton *> waiting_;
    std::optional<Hint> hint_;
};

} // namespace kvex
