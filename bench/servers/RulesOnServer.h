// A database of a rule set of a given size on a server.
#pragma once

#include "tests/servers/DatabaseServer.h"

#include <cstddef>
#include <string>

namespace kvex::bench {

/// With the users, accounts, services and commands that the rules name; their ids count from 1.
class RulesOnServer {
public:
    /// One of each size on each server, made when it is first wanted.
    [[nodiscard]] static RulesOnServer &on(test::DatabaseServer &server, std::size_t rules);
    RulesOnServer(test::DatabaseServer &server, std::size_t rules);

    [[nodiscard]] std::u16string connectionString() const;
    void run(std::string_view statements) { server_.run(database_, statements); }
    [[nodiscard]] std::string valueOf(std::string_view query) {
        return server_.valueOf(database_, query);
    }

    /// What a client of another kind needs.
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
