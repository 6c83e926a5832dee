// What a connection string says about an SQLite database.
#pragma once

#include "adapters/recordset/ConnectionString.h"
#include "adapters/sqlite/Database.h"

namespace kvex::sqlite {

/// True for a bare path and for "Provider=SQLite".
[[nodiscard]] bool namesSqlite(const recordset::ConnectionString &text);

/// Fails with badArgument when `text` has no "Data Source" or its "Busy Timeout" is no whole
/// number of milliseconds; else as Database does.
[[nodiscard]] Database openDatabase(const recordset::ConnectionString &text,
                                    Database::Missing missing);

} // namespace kvex::sqlite
