// Every database with an ODBC driver as a provider of record sets.
#pragma once

#include "adapters/recordset/Driver.h"

namespace kvex::odbc {

/// Accepts "Driver={NAME};KEY=VALUE;...", "DSN=NAME;..." and both with "Provider=MSDASQL;" before
/// it. Keys other than "Connect Timeout" (ConnectionText.h) are the driver's own. Numbers of the
/// errors: OdbcError.h. What a driver is told beyond the string: DriverOptions.h.
///
/// Known are PostgreSQL, MariaDB, MySQL, SQLite and Microsoft SQL Server (ServerKind.h); on any
/// other database records can be read and changed, and added with keys of one's own.
[[nodiscard]] recordset::Provider provider();

} // namespace kvex::odbc
