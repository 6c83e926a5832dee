// A list of rows in columns (report view), with an optional check box on each row.
#pragma once

#include "platform/controls/Control.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace kvex {

/// windowText, or greyText for a row that another choice locks. A greyed row also carries the
/// design's greyedRowHint for those who cannot see it.
enum class RowColour { windowText, greyText };

/// How findItem compares, in both kinds without regard to case.
enum class FindMatch {
    /// Either text begins with the whole of the other, ended by the text's end or by a
    /// character that is neither letter nor digit.
    wholeWordsAtStart,
    wholeText,
};

/// A row is addressed by its position, from 1, in the order shown; 0 stands for no row. A
/// position that is no row's fails with indexOutOfBounds.
///
/// No row is selected until the user or code selects one. When the selected row is removed, the
/// row that takes its place is selected; when it was the last, none is.
///
/// Keys: a character goes to the next row whose text begins with it, and the characters typed
/// after it go on with that search. A pause, any other key, a click and the loss of the focus end
/// the search. A blank that is not part of a search ticks or unticks the selected row; without a
/// selected row it does nothing. Up, Down and Home select the first row where none is selected,
/// End the last. No row is drawn as if it were selected when none is.
class ListView : public Control {
public:
    /// The user selected a row (or the selected row again) by click or key.
    std::function<void(int row)> onItemClick;
    /// The user left no row selected: he clicked beside the rows, or took the selection from its
    /// row.
    std::function<void()> onDeselect;
    /// The user ticked or unticked a row's check box. Does not select the row by itself.
    std::function<void(int row)> onItemCheck;
    /// The user double-clicked a row, outside its check box. The row is selected then. A click
    /// beside the rows deselects all, and a double click there raises nothing.
    std::function<void()> onDoubleClick;

    virtual void clearColumns() = 0;
    /// `width` is a share of the list's own width, 0 to 1; 0 hides the column. The first column
    /// shows the row texts, column n + 1 sub-item n.
    virtual void addColumn(const std::u16string &header, double width) = 0;
    [[nodiscard]] virtual int columnCount() const = 0;
    /// Picture `icon` (from 1) of the image list that the design names; 0 for none.
    virtual void setColumnIcon(int column, int icon) = 0;

    virtual void clearRows() = 0;
    [[nodiscard]] virtual int rowCount() const = 0;
    /// Adds a row at the end (in a sorted list, at its place) and gives its position. A key that
    /// is not empty must be unique, else keyNotUnique and no row is added.
    virtual int addRow(const std::u16string &text, const std::u16string &key = {}) = 0;
    virtual void removeRow(int row) = 0;

    [[nodiscard]] virtual std::u16string text(int row) const = 0;
    virtual void setText(int row, const std::u16string &text) = 0;
    [[nodiscard]] virtual std::u16string key(int row) const = 0;
    /// The row with this key; fails with elementNotFound when there is none.
    [[nodiscard]] virtual int rowOfKey(std::u16string_view key) const = 0;
    /// `index` from 1; "" where none was set. Fails with invalidPropertyValue for an index
    /// without a column.
    [[nodiscard]] virtual std::u16string subItem(int row, int index) const = 0;
    virtual void setSubItem(int row, int index, const std::u16string &text) = 0;
    [[nodiscard]] virtual bool checked(int row) const = 0;
    virtual void setChecked(int row, bool checked) = 0;
    [[nodiscard]] virtual RowColour rowColour(int row) const = 0;
    virtual void setRowColour(int row, RowColour colour) = 0;

    /// The current item: the row that was selected last and still is; 0 for none.
    [[nodiscard]] virtual int selectedRow() const = 0;
    [[nodiscard]] virtual bool selected(int row) const = 0;
    /// Selects the row, and with multiple selection off deselects every other, and scrolls it
    /// into view.
    virtual void select(int row) = 0;
    virtual void deselect(int row) = 0;
    /// Switched off, it leaves of the selected rows only the current item.
    virtual void setMultiSelect(bool multiSelect) = 0;
    [[nodiscard]] virtual bool multiSelect() const = 0;

    /// While on, the rows stand in ascending order of the sort key, as text, by UTF-16 code
    /// unit; equal ones stay as they stood. A changed key moves its row only when sorting is
    /// switched on (again).
    virtual void setSorted(bool sorted) = 0;
    [[nodiscard]] virtual bool sorted() const = 0;
    /// 0 sorts on the row texts, n on sub-item n.
    virtual void setSortKey(int key) = 0;
    [[nodiscard]] virtual int sortKey() const = 0;

    /// The first row whose text matches, 0 when none does.
    [[nodiscard]] virtual int findItem(std::u16string_view text,
                                       FindMatch match = FindMatch::wholeWordsAtStart) const = 0;
};

} // namespace kvex
