// The table behind the rows of a query, and the statements that read and write one row of it.
#pragma once

#include "adapters/recordset/Driver.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::recordset {

struct BaseTable {
    std::u16string name;
    /// The columns of the query's result that make up the primary key.
    std::vector<std::size_t> key;

    /// The one table that the columns come from. Fails with badArgument when there is none, or when
    /// the query joins several tables. Fails with it too when the table has no primary key, or when
    /// the result does not have each key column exactly once. The user then learns why.
    [[nodiscard]] static BaseTable of(const std::vector<Column> &columns);
};

/// The key columns of a row and their values.
using RowKey = std::vector<Assignment>;

[[nodiscard]] Statement selectRow(std::u16string_view table,
                                  const std::vector<std::u16string_view> &columns,
                                  const RowKey &key);
/// Reads `columns` of the row with this key, if each column of `read` still has its value.
[[nodiscard]] Statement selectRow(const Driver &driver, std::u16string_view table,
                                  const std::vector<std::u16string_view> &columns,
                                  const RowKey &key, const std::vector<Assignment> &read);
/// Writes `changes` to the row with this key, if each column of `read` still has its value.
[[nodiscard]] Statement updateRow(const Driver &driver, std::u16string_view table,
                                  const std::vector<Assignment> &changes, const RowKey &key,
                                  const std::vector<Assignment> &read);
/// Removes the row with this key, if each column of `read` still has its value.
[[nodiscard]] Statement deleteRow(const Driver &driver, std::u16string_view table,
                                  const RowKey &key, const std::vector<Assignment> &read);
/// For drivers. `emptyRow` is how the database's SQL writes a row of defaults only.
[[nodiscard]] Statement insertRow(std::u16string_view table, const std::vector<Assignment> &values,
                                  std::u16string_view emptyRow);
/// "A, B, C".
[[nodiscard]] std::u16string listed(const std::vector<std::u16string_view> &names);

} // namespace kvex::recordset
