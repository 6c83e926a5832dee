// Databases of many rules on a server, and how to log in to it.
#pragma once

#include "tests/servers/DatabaseServer.h"

#include <cstdint>
#include <string>

namespace kvex::bench {

struct Login {
    std::string port;
    std::string user;
    std::string password;
};
[[nodiscard]] Login loginOf(const test::DatabaseServer &server, const std::string &database);

/// The name of a database with so many rules, and users, accounts and services as a server has
/// them. Made when it is first asked for.
[[nodiscard]] const std::string &rulesOn(test::DatabaseServer &server, std::int64_t count);

} // namespace kvex::bench
