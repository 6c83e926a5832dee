// A database server that goes away in one of several ways, and comes back.
#pragma once

#include "tests/databases/DatabaseFixture.h"
#include "tests/servers/DatabaseServer.h"
#include "tests/servers/TcpRelay.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kvex::test {

/// As a connection string names a server.
[[nodiscard]] std::u16string addressOf(std::uint16_t port);

/// One of a test program's servers, with a relay before it.
struct ServerUnderTest {
    DatabaseServer &server;
    TcpRelay relay{server.port()};
};

struct ServerKindUnderTest {
    DatabaseKind database;
    DatabaseServer &(*server)();
    /// A database that is always there, and how many statements wait for a lock.
    std::string ownDatabase;
    std::string waitingQuery;
};

/// PostgreSQL and MariaDB.
[[nodiscard]] std::vector<ServerKindUnderTest> serversUnderTest();

struct WayToGo {
    std::string name;
    /// Only who comes through the relay loses the server.
    bool relayed;
    void (*go)(ServerUnderTest &);
    void (*comeBack)(ServerUnderTest &);
};

/// Stopped, killed, the connection closed, the network dead.
[[nodiscard]] std::vector<WayToGo> waysToGo();

} // namespace kvex::test
