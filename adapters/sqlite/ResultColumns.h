// Describes the columns of a query's result: where their values come from, and the keys.
#pragma once

#include "adapters/recordset/Driver.h"
#include "adapters/sqlite/SqliteStatement.h"

#include <vector>

namespace kvex::sqlite {

[[nodiscard]] std::vector<recordset::Column> resultColumns(const Database &database,
                                                           const SqliteStatement &query);

} // namespace kvex::sqlite
