// The rows and columns of a list view, the same for all toolkits. A toolkit's list view derives
// from it, adds the control, and listens to the changes.
#pragma once

#include "adapters/controls/PackedTexts.h"
#include "platform/controls/ListView.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace kvex::controls {

/// The view of a list's rows. It learns of all changes, from the user and from code. Rows and
/// columns count from 1. An "about to" call comes before a change and its counterpart after it; the
/// rows must not be read in between. If a change also alters the selection, selectionChanged comes
/// last.
class ListRowsListener {
public:
    virtual ~ListRowsListener() = default;

    virtual void aboutToInsertRow(int row) = 0;
    virtual void rowInserted() = 0;
    virtual void aboutToRemoveRow(int row) = 0;
    virtual void rowRemoved() = 0;
    /// The rows are sorted.
    virtual void aboutToReorder() = 0;
    virtual void reordered() = 0;
    /// The rows are cleared, a column is added, or the columns are cleared.
    virtual void aboutToReset() = 0;
    virtual void reset() = 0;

    /// The row's text, tick or colour changed.
    virtual void rowChanged(int row) = 0;
    virtual void columnIconChanged(int column) = 0;
    virtual void selectionChanged() = 0;
    /// Code selected the row. The view scrolls to it.
    virtual void rowSelectedByCode(int row) = 0;

protected:
    ListRowsListener() = default;
    ListRowsListener(const ListRowsListener &) = delete;
    ListRowsListener &operator=(const ListRowsListener &) = delete;
};

class ListRows : public ListView {
public:
    struct Column {
        std::u16string header;
        double width;
        int icon = 0;
    };

    void clearColumns() final;
    /// Fails with invalidPropertyValue if the width is not between 0 and 1.
    void addColumn(const std::u16string &header, double width) final;
    [[nodiscard]] int columnCount() const final { return static_cast<int>(columns_.size()); }
    void setColumnIcon(int column, int icon) final;

    void clearRows() final;
    [[nodiscard]] int rowCount() const final { return static_cast<int>(rows_.size()); }
    int addRow(const std::u16string &text, const std::u16string &key = {}) final;
    void removeRow(int row) final;

    [[nodiscard]] std::u16string text(int row) const final;
    void setText(int row, const std::u16string &text) final;
    [[nodiscard]] std::u16string key(int row) const final;
    [[nodiscard]] int rowOfKey(std::u16string_view key) const final;
    [[nodiscard]] std::u16string subItem(int row, int index) const final;
    void setSubItem(int row, int index, const std::u16string &text) final;
    [[nodiscard]] bool checked(int row) const final;
    void setChecked(int row, bool checked) final;
    [[nodiscard]] RowColour rowColour(int row) const final;
    void setRowColour(int row, RowColour colour) final;

    [[nodiscard]] int selectedRow() const final;
    [[nodiscard]] bool selected(int row) const final;
    void select(int row) final;
    void deselect(int row) final;
    void setMultiSelect(bool multiSelect) final;
    [[nodiscard]] bool multiSelect() const final { return multiSelect_; }

    void setSorted(bool sorted) final;
    [[nodiscard]] bool sorted() const final { return sorted_; }
    void setSortKey(int key) final;
    [[nodiscard]] int sortKey() const final { return sortKey_; }

    [[nodiscard]] int findItem(std::u16string_view text,
                               FindMatch match = FindMatch::wholeWordsAtStart) const final;

    /// The row text. Valid until the row changes.
    [[nodiscard]] std::u16string_view rowText(int row) const { return at(row).texts[1]; }
    /// What a row shows in a column: the row text in column 1, sub-item n in column n + 1. Valid
    /// until the row changes. Fails with indexOutOfBounds if there is no such row or column.
    [[nodiscard]] std::u16string_view cell(int row, int column) const;
    /// Fails with indexOutOfBounds if there is no such column.
    [[nodiscard]] const Column &column(int column) const;

    /// Selects this row alone, as a user does, without scrolling. 0 deselects all rows.
    void selectOnly(int row);

    /// There is at most one listener; null removes it.
    void setListener(ListRowsListener *listener) { listener_ = listener; }

protected:
    explicit ListRows(bool multiSelect) : multiSelect_(multiSelect) {}

private:
    struct Row {
        /// The key, then the text of each column.
        PackedTexts texts;
        /// Its position from 0. Right only for the first numbered_ rows.
        std::uint32_t place = 0;
        bool checked = false;
        bool selected = false;
        RowColour colour = RowColour::windowText;
    };

    static std::u16string_view keyOf(std::u16string_view key) { return key; }
    static std::u16string_view keyOf(const Row *row) { return row->texts[0]; }
    struct KeyHash {
        using is_transparent = void;
        std::size_t operator()(const auto &item) const {
            return std::hash<std::u16string_view>()(keyOf(item));
        }
    };
    struct KeyEqual {
        using is_transparent = void;
        bool operator()(const auto &one, const auto &other) const {
            return keyOf(one) == keyOf(other);
        }
    };

    [[nodiscard]] Row &at(int row) const;
    [[nodiscard]] std::u16string_view sortText(const Row &row) const;
    [[nodiscard]] std::size_t placeFor(const Row &row) const;
    [[nodiscard]] int positionOf(const Row &row) const;
    void requireColumnOf(int subItem) const;
    void sort();
    void putLast(Row &row);
    void drop(Row &row);
    void deselectAll();
    /// Tells the listener if there is one.
    template <class... Parameters, class... Arguments>
    void tell(void (ListRowsListener::*change)(Parameters...), Arguments... arguments) {
        if (listener_ != nullptr) {
            (listener_->*change)(arguments...);
        }
    }

    std::vector<Column> columns_;
    std::vector<std::unique_ptr<Row>> rows_;
    /// The rows that have a key.
    std::unordered_set<Row *, KeyHash, KeyEqual> keyed_;
    /// The selected rows, in the order of their selection.
    std::vector<Row *> selection_;
    /// How many rows, from the first, know their place.
    mutable std::size_t numbered_ = 0;
    bool multiSelect_;
    bool sorted_ = false;
    int sortKey_ = 0;
    ListRowsListener *listener_ = nullptr;
};

} // namespace kvex::controls
