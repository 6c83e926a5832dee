#include "tests/servers/DatabaseServer.h"

#include "tests/servers/FreePort.h"

#include <random>
#include <stdexcept>

namespace kvex::test {
DatabaseServer::DatabaseServer(const Kind &kind, std::string password)
    : kind_(kind), password_(std::move(password)) {}

DatabaseServer::~DatabaseServer() {
    stop();
}

pid_t DatabaseServer::pid() const {
    return process_ ? process_->pid() : 0;
}

void DatabaseServer::start() {
    if (port_ != 0) {
        startOnPort();
        return;
    }
    // Another program may take the port before the server does.
    constexpr int attempts = 5;
    for (int attempt = 1;; ++attempt) {
        port_ = freePort();
        try {
            startOnPort();
            return;
        } catch (const std::runtime_error &) {
            if (attempt == attempts) {
                throw;
            }
        }
    }
}

void DatabaseServer::startOnPort() {
    process_.emplace(command(), folder_);
    try {
        awaitAnswer();
    } catch (const std::runtime_error &) {
        process_.reset();
        throw;
    }
}

void DatabaseServer::awaitAnswer() {
    // The wait ends when the server answers or exits. The limit only ends a hang.
    constexpr std::chrono::milliseconds pause{10};
    constexpr int attempts = 12000;
    std::string why;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        try {
            clients_[ownDatabase()] = connect(ownDatabase());
            return;
        } catch (const std::runtime_error &error) {
            why = error.what();
        }
        if (process_->awaitEnd(pause)) {
            throw std::runtime_error("the server ended at once: " + endOfLog(folder_));
        }
    }
    throw std::runtime_error("the server accepts no connections: " + why + endOfLog(folder_));
}

void DatabaseServer::stop() {
    clients_.clear();
    if (process_) {
        process_->end(kind_.stopSignal);
        process_.reset();
    }
}

void DatabaseServer::kill() {
    process_.reset();
    clients_.clear();
}

void DatabaseServer::freeze() {
    process_.value().freeze();
}

void DatabaseServer::thaw() {
    process_.value().thaw();
}

void DatabaseServer::run(const std::string &database, std::string_view statements) {
    static_cast<void>(client(database).rows(statements));
}

std::vector<std::string> DatabaseServer::rows(const std::string &database, std::string_view query) {
    return client(database).rows(query);
}

std::string DatabaseServer::valueOf(const std::string &database, std::string_view query) {
    const auto found = rows(database, query);
    return found.empty() ? "NONE" : found.front();
}

std::string DatabaseServer::odbcConnectionString(const std::string &database) const {
    return odbcConnectionString(database, port_);
}

std::string DatabaseServer::odbcConnectionString(const std::string &database,
                                                 std::uint16_t relayPort) const {
    return odbcConnectionString(database, relayPort, user, password_);
}

std::string DatabaseServer::odbcConnectionString(const std::string &database,
                                                 const std::string &name,
                                                 const std::string &itsPassword) const {
    return odbcConnectionString(database, port_, name, itsPassword);
}

std::string DatabaseServer::odbcConnectionString(const std::string &database, std::uint16_t port,
                                                 const std::string &name,
                                                 const std::string &itsPassword) const {
    return std::string("Driver={") + kind_.odbcDriver + "};Server=" + address_ +
           ";Port=" + std::to_string(port) + ";Database=" + database + ";UID=" + name +
           ";PWD=" + itsPassword;
}

void DatabaseServer::listenAt(const std::string &address, std::uint16_t port) {
    address_ = address;
    port_ = port;
}

void DatabaseServer::disconnect(const std::string &database) {
    clients_.erase(database);
}

ServerClient &DatabaseServer::client(const std::string &database) {
    auto &client = clients_[database];
    if (!client) {
        client = connect(database);
    }
    return *client;
}

std::string DatabaseServer::randomPassword() {
    constexpr std::string_view characters = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::random_device random;
    std::uniform_int_distribution<std::size_t> positions(0, characters.size() - 1);
    std::string password;
    while (password.size() < 24) {
        password += characters[positions(random)];
    }
    return password;
}

} // namespace kvex::test
