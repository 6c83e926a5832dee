// Another program's connection to a database, through the server's own client library.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvex::test {

class ServerClient {
public:
    virtual ~ServerClient() = default;

    /// Runs statements, with ";" between them, and returns the rows of the last query. A row has
    /// "|" between columns and "NULL" for Null. Raises std::runtime_error with the server's words.
    virtual std::vector<std::string> rows(std::string_view statements) = 0;
};

} // namespace kvex::test
