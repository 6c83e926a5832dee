// The servers that are measured, and the C client of each. The client sends the statements that a
// session sends.
#pragma once

#include "bench/servers/RulesOnServer.h"
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace kvex::bench {

/// One connection. Each call throws a std::runtime_error when it fails.
class Client {
public:
    virtual ~Client() = default;

    /// Runs a query and reads each value. Returns the number of values.
    virtual std::size_t read(std::string_view query) = 0;
    /// Changes PRIORITY from ID + `shift` to ID in the rules from id 1 to `lastId`. It prepares one
    /// statement and runs it for each rule, all in one transaction. Returns the number of rows
    /// found.
    virtual std::int64_t renumber(std::int64_t lastId, std::int64_t shift) = 0;
};

[[nodiscard]] std::unique_ptr<Client> postgreSqlClient(const RulesOnServer &rules);
[[nodiscard]] std::unique_ptr<Client> mariaDbClient(const RulesOnServer &rules);

struct PostgreSql {
    static RulesOnServer &rules(std::size_t count) {
        return RulesOnServer::on(test::PostgreSqlServer::shared(), count);
    }
    static constexpr auto connect = &postgreSqlClient;
    /// Removes the dead rows that many updates leave in the table.
    static constexpr auto tidy = "VACUUM FULL SMS_RULES";
};

struct MariaDb {
    static RulesOnServer &rules(std::size_t count) {
        return RulesOnServer::on(test::MariaDbServer::shared(), count);
    }
    static constexpr auto connect = &mariaDbClient;
    static constexpr auto tidy = "ANALYZE TABLE SMS_RULES";
};

} // namespace kvex::bench
