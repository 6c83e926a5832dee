// Editing passes its suite on SQLite, in a file and in memory.
#include "tests/editors/Editors.h"
#include "tests/recordset/SqliteFixture.h"

namespace kvex::test {

INSTANTIATE_TEST_SUITE_P(Databases, Editors, testing::Values(sqliteFile(), sqliteMemory()),
                         [](const auto &kind) { return kind.param.name; });

} // namespace kvex::test
