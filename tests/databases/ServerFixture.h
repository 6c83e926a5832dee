// Databases through ODBC for tests: on the test program's own servers, and in a file of SQLite.
#pragma once

#include "tests/databases/DatabaseFixture.h"

namespace kvex::test {

[[nodiscard]] DatabaseKind postgreSqlServer();
[[nodiscard]] DatabaseKind mariaDbServer();
/// The first node of a cluster.
[[nodiscard]] DatabaseKind galeraCluster();
[[nodiscard]] DatabaseKind odbcSqlite();

} // namespace kvex::test
