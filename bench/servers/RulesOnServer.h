// A database on a server, with a rule set of a given size.
#pragma once

#include "tests/servers/DatabaseServer.h"

#include <cstddef>
#include <string>

namespace kvex::bench {

/// It also has the users, accounts, services and commands that the rules refer to, with ids from 1.
class RulesOnServer {
public:
    /// The database of this size on this server. The first call makes it.
    [[nodiscard]] static RulesOnServer &on(test::DatabaseServer &server, std::size_t rules);
    RulesOnServer(test::DatabaseServer &server, std::size_t rules);

    [[nodiscard]] std::u16string connectionString() const;
    void run(std::string_view statements) { server_.run(database_, statements); }
    [[nodiscard]] std::string valueOf(std::string_view query) {
        return server_.valueOf(database_, query);
    }

    // The parts of the connection string, for the server's own client.
    [[nodiscard]] std::uint16_t port() const { return server_.port(); }
    [[nodiscard]] const std::string &database() const { return database_; }
    [[nodiscard]] std::string user() const;
    [[nodiscard]] std::string password() const;

private:
    void addRules(std::size_t count);
    void addNamed(int count, const std::string &table, const std::string &columns = "",
                  const std::string &rest = "");

    test::DatabaseServer &server_;
    std::string database_;
};

} // namespace kvex::bench
