// What differs between a table and the same table in a backup, and how to undo it.
#pragma once

#include "adapters/recordset/RowStore.h"
#include "host/suite/Schema.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kvex::host {

/// The rows of a table in two databases, by their ids, in the columns of the backup.
class TableDifference {
public:
    /// Reads all rows of both. Fails with badArgument when the table lacks a column that the backup
    /// has, or the backup's table lacks ID. Fails with it too when an id is no whole number, or
    /// occurs twice. Fails as Driver::query does.
    TableDifference(const Table &table, recordset::Driver &backup, recordset::Driver &target);

    [[nodiscard]] std::size_t added() const noexcept { return added_.size(); }
    [[nodiscard]] std::size_t changed() const noexcept { return changed_.size(); }
    [[nodiscard]] std::size_t removed() const noexcept { return removed_.size(); }
    [[nodiscard]] bool isEmpty() const noexcept {
        return added_.empty() && changed_.empty() && removed_.empty();
    }
    [[nodiscard]] const Table &table() const noexcept { return table_; }

    /// Fails with badArgument when a text to write cannot be read unchanged from the backup.
    void requireReadable(recordset::Driver &backup) const;
    /// Removes the rows that the backup does not have. Fails as Driver::execute does.
    void removeSurplus(recordset::Driver &target) const;
    /// Writes the rows that the backup has. Fails as Driver::execute does.
    void write(recordset::Driver &target) const;

private:
    /// The position of each row by its id.
    using Rows = std::map<std::int64_t, std::size_t>;

    [[nodiscard]] Rows rowsById(const recordset::RowStore &rows) const;
    [[nodiscard]] recordset::Assignment assignment(std::size_t row, std::size_t column) const {
        return {columns_[column], theirs_.value(row, column)};
    }

    const Table &table_;
    std::vector<std::u16string> columns_;
    std::size_t idColumn_ = 0;
    recordset::RowStore theirs_;
    recordset::RowStore ours_;
    /// Positions in the backup's rows.
    std::vector<std::size_t> added_;
    /// Positions in the backup's rows, and those in the table's.
    std::vector<std::pair<std::size_t, std::size_t>> changed_;
    std::vector<std::int64_t> removed_;
};

} // namespace kvex::host
