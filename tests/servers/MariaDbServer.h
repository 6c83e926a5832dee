// A MariaDB server for tests.
#pragma once

#include "tests/servers/DatabaseServer.h"

namespace kvex::test {

class MariaDbServer final : public DatabaseServer {
public:
    /// The server runs, without databases, when this returns.
    MariaDbServer();
    /// Copies a stopped server with its databases, user and port number. The copy has another
    /// address of the loopback interface, and does not run yet.
    [[nodiscard]] static std::unique_ptr<MariaDbServer> copyOf(const MariaDbServer &original,
                                                               const std::string &address);

    /// The test program's only server of this kind; the first call starts it.
    [[nodiscard]] static MariaDbServer &shared();

    void createDatabase(const std::string &name) override;
    void dropDatabase(const std::string &name) override;
    void createUser(const std::string &name, const std::string &itsPassword) override;

    void listen(const std::string &database) override;
    [[nodiscard]] std::vector<Asked> heard() override;

    /// Arguments that later starts add to the usual ones.
    void setFurtherArguments(std::vector<std::string> arguments);

private:
    explicit MariaDbServer(const std::string &password);

    [[nodiscard]] std::vector<std::string> command() const override;
    [[nodiscard]] std::unique_ptr<ServerClient> connect(const std::string &database) const override;

    std::vector<std::string> furtherArguments_;
};

} // namespace kvex::test
