// Runs the suite of editing with two users on different nodes of a cluster.
#include "tests/databases/ServerFixture.h"
#include "tests/editors/Editors.h"

namespace kvex::test {

INSTANTIATE_TEST_SUITE_P(Cluster, Editors, testing::Values(galeraCluster()), kindName);

} // namespace kvex::test
