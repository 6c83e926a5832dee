// Editing passes its suite on every database through ODBC.
#include "tests/editors/Editors.h"
#include "tests/databases/ServerFixture.h"

namespace kvex::test {

INSTANTIATE_TEST_SUITE_P(Odbc, Editors,
                         testing::Values(odbcSqlite(), postgreSqlServer(), mariaDbServer(), galeraCluster()),
                         kindName);

} // namespace kvex::test
