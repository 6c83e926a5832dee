// A test program's own database server, on the loopback interface.
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

/// A statement in a server's log. A statement with values is prepared once, and executed any number
/// of times.
struct Asked {
    enum class How { prepared, executed };
    How how;
    /// An executed statement shows its values, or the marks for them.
    std::string text;
};

/// What all kinds of servers have in common. A new server has one user, who has all rights and a
/// random password. Statements are UTF-8. Failures raise std::runtime_error, without the password.
class DatabaseServer {
public:
    virtual ~DatabaseServer();
    DatabaseServer(const DatabaseServer &) = delete;
    DatabaseServer &operator=(const DatabaseServer &) = delete;

    /// An address of the loopback interface.
    [[nodiscard]] const std::string &address() const noexcept { return address_; }
    [[nodiscard]] std::uint16_t port() const noexcept { return port_; }
    /// 0 while the server does not run.
    [[nodiscard]] pid_t pid() const;

    /// Keeps the data, and the port of the first start. The server accepts connections when this
    /// returns.
    void start();
    /// Stops the server as its administrator does.
    void stop();
    /// Ends the server as a loss of power does, except that the system still writes what it has
    /// accepted.
    void kill();
    /// Pauses the server. Its connections stay open.
    void freeze();
    void thaw();

    virtual void createDatabase(const std::string &name) = 0;
    virtual void dropDatabase(const std::string &name) = 0;
    /// Creates a user without rights. Replaces a user of that name who owns nothing.
    virtual void createUser(const std::string &name, const std::string &itsPassword) = 0;
    void run(const std::string &database, std::string_view statements);
    /// See ServerClient::rows.
    [[nodiscard]] std::vector<std::string> rows(const std::string &database,
                                                std::string_view query);
    /// The first row of a query; "NONE" when there is none.
    [[nodiscard]] std::string valueOf(const std::string &database, std::string_view query);

    /// Logs the statements of all later connections to the database, except those of run and rows.
    virtual void listen(const std::string &database) = 0;
    /// The statements logged since the last call, of all databases with a log.
    [[nodiscard]] virtual std::vector<Asked> heard() = 0;

    /// A connection string for the server, or for a relay in front of it.
    [[nodiscard]] std::string odbcConnectionString(const std::string &database) const;
    [[nodiscard]] std::string odbcConnectionString(const std::string &database,
                                                   std::uint16_t relayPort) const;
    /// A connection string for another user.
    [[nodiscard]] std::string odbcConnectionString(const std::string &database,
                                                   const std::string &name,
                                                   const std::string &itsPassword) const;

protected:
    /// How one kind of server differs from another.
    struct Kind {
        const char *odbcDriver;
        /// A database that always exists.
        const char *ownDatabase;
        /// Stops the server without waiting for its clients.
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
    /// Sets where the server listens, instead of 127.0.0.1 and a free port. Call before its start.
    void listenAt(const std::string &address, std::uint16_t port);
    /// Closes the connection to the database that run and rows keep open.
    void disconnect(const std::string &database);

    static constexpr const char *user = "kvex";

private:
    [[nodiscard]] std::string odbcConnectionString(const std::string &database, std::uint16_t port,
                                                   const std::string &name,
                                                   const std::string &itsPassword) const;
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
