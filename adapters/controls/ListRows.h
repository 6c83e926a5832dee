// The rows and columns of a list view, whatever toolkit shows them. A toolkit's list view derives
// from it, adds what a control is, and listens to the changes.
#pragma once

#include "adapters/controls/ListRowsListener.h"
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

class ListRows : public ListView {
public:
    struct Column {
        std::u16string header;
        double width;
        int icon = 0;
    };

    void clearColumns() final;
    /// Fails with invalidPropertyValue for a width outside 0 to 1.
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

    /// What a column shows of a row: the row text in column 1, sub-item n in column n + 1. Valid
    /// until the row changes. Fails with indexOutOfBounds for no row's or no column's number.
    [[nodiscard]] std::u16string_view cell(int row, int column) const;
    /// Fails with indexOutOfBounds.
    [[nodiscard]] const Column &column(int column) const;

    /// What a user does: the row is selected and no other, without scrolling; 0 deselects all.
    void selectOnly(int row);

    /// At most one; null for none.
    void setListener(ListRowsListener *listener) { listener_ = listener; }

protected:
    explicit ListRows(bool multiSelect) : multiSelect_(multiSelect) {}

private:
    struct Row {
        /// The key, then what each column shows.
        PackedTexts texts;
        /// Its place from 0; good below numbered_.
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
    /// Tells the listener, when there is one.
    template <class... Parameters, class... Arguments>
    void tell(void (ListRowsListener::*change)(Parameters...), Arguments... arguments) {
        if (listener_ != nullptr) {
            (listener_->*change)(arguments...);
        }
    }

    std::vector<Column> columns_;
    std::vector<std::unique_ptr<Row>> rows_;
    /// Those with a key.
    std::unordered_set<Row *, KeyHash, KeyEqual> keyed_;
    /// In the order in which they were selected.
    std::vector<Row *> selection_;
    /// The places of the rows before this one are known.
    mutable std::size_t numbered_ = 0;
    bool multiSelect_;
    bool sorted_ = false;
    int sortKey_ = 0;
    ListRowsListener *listener_ = nullptr;
};

} // namespace kvex::controls
