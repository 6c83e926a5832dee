// Provides record sets on every database that has an ODBC driver.
#pragma once

#include "adapters/recordset/Driver.h"

namespace kvex::odbc {

/// Accepts "Driver={NAME};KEY=VALUE;..." and "DSN=NAME;...", also after "Provider=MSDASQL;". The
/// driver gets all keys except "Connect Timeout" (ConnectionText.h), and the options that it needs
/// (ServerKind.h). OdbcError.h has the numbers of the errors.
///
/// PostgreSQL, MariaDB, MySQL, SQLite and Microsoft SQL Server are known (ServerKind.h). On other
/// databases the record set can read and change records. There a new record must have its own key,
/// else insert fails with badStatement and stores nothing.
[[nodiscard]] recordset::Provider provider();

} // namespace kvex::odbc
