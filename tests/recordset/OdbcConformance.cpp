// Every database through ODBC passes the conformance suite.
#include "tests/databases/ServerFixture.h"
#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {

namespace {

/// PostgreSQL does not count ids that a statement sets, as those of the suite do. Its own ids must
/// begin above them.
std::unique_ptr<DatabaseFixture> makePostgreSql() {
    auto made = postgreSqlServer().make();
    made->run(u"ALTER TABLE SMS_RULES ALTER COLUMN ID RESTART WITH 1000");
    return made;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Odbc, RecordsetConformance,
                         testing::Values(odbcSqlite(), DatabaseKind{"PostgreSql", &makePostgreSql},
                                         mariaDbServer(), galeraCluster()),
                         kindName);

} // namespace kvex::test
