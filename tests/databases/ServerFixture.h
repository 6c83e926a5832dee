// Databases behind ODBC for tests: the test program's own servers, and an SQLite file.
#pragma once

#include "tests/databases/DatabaseFixture.h"

namespace kvex::test {

[[nodiscard]] DatabaseKind postgreSqlServer();
[[nodiscard]] DatabaseKind mariaDbServer();
/// Each user is on another node.
[[nodiscard]] DatabaseKind galeraCluster();
[[nodiscard]] DatabaseKind odbcSqlite();

} // namespace kvex::test
