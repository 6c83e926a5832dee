// SQLite passes the conformance suite in a file and in memory.
#include "tests/databases/SqliteFixture.h"
#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {

INSTANTIATE_TEST_SUITE_P(Databases, RecordsetConformance,
                         testing::Values(sqliteFile(), sqliteMemory()), kindName);

} // namespace kvex::test
