// A MariaDB server for tests.
#pragma once

#include "tests/servers/DatabaseServer.h"

namespace kvex::test {

class MariaDbServer final : public DatabaseServer {
public:
    /// Runs, with an empty set of databases, when this returns.
    MariaDbServer();
    /// A further server with the databases, the user and the port of one that is stopped, at
    /// another address of the loopback interface; it does not run yet.
    [[nodiscard]] static std::unique_ptr<MariaDbServer> copyOf(const MariaDbServer &original,
                                                               const std::string &address);

    /// The one server of a test program, started when it is first asked for.
    [[nodiscard]] static MariaDbServer &shared();

    void createDatabase(const std::string &name) override;
    void dropDatabase(const std::string &name) override;

    void listen(const std::string &database) override;
    [[nodiscard]] std::vector<Asked> heard() override;

    /// What its starts from now on get besides its own arguments.
    void setFurtherArguments(std::vector<std::string> arguments);

private:
    explicit MariaDbServer(const std::string &password);

    [[nodiscard]] std::vector<std::string> command() const override;
    [[nodiscard]] std::unique_ptr<ServerClient> connect(const std::string &database) const override;

    std::vector<std::string> furtherArguments_;
};

} // namespace kvex::test
