// Rules are saved, activated, removed and re-ordered on every database through ODBC.
#include "tests/databases/ServerFixture.h"
#include "tests/windows/RuleScenarios.h"

namespace kvex::test {
namespace {

const auto kinds =
    testing::Values(odbcSqlite(), postgreSqlServer(), mariaDbServer(), galeraCluster());

} // namespace

INSTANTIATE_TEST_SUITE_P(, RuleSaving, kinds, kindName);
INSTANTIATE_TEST_SUITE_P(, RulesWindow, kinds, kindName);

} // namespace kvex::test
