// Who shows a list's rows learns here of their changes, user's and code's alike.
#pragma once

namespace kvex::controls {

/// Rows and columns count from 1. An "about to" call comes before the rows change, its
/// counterpart after; in between the rows must not be read. A change of the selection that
/// another change brings along is told last, by selectionChanged.
class ListRowsListener {
public:
    virtual ~ListRowsListener() = default;

    virtual void aboutToInsertRow(int row) = 0;
    virtual void rowInserted() = 0;
    virtual void aboutToRemoveRow(int row) = 0;
    virtual void rowRemoved() = 0;
    /// The rows change places.
    virtual void aboutToReorder() = 0;
    virtual void reordered() = 0;
    /// Rows were cleared, or a column came, or the columns went.
    virtual void aboutToReset() = 0;
    virtual void reset() = 0;

    /// A text, tick or colour of the row changed.
    virtual void rowChanged(int row) = 0;
    virtual void columnIconChanged(int column) = 0;
    virtual void selectionChanged() = 0;
    /// Code selected the row, which is to be scrolled into view.
    virtual void rowSelectedByCode(int row) = 0;

protected:
    ListRowsListener() = default;
    ListRowsListener(const ListRowsListener &) = delete;
    ListRowsListener &operator=(const ListRowsListener &) = delete;
};

} // namespace kvex::controls
