// Another program's connection to one database of a server, through the server's own client.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvex::test {

class ServerClient {
public:
    virtual ~ServerClient() = default;

    /// Runs statements, separated by ";". The rows of the last query among them, columns joined
    /// by "|", Null as "NULL". Raises std::runtime_error with the server's words.
    virtual std::vector<std::string> rows(std::string_view statements) = 0;
};

} // namespace kvex::test
