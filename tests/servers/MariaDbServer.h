// A MariaDB server for tests.
#pragma once

#include "tests/servers/DatabaseServer.h"

namespace kvex::test {

class MariaDbServer final : public DatabaseServer {
public:
    /// Runs, with an empty set of databases, when this returns.
    MariaDbServer();
    /// The one server of a test program, started when it is first asked for.
    [[nodiscard]] static MariaDbServer &shared();

    void createDatabase(const std::string &name) override;
    void dropDatabase(const std::string &name) override;

    /// What its next start gets besides its own arguments.
    void setFurtherArguments(std::vector<std::string> arguments);

private:
    [[nodiscard]] std::vector<std::string> command() const override;
    [[nodiscard]] std::unique_ptr<ServerClient> connect(const std::string &database) const override;

    std::vector<std::string> furtherArguments_;
};

} // namespace kvex::test
