// Finds the tables and the keys that the columns of a query come from.
#pragma once

#include "adapters/recordset/Driver.h"

#include <vector>

namespace kvex::odbc {

class OdbcStatement;

/// The columns of a prepared query, with the tables and keys that the driver knows.
/// Asks the server's catalogue for the keys.
[[nodiscard]] std::vector<recordset::Column> originsOf(const OdbcStatement &query);

} // namespace kvex::odbc
