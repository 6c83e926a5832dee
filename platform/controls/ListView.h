// A list of rows in columns (report view), with an optional check box on each row.
#pragma once

#include "platform/controls/Control.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace kvex {

/// A row is greyText if another choice locks it, and windowText otherwise. Assistive technology
/// reads the design's greyedRowHint for a greyed row.
enum class RowColour { windowText, greyText };

/// How findItem compares. Both kinds ignore case.
enum class FindMatch {
    /// One of the two texts begins with the other. The shorter text must end at the longer one's
    /// end, or before a character that is neither a letter nor a digit.
    wholeWordsAtStart,
    wholeText,
};

/// A row's number is its position in the order shown, from 1. 0 means no row. A number without a
/// row fails with indexOutOfBounds.
///
/// No row is selected until the user or code selects one. If the selected row is removed, the next
/// row becomes selected. If it was the last row, none is selected.
///
/// Keys: A character goes to the next row whose text begins with it. More characters continue that
/// search. A pause, any other key, a click, or losing the focus ends it. Outside a search, a blank
/// ticks or unticks the selected row. If no row is selected, it does nothing; Up, Down and Home
/// select the first row, and End selects the last. The list draws a row as selected only if it is.
class ListView : public Control {
public:
    /// The user selected a row by click or key, or selected the same row again.
    std::function<void(int row)> onItemClick;
    /// The user deselected the last selected row, for example by a click beside the rows.
    std::function<void()> onDeselect;
    /// The user ticked or unticked a row's check box. This does not select the row.
    std::function<void(int row)> onItemCheck;
    /// The user double-clicked a row outside its check box. The row is already selected. A double
    /// click beside the rows deselects all rows and does not run this handler.
    std::function<void()> onDoubleClick;

    virtual void clearColumns() = 0;
    /// `width` is a share of the list's width, from 0 to 1. 0 hides the column. The first column
    /// shows the row texts, column n + 1 shows sub-item n.
    virtual void addColumn(const std::u16string &header, double width) = 0;
    [[nodiscard]] virtual int columnCount() const = 0;
    /// `icon` is the number of a picture in the design's image list, from 1; 0 for none.
    virtual void setColumnIcon(int column, int icon) = 0;

    virtual void clearRows() = 0;
    [[nodiscard]] virtual int rowCount() const = 0;
    /// Adds a row at the end, or at its place in a sorted list, and returns its number. Fails with
    /// keyNotUnique, and adds nothing, if another row has the key. Several rows may have no key.
    virtual int addRow(const std::u16string &text, const std::u16string &key = {}) = 0;
    virtual void removeRow(int row) = 0;

    [[nodiscard]] virtual std::u16string text(int row) const = 0;
    virtual void setText(int row, const std::u16string &text) = 0;
    [[nodiscard]] virtual std::u16string key(int row) const = 0;
    /// Fails with elementNotFound if no row has this key.
    [[nodiscard]] virtual int rowOfKey(std::u16string_view key) const = 0;
    /// `index` counts from 1. Returns "" if the sub-item was never set. Fails with
    /// invalidPropertyValue if the index has no column.
    [[nodiscard]] virtual std::u16string subItem(int row, int index) const = 0;
    virtual void setSubItem(int row, int index, const std::u16string &text) = 0;
    [[nodiscard]] virtual bool checked(int row) const = 0;
    virtual void setChecked(int row, bool checked) = 0;
    [[nodiscard]] virtual RowColour rowColour(int row) const = 0;
    virtual void setRowColour(int row, RowColour colour) = 0;

    /// The row that was selected last and is still selected; 0 if there is none.
    [[nodiscard]] virtual int selectedRow() const = 0;
    [[nodiscard]] virtual bool selected(int row) const = 0;
    /// Selects the row and scrolls to it. Without multiple selection, deselects all other rows.
    virtual void select(int row) = 0;
    virtual void deselect(int row) = 0;
    /// Switching it off deselects every row except selectedRow().
    virtual void setMultiSelect(bool multiSelect) = 0;
    [[nodiscard]] virtual bool multiSelect() const = 0;

    /// Sorts the rows, now and as they are added, by the text of the sort key in UTF-16 code units.
    /// Equal rows keep their order. If a row's text changes, the row moves only when sorting is
    /// switched on again.
    virtual void setSorted(bool sorted) = 0;
    [[nodiscard]] virtual bool sorted() const = 0;
    /// 0 sorts by the row text, n by sub-item n.
    virtual void setSortKey(int key) = 0;
    [[nodiscard]] virtual int sortKey() const = 0;

    /// The first row whose text matches; 0 if none does.
    [[nodiscard]] virtual int findItem(std::u16string_view text,
                                       FindMatch match = FindMatch::wholeWordsAtStart) const = 0;
};

} // namespace kvex
