// SQLite passes the conformance suite in a file and in memory.
#include "tests/recordset/RecordsetConformance.h"
#include "tests/recordset/SqliteFixture.h"

namespace kvex::test {

INSTANTIATE_TEST_SUITE_P(Databases, RecordsetConformance,
                         testing::Values(sqliteFile(), sqliteMemory()),
                         [](const auto &kind) { return kind.param.name; });

} // namespace kvex::test
