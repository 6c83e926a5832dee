// Every database through ODBC passes the conformance suite.
#include "tests/recordset/RecordsetConformance.h"
#include "tests/recordset/ServerFixture.h"

namespace kvex::test {

INSTANTIATE_TEST_SUITE_P(Odbc, RecordsetConformance,
                         testing::Values(odbcSqlite(), postgreSqlServer(), mariaDbServer()),
                         [](const auto &kind) { return kind.param.name; });

} // namespace kvex::test
