// The servers that a connection string names, for a session to take the first that can be used.
#pragma once

#include "adapters/recordset/ConnectionString.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kvex::odbc {

struct ServerAddress {
    std::u16string host;
    /// "" for the one that the string says for all.
    std::u16string port;
    friend bool operator==(const ServerAddress &, const ServerAddress &) = default;
};

/// How many servers PostgreSQL's, MariaDB's and MySQL's drivers are given; 1 for any other.
[[nodiscard]] std::size_t serverCount(const recordset::ConnectionString &text);

/// Those of "Server=HOST,HOST:PORT,[IPV6]:PORT" that are to be tried one after the other. None
/// where a single one is named, or the driver goes through the list itself.
[[nodiscard]] std::vector<ServerAddress> serversToTry(const recordset::ConnectionString &text);

} // namespace kvex::odbc
