// SQLite passes the conformance suite in a file and in memory.
#include "tests/recordset/RecordsetConformance.h"
#include "tests/databases/SqliteFixture.h"

namespace kvex::test {

INSTANTIATE_TEST_SUITE_P(Databases, RecordsetConformance,
                         testing::Values(sqliteFile(), sqliteMemory()),
                         kindName);

} // namespace kvex::test
