// Runs the suite of editing on SQLite, in a file and in memory.
#include "tests/databases/SqliteFixture.h"
#include "tests/editors/Editors.h"

namespace kvex::test {

INSTANTIATE_TEST_SUITE_P(Databases, Editors, testing::Values(sqliteFile(), sqliteMemory()),
                         kindName);

} // namespace kvex::test
