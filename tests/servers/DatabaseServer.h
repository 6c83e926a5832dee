// A database server of a test program's own, on the loopback interface.
#pragma once

#include "tests/servers/ServerClient.h"
#include "tests/servers/ServerFolder.h"
#include "tests/servers/ServerProcess.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::test {

/// A statement as a server met it. One that is run with values is prepared first, and executed
/// any number of times.
struct Asked {
    enum class How { prepared, executed };
    How how;
    /// When it was executed, with its values or the marks for them.
    std::string text;
};

/// What every kind of server does. It has one user, all-powerful, with a password of its own.
/// Statements are UTF-8. Whatever fails raises std::runtime_error; none says the password.
class DatabaseServer {
public:
    virtual ~DatabaseServer();
    DatabaseServer(const DatabaseServer &) = delete;
    DatabaseServer &operator=(const DatabaseServer &) = delete;

    /// Of the loopback interface.
    [[nodiscard]] const std::string &address() const noexcept { return address_; }
    [[nodiscard]] std::uint16_t port() const noexcept { return port_; }
    /// 0 while it does not run.
    [[nodiscard]] pid_t pid() const;

    /// On the same data, and the same port but for the first time; it accepts connections when this
    /// returns.
    void start();
    /// As its administrator stops it.
    void stop();
    /// As a loss of power does, but for what the system has taken to write.
    void kill();
    /// It runs no more, and keeps its connections open.
    void freeze();
    void thaw();

    virtual void createDatabase(const std::string &name) = 0;
    virtual void dropDatabase(const std::string &name) = 0;
    void run(const std::string &database, std::string_view statements);
    /// See ServerClient::rows.
    [[nodiscard]] std::vector<std::string> rows(const std::string &database,
                                                std::string_view query);
    /// The first row, "NONE" without one.
    [[nodiscard]] std::string valueOf(const std::string &database, std::string_view query);

    /// From now on it writes down what is asked on connections to the database that are made later,
    /// those of run and rows left out.
    virtual void listen(const std::string &database) = 0;
    /// What it has written down since the last time, of all databases that it listens to.
    [[nodiscard]] virtual std::vector<Asked> heard() = 0;

    /// For the server itself, or for the relay of another port before it.
    [[nodiscard]] std::string odbcConnectionString(const std::string &database) const;
    [[nodiscard]] std::string odbcConnectionString(const std::string &database,
                                                   std::uint16_t relayPort) const;

protected:
    /// What differs from one kind to the other.
    struct Kind {
        const char *odbcDriver;
        /// The database that is always there.
        const char *ownDatabase;
        /// Stops it without waiting for those who are connected.
        int stopSignal;
    };
    explicit DatabaseServer(const Kind &kind, std::string password = randomPassword());

    [[nodiscard]] static std::string randomPassword();
    /// The program with its arguments.
    [[nodiscard]] virtual std::vector<std::string> command() const = 0;
    /// Raises std::runtime_error while the server accepts no connection.
    [[nodiscard]] virtual std::unique_ptr<ServerClient>
    connect(const std::string &database) const = 0;

    [[nodiscard]] const ServerFolder &folder() const noexcept { return folder_; }
    [[nodiscard]] const std::string &password() const noexcept { return password_; }
    [[nodiscard]] std::string ownDatabase() const { return kind_.ownDatabase; }
    /// Where it listens from its first start on, in place of 127.0.0.1 and a port of its choice.
    void listenAt(const std::string &address, std::uint16_t port);
    /// Closes the connection that run and rows keep open to a database.
    void disconnect(const std::string &database);

    static constexpr const char *user = "kvex";

private:
    ServerClient &client(const std::string &database);
    void startOnPort();
    void awaitAnswer();

    Kind kind_;
    ServerFolder folder_;
    std::string password_;
    std::string address_ = "127.0.0.1";
    std::uint16_t port_ = 0;
    std::optional<ServerProcess> process_;
    std::map<std::string, std::unique_ptr<ServerClient>> clients_;
};

} // namespace kvex::test
