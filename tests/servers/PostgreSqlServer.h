// A PostgreSQL server for tests.
#pragma once

#include "tests/servers/DatabaseServer.h"

#include <ios>

namespace kvex::test {

class PostgreSqlServer final : public DatabaseServer {
public:
    /// Runs, with an empty set of databases, when this returns.
    PostgreSqlServer();

    /// The one server of a test program, started when it is first asked for.
    [[nodiscard]] static PostgreSqlServer &shared();

    void createDatabase(const std::string &name) override;
    /// A copy of another database, which nobody may be connected to.
    void createDatabase(const std::string &name, const std::string &original);
    /// Whoever is connected to it is thrown out.
    void dropDatabase(const std::string &name) override;

    void listen(const std::string &database) override;
    [[nodiscard]] std::vector<Asked> heard() override;

private:
    [[nodiscard]] std::vector<std::string> command() const override;
    [[nodiscard]] std::unique_ptr<ServerClient> connect(const std::string &database) const override;

    /// Of the log, in bytes.
    std::streamoff heard_ = 0;
};

} // namespace kvex::test
