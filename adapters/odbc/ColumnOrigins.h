// Finds the tables and the keys that the columns of a query come from.
#pragma once

#include "adapters/recordset/Driver.h"

#include <vector>

namespace kvex::odbc {

class OdbcStatement;

/// The columns of a prepared query, with their tables and keys as far as the driver knows them.
/// Asks the server's catalogue for the keys.
[[nodiscard]] std::vector<recordset::Column> originsOf(const OdbcStatement &query);

} // namespace kvex::odbc
