// Databases through ODBC for tests: on the test program's own servers, and in a file of SQLite.
#pragma once

#include "tests/databases/DatabaseFixture.h"

namespace kvex::test {

[[nodiscard]] DatabaseKind postgreSqlServer();
[[nodiscard]] DatabaseKind mariaDbServer();
/// Each user is on a node of his own.
[[nodiscard]] DatabaseKind galeraCluster();
[[nodiscard]] DatabaseKind odbcSqlite();

} // namespace kvex::test
