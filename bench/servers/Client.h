// A database's own C client, which is sent the statements that a session sends.
#pragma once

#include "bench/servers/RulesOnServer.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace kvex::bench {

/// One connection. Whatever fails raises std::runtime_error.
class Client {
public:
    virtual ~Client() = default;

    /// Runs a query and reads each value. How many there were.
    virtual std::size_t read(std::string_view query) = 0;
    /// The rules of these ids, from 1 on, get the number that their id is, and had another one
    /// before: that plus `shift`. One prepared statement, run for each, and each a transaction.
    /// How many rows were found.
    virtual std::int64_t renumber(std::int64_t lastId, std::int64_t shift) = 0;
};

[[nodiscard]] std::unique_ptr<Client> postgreSqlClient(const RulesOnServer &rules);
[[nodiscard]] std::unique_ptr<Client> mariaDbClient(const RulesOnServer &rules);

} // namespace kvex::bench
