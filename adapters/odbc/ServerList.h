// The servers that a connection string names, for a session to take the first that can be used.
#pragma once

#include "adapters/recordset/ConnectionString.h"

#include <string>
#include <vector>

namespace kvex::odbc {

struct ServerAddress {
    std::u16string host;
    /// "" for the one that the string says for all.
    std::u16string port;
    friend bool operator==(const ServerAddress &, const ServerAddress &) = default;
};

/// Those of "Server=HOST,HOST:PORT,[IPV6]:PORT" for PostgreSQL, MariaDB and MySQL. None where a
/// single one is named as drivers know it, or comma and colon are the driver's own.
[[nodiscard]] std::vector<ServerAddress> serversToTry(const recordset::ConnectionString &text);

} // namespace kvex::odbc
