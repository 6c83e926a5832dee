// Databases through ODBC for tests: on the test program's own servers, and in a file of SQLite.
#pragma once

#include "tests/recordset/DatabaseFixture.h"

namespace kvex::test {

[[nodiscard]] DatabaseKind postgreSqlServer();
[[nodiscard]] DatabaseKind mariaDbServer();
[[nodiscard]] DatabaseKind odbcSqlite();

} // namespace kvex::test
