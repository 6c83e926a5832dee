// The rows of a record set and the current one: moves, finds, reads and changes values.
#pragma once

#include "adapters/recordset/FindCriterion.h"
#include "adapters/recordset/IntegerIndex.h"
#include "adapters/recordset/RowStore.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace kvex::recordset {

/// A removed row keeps its place and is skipped. When the current row is removed, it stays the
/// current one until the next move.
class ClientCursor {
public:
    /// Starts on the first row.
    explicit ClientCursor(RowStore rows);

    [[nodiscard]] const std::vector<Column> &columns() const noexcept { return rows_.columns(); }
    /// Replaces the descriptions of the same columns.
    void setColumns(std::vector<Column> columns) { rows_.columns(std::move(columns)); }
    /// The first column of that name. Fails with itemNotFound when there is none.
    [[nodiscard]] std::size_t columnOf(std::u16string_view name) const;

    /// The place of the current row.
    [[nodiscard]] std::size_t current() const noexcept { return current_; }
    [[nodiscard]] bool atEnd() const noexcept { return current_ == rowCount(); }
    /// The number of rows without the removed ones.
    [[nodiscard]] std::size_t count() const noexcept { return rowCount() - removedCount_; }

    void moveFirst() { current_ = firstKept(0); }
    /// Fails with noCurrentRecord at the end.
    void moveNext();
    /// Skips `skip` rows and searches from there; ends after the last row when none matches. Fails
    /// with itemNotFound for an unknown column, and does not move then.
    void find(const FindCriterion &criterion, std::size_t skip);

    /// Fails with noCurrentRecord at the end and on a removed row.
    void requireCurrent() const;
    /// The value in the current row. There must be one.
    [[nodiscard]] ValueView value(std::size_t column) const {
        return rows_.value(current_, column);
    }
    /// True when the current row's value was read or set.
    [[nodiscard]] bool isKnown(std::size_t column) const { return rows_.isKnown(current_, column); }
    /// Allocates what set needs for `value`.
    [[nodiscard]] RowStore::Cell prepared(const ValueView &value) { return rows_.prepared(value); }
    void set(std::size_t column, const RowStore::Cell &prepared) noexcept {
        set(current_, column, prepared);
    }
    void set(std::size_t row, std::size_t column, const RowStore::Cell &prepared) noexcept;
    /// A value of the current row, for a later set.
    [[nodiscard]] RowStore::Cell cell(std::size_t column) const {
        return rows_.cell(current_, column);
    }
    void remove(std::size_t row) noexcept;
    /// Undoes remove.
    void bringBack(std::size_t row) noexcept;
    /// Allocates what append needs.
    void prepareAppend();
    /// Appends a row of unknown values, at the place rowCount, and makes it the current one.
    void append() noexcept;
    /// Counts the removed rows, but not a row that was only prepared.
    [[nodiscard]] std::size_t rowCount() const noexcept { return removed_.size(); }

private:
    [[nodiscard]] std::size_t firstKept(std::size_t from) const;
    [[nodiscard]] const std::optional<IntegerIndex> &indexOf(std::size_t column);

    /// Can have one row more than the set: the one prepared for append.
    RowStore rows_;
    std::vector<bool> removed_;
    std::size_t removedCount_ = 0;
    std::size_t current_ = 0;
    /// The columns that were searched for a number. A column of other values has no index.
    std::map<std::size_t, std::optional<IntegerIndex>> indexes_;
};

} // namespace kvex::recordset
