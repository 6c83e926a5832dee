// A PostgreSQL server for tests.
#pragma once

#include "tests/servers/DatabaseServer.h"

#include <ios>

namespace kvex::test {

class PostgreSqlServer final : public DatabaseServer {
public:
    /// The server runs, without databases, when this returns.
    PostgreSqlServer();

    /// The test program's only server of this kind; the first call starts it.
    [[nodiscard]] static PostgreSqlServer &shared();

    void createDatabase(const std::string &name) override;
    /// Ends all connections to the database first.
    void dropDatabase(const std::string &name) override;
    void createUser(const std::string &name, const std::string &itsPassword) override;

    void listen(const std::string &database) override;
    [[nodiscard]] std::vector<Asked> heard() override;

private:
    [[nodiscard]] std::vector<std::string> command() const override;
    [[nodiscard]] std::unique_ptr<ServerClient> connect(const std::string &database) const override;

    /// How many bytes of the log were read.
    std::streamoff heard_ = 0;
};

} // namespace kvex::test
