// The statements that read and write one row of a table.
#pragma once

#include "adapters/recordset/Driver.h"

#include <string_view>
#include <vector>

namespace kvex::recordset {

/// The key columns of a row with their values.
using RowKey = std::vector<Assignment>;

[[nodiscard]] Statement selectRow(std::u16string_view table,
                                  const std::vector<std::u16string_view> &columns,
                                  const RowKey &key);
/// Writes `changes` where the key matches and each column of `read` still holds its value.
[[nodiscard]] Statement updateRow(const Driver &driver, std::u16string_view table,
                                  const std::vector<Assignment> &changes, const RowKey &key,
                                  const std::vector<Assignment> &read);
/// Removes the row where the key matches and each column of `read` still holds its value.
[[nodiscard]] Statement deleteRow(const Driver &driver, std::u16string_view table,
                                  const RowKey &key, const std::vector<Assignment> &read);
/// For drivers. `emptyRow` is what the database writes for a row of defaults alone.
[[nodiscard]] Statement insertRow(std::u16string_view table, const std::vector<Assignment> &values,
                                  std::u16string_view emptyRow);
/// "A, B, C".
[[nodiscard]] std::u16string listed(const std::vector<std::u16string_view> &names);

} // namespace kvex::recordset
