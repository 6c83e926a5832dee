// Describes the columns of a query's result: where their values come from, and the keys.
#pragma once

#include "adapters/recordset/Driver.h"
#include "adapters/sqlite/SqliteStatement.h"

#include <vector>

namespace kvex::sqlite {

/// But for the keys.
[[nodiscard]] std::vector<recordset::Column> resultColumns(const SqliteStatement &query);
/// Says which of the columns, those of an earlier run of `query`, are parts of which key. A column
/// that the query has no more is left as it is.
void describeKeys(const Database &database, const SqliteStatement &query,
                  std::vector<recordset::Column> &columns);

} // namespace kvex::sqlite
