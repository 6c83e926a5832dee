// A record set's rows with the current one among them: moving, finding, holding values.
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

/// Removed rows stay in their places and are skipped; a row removed while it is the current one
/// stays the current one until the next move.
class ClientCursor {
public:
    /// Stands on the first row.
    explicit ClientCursor(RowStore rows);

    [[nodiscard]] const std::vector<Column> &columns() const noexcept { return rows_.columns(); }
    /// The same columns, better described.
    void setColumns(std::vector<Column> columns) { rows_.columns(std::move(columns)); }
    /// The first column of that name; fails with itemNotFound.
    [[nodiscard]] std::size_t columnOf(std::u16string_view name) const;

    [[nodiscard]] bool atEnd() const noexcept { return current_ == rowCount(); }
    /// Rows that are not removed.
    [[nodiscard]] std::size_t count() const noexcept { return rowCount() - removedCount_; }

    void moveFirst() { current_ = firstKept(0); }
    /// Fails with noCurrentRecord at the end.
    void moveNext();
    /// From the current row on, after skipping `skip` rows. Nothing found: at the end. Fails,
    /// without a move, with itemNotFound.
    void find(const FindCriterion &criterion, std::size_t skip);

    /// Fails with noCurrentRecord at the end and on a removed row.
    void requireCurrent() const;
    /// Of the current row, which there must be.
    [[nodiscard]] ValueView value(std::size_t column) const {
        return rows_.value(current_, column);
    }
    /// Whether the current row's value was read or set; see RowStore.
    [[nodiscard]] bool isKnown(std::size_t column) const { return rows_.isKnown(current_, column); }
    /// Takes the memory that holding `value` needs.
    [[nodiscard]] RowStore::Cell prepared(const ValueView &value) { return rows_.prepared(value); }
    void set(std::size_t column, const RowStore::Cell &prepared) noexcept;
    void removeCurrent() noexcept;
    /// Takes the memory that append needs.
    void prepareAppend();
    /// A row of unknown values behind the last one, which becomes the current one.
    void append() noexcept;

private:
    /// With the removed ones, without the one prepared.
    [[nodiscard]] std::size_t rowCount() const noexcept { return removed_.size(); }
    [[nodiscard]] std::size_t firstKept(std::size_t from) const;
    [[nodiscard]] const std::optional<IntegerIndex> &indexOf(std::size_t column);

    /// Behind the last row can be one more, of unknown values: prepared for append.
    RowStore rows_;
    std::vector<bool> removed_;
    std::size_t removedCount_ = 0;
    std::size_t current_ = 0;
    /// Of the columns searched for a number so far; nothing for one that is not of integers.
    std::map<std::size_t, std::optional<IntegerIndex>> indexes_;
};

} // namespace kvex::recordset
