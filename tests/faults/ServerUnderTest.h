// A database server that goes away in one of several ways, and comes back.
#pragma once

#include "tests/databases/DatabaseFixture.h"
#include "tests/servers/DatabaseServer.h"
#include "tests/servers/TcpRelay.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kvex::test {

/// A local server's address, as a connection string has it.
[[nodiscard]] std::u16string addressOf(std::uint16_t port);

/// One of the test program's servers, with a relay in front of it.
struct ServerUnderTest {
    DatabaseServer &server;
    TcpRelay relay{server.port()};
};

struct ServerKindUnderTest {
    DatabaseKind database;
    DatabaseServer &(*server)();
    /// A database that always exists, and a query that counts the statements waiting for a lock.
    std::string ownDatabase;
    std::string waitingQuery;
    /// A query that counts the transactions that have written.
    std::string transactionsQuery;
};

/// PostgreSQL and MariaDB.
[[nodiscard]] std::vector<ServerKindUnderTest> serversUnderTest();

struct WayToGo {
    std::string name;
    /// True when only the clients of the relay lose the server.
    bool relayed;
    void (*go)(ServerUnderTest &);
    void (*comeBack)(ServerUnderTest &);
};

/// The server is stopped or killed, its connections are closed, or the network is cut.
[[nodiscard]] std::vector<WayToGo> waysToGo();

} // namespace kvex::test
