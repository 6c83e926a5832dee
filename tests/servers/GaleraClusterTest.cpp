// A cluster replicates, continues without a node, and leaves no process or file behind.
#include "tests/servers/GaleraCluster.h"

#include <gtest/gtest.h>

#include <csignal>

namespace kvex::test {
namespace {

TEST(GaleraCluster, ARowReachesEveryNodeAndTwoNodesGoOnUntilTheThirdIsBack) {
    GaleraCluster cluster;
    cluster.node(0).createDatabase("rules");
    cluster.node(0).run("rules", "CREATE TABLE t (id integer PRIMARY KEY, name varchar(50));"
                                 "INSERT INTO t VALUES (1, 'ग्राहक')");
    cluster.node(2).run("mysql", "SET SESSION wsrep_sync_wait = 1");
    EXPECT_EQ(cluster.node(2).valueOf("mysql", "SELECT name FROM rules.t"), "ग्राहक");

    const pid_t killed = cluster.node(0).pid();
    cluster.killNode(0);
    EXPECT_NE(::kill(killed, 0), 0);
    cluster.node(1).run("rules", "INSERT INTO t VALUES (2, 'after')");
    EXPECT_EQ(cluster.node(2).valueOf("mysql", "SELECT COUNT(*) FROM rules.t"), "2");

    cluster.node(0).start();
    cluster.waitUntilSynced();
    EXPECT_EQ(cluster.node(0).valueOf("rules", "SELECT COUNT(*) FROM t"), "2");
}

} // namespace
} // namespace kvex::test
