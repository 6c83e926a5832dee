// Runs the suite of editing on every database behind ODBC.
#include "tests/databases/ServerFixture.h"
#include "tests/editors/Editors.h"

namespace kvex::test {

INSTANTIATE_TEST_SUITE_P(Odbc, Editors,
                         testing::Values(odbcSqlite(), postgreSqlServer(), mariaDbServer()),
                         kindName);

} // namespace kvex::test
