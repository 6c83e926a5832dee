// A Galera cluster of three MariaDB servers for tests.
#pragma once

#include "tests/servers/MariaDbServer.h"

#include <array>
#include <memory>

namespace kvex::test {

class GaleraCluster {
public:
    static constexpr std::size_t size = 3;

    /// All nodes run and are synced when this returns. They share a port number; each has its own
    /// address.
    GaleraCluster();

    /// The test program's only cluster; the first call starts it.
    [[nodiscard]] static GaleraCluster &shared();

    [[nodiscard]] MariaDbServer &node(std::size_t index) { return *nodes_.at(index); }

    /// Waits until the cluster has this many nodes, and every running node is synced. A hang ends
    /// with std::runtime_error.
    void waitUntilSynced(std::size_t nodes = size);
    /// Ends the node as a loss of power does. The others work again when this returns.
    void killNode(std::size_t index);
    /// Cuts the node off from the others. It still runs, and has noticed the cut when this returns.
    void isolate(std::size_t index);
    /// Connects the node again; it is part of the cluster when this returns.
    void rejoin(std::size_t index);

private:
    std::array<std::unique_ptr<MariaDbServer>, size> nodes_;
};

} // namespace kvex::test
