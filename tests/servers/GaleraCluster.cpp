#include "tests/servers/GaleraCluster.h"

#include "tests/servers/FreePort.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace kvex::test {
namespace {

/// A node's ports besides the one for clients. A joining node receives missing writes at `writes`,
/// or a copy of all data at `state`.
struct NodePorts {
    std::uint16_t group = freePort();
    std::uint16_t writes = freePort();
    std::uint16_t state = freePort();
};
using ClusterPorts = std::array<NodePorts, GaleraCluster::size>;

std::vector<std::string> arguments(const ClusterPorts &ports, const NodePorts &own) {
    std::string members;
    for (const NodePorts &node : ports) {
        members.append(members.empty() ? "gcomm://" : ",")
            .append("127.0.0.1:" + std::to_string(node.group));
    }
    return {"--wsrep-on=ON",
            std::string("--wsrep-provider=") + KVEX_GALERA,
            "--wsrep-cluster-address=" + members,
            "--wsrep-node-address=127.0.0.1:" + std::to_string(own.group),
            "--wsrep-provider-options=gcache.size=8M;gmcast.listen_addr=tcp://127.0.0.1:" +
                std::to_string(own.group) +
                ";ist.recv_addr=127.0.0.1:" + std::to_string(own.writes) +
                ";evs.keepalive_period=PT0.5S;evs.suspect_timeout=PT2S;evs.inactive_timeout=PT6S",
            "--wsrep-sst-method=rsync",
            "--wsrep-sst-receive-address=127.0.0.1:" + std::to_string(own.state),
            "--binlog-format=ROW",
            "--innodb-autoinc-lock-mode=2"};
}

template <class State> void waitUntil(const State &reached) {
    constexpr std::chrono::milliseconds pause{20};
    constexpr int attempts = 6000;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (reached()) {
            return;
        }
        std::this_thread::sleep_for(pause);
    }
    throw std::runtime_error("the nodes of the cluster did not become synced");
}

constexpr std::string_view clusterState =
    "SELECT GROUP_CONCAT(VARIABLE_VALUE ORDER BY VARIABLE_NAME SEPARATOR '|') "
    "FROM information_schema.GLOBAL_STATUS WHERE VARIABLE_NAME IN "
    "('WSREP_CLUSTER_SIZE', 'WSREP_LOCAL_STATE_COMMENT', 'WSREP_READY')";

} // namespace

GaleraCluster::GaleraCluster() {
    const ClusterPorts ports;
    std::vector<std::string> founder = arguments(ports, ports[0]);
    founder.emplace_back("--wsrep-new-cluster");
    nodes_[0] = std::make_unique<MariaDbServer>();
    nodes_[0]->stop();
    nodes_[0]->setFurtherArguments(founder);
    // The other nodes start as copies of this first one, so they lack only later writes.
    nodes_[0]->start();
    waitUntilSynced(1);
    nodes_[0]->stop();
    for (std::size_t index = 1; index < size; ++index) {
        nodes_.at(index) =
            MariaDbServer::copyOf(*nodes_[0], "127.0.0." + std::to_string(index + 1));
        nodes_.at(index)->setFurtherArguments(arguments(ports, ports.at(index)));
    }
    for (std::size_t index = 0; index < size; ++index) {
        nodes_.at(index)->start();
        waitUntilSynced(index + 1);
    }
    nodes_[0]->setFurtherArguments(arguments(ports, ports[0]));
}

GaleraCluster &GaleraCluster::shared() {
    static GaleraCluster cluster;
    return cluster;
}

void GaleraCluster::waitUntilSynced(std::size_t nodes) {
    const std::string wanted = std::to_string(nodes) + "|Synced|ON";
    waitUntil([&] {
        return std::ranges::all_of(nodes_, [&](const auto &node) {
            return !node || node->pid() == 0 || node->valueOf("mysql", clusterState) == wanted;
        });
    });
}

void GaleraCluster::isolate(std::size_t index) {
    node(index).run("mysql", "SET GLOBAL wsrep_provider_options = 'gmcast.isolate=1'");
    waitUntil([&] { return node(index).valueOf("mysql", clusterState).ends_with("|OFF"); });
}

void GaleraCluster::rejoin(std::size_t index) {
    node(index).run("mysql", "SET GLOBAL wsrep_provider_options = 'gmcast.isolate=0'");
    waitUntilSynced();
}

void GaleraCluster::killNode(std::size_t index) {
    node(index).kill();
    std::size_t left = 0;
    for (const auto &node : nodes_) {
        left += node->pid() != 0 ? 1 : 0;
    }
    waitUntilSynced(left);
}

} // namespace kvex::test
