// Provides record sets on every database that has an ODBC driver.
#pragma once

#include "adapters/recordset/Driver.h"

#include <string>

namespace kvex::odbc {

/// Accepts "Driver={NAME};KEY=VALUE;..." and "DSN=NAME;...", also after "Provider=MSDASQL;". The
/// driver gets all keys except "Connect Timeout" (ConnectionText.h), and the options that it needs
/// (ServerKind.h). OdbcError.h has the numbers of the errors.
///
/// PostgreSQL, MariaDB, MySQL, SQLite and Microsoft SQL Server are known (ServerKind.h). On other
/// databases the record set can read and change records. There a new record must have its own key,
/// else insert fails with badStatement and stores nothing.
[[nodiscard]] recordset::Provider provider();

/// The version that the ODBC driver manager of this process gives: that of the standard, then its
/// own, as in "03.52.0002.0003" for unixODBC 2.3. Needs no driver.
[[nodiscard]] std::string driverManagerVersion();

} // namespace kvex::odbc
