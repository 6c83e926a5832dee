// The kinds of servers that are measured.
#pragma once

#include "bench/servers/Client.h"
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"

namespace kvex::bench {

struct PostgreSql {
    static RulesOnServer &rules(std::size_t count) {
        return RulesOnServer::on(test::PostgreSqlServer::shared(), count);
    }
    static constexpr auto connect = &postgreSqlClient;
    /// Takes away what many updates leave in the table.
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
