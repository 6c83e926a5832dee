// A Galera cluster of three MariaDB servers for tests.
#pragma once

#include "tests/servers/MariaDbServer.h"

#include <array>
#include <memory>

namespace kvex::test {

class GaleraCluster {
public:
    static constexpr std::size_t size = 3;

    /// All nodes run and are synced when this returns. They listen on one port, at addresses of
    /// their own.
    GaleraCluster();

    /// The one cluster of a test program, started when it is first asked for.
    [[nodiscard]] static GaleraCluster &shared();

    [[nodiscard]] MariaDbServer &node(std::size_t index) { return *nodes_.at(index); }

    /// Waits until so many nodes make the cluster and the running ones are synced. With a limit
    /// that only ends a hang, by a std::runtime_error.
    void waitUntilSynced(std::size_t nodes = size);
    /// The node is gone as by a loss of power; the others go on when this returns.
    void killNode(std::size_t index);
    /// The node runs, but the others have lost sight of it: it knows when this returns.
    void isolate(std::size_t index);
    /// It is one of them again when this returns.
    void rejoin(std::size_t index);

private:
    std::array<std::unique_ptr<MariaDbServer>, size> nodes_;
};

} // namespace kvex::test
