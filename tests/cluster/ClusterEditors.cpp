// Editing passes its suite with two users on different nodes of a cluster.
#include "tests/cluster/ClusterFixture.h"
#include "tests/editors/Editors.h"

namespace kvex::test {

INSTANTIATE_TEST_SUITE_P(Cluster, Editors, testing::Values(galeraCluster()),
                         [](const auto &kind) { return kind.param.name; });

} // namespace kvex::test
