// Rules are saved, activated, removed and re-ordered on SQLite.
#include "tests/databases/SqliteFixture.h"
#include "tests/windows/RuleScenarios.h"

namespace kvex::test {
namespace {

const auto kinds = testing::Values(sqliteMemory());

} // namespace

INSTANTIATE_TEST_SUITE_P(, RuleSaving, kinds, kindName);
INSTANTIATE_TEST_SUITE_P(, RulesWindow, kinds, kindName);

} // namespace kvex::test
