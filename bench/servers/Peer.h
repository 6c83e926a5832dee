// What a session asks a server, sent by the database's own C client.
#pragma once

#include "tests/servers/DatabaseServer.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kvex::bench {

/// One connection. Whatever fails raises std::runtime_error.
class Peer {
public:
    virtual ~Peer() = default;

    /// Runs a query and looks at the length of each value; their sum.
    virtual std::size_t read(const std::string &query) = 0;
    /// For each row, in a transaction of its own: PRIORITY becomes `to` where it was `from`.
    /// One statement, prepared once. How many rows it found.
    struct Renumbering {
        std::int64_t id;
        std::int64_t to;
        std::int64_t from;
    };
    virtual std::size_t renumber(const std::vector<Renumbering> &rows) = 0;
};

[[nodiscard]] std::unique_ptr<Peer> postgreSqlPeer(const test::DatabaseServer &server,
                                                   const std::string &database);
[[nodiscard]] std::unique_ptr<Peer> mariaDbPeer(const test::DatabaseServer &server,
                                                const std::string &database);

} // namespace kvex::bench
