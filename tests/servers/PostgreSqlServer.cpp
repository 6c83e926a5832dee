#include "tests/servers/PostgreSqlServer.h"

#include <libpq-fe.h>

#include <array>
#include <csignal>
#include <fstream>
#include <regex>
#include <stdexcept>

namespace kvex::test {
namespace {

class PostgreSqlClient final : public ServerClient {
public:
    explicit PostgreSqlClient(PGconn *connection) : connection_(connection) {
        if (PQstatus(connection) != CONNECTION_OK) {
            throw std::runtime_error(PQerrorMessage(connection));
        }
        // Notices would disturb the output of the tests.
        PQsetNoticeProcessor(
            connection, [](void *, const char *) {}, nullptr);
    }

    std::vector<std::string> rows(std::string_view statements) override {
        const std::unique_ptr<PGresult, Clear> result(
            PQexec(connection_.get(), std::string(statements).c_str()));
        switch (PQresultStatus(result.get())) {
        case PGRES_COMMAND_OK:
        case PGRES_EMPTY_QUERY:
            return {};
        case PGRES_TUPLES_OK:
            return rowsOf(*result);
        default:
            throw std::runtime_error(PQerrorMessage(connection_.get()));
        }
    }

private:
    struct Finish {
        void operator()(PGconn *connection) const noexcept { PQfinish(connection); }
    };
    struct Clear {
        void operator()(PGresult *result) const noexcept { PQclear(result); }
    };

    static std::vector<std::string> rowsOf(const PGresult &result) {
        std::vector<std::string> rows;
        for (int row = 0; row < PQntuples(&result); ++row) {
            std::string &text = rows.emplace_back();
            for (int column = 0; column < PQnfields(&result); ++column) {
                text.append(column > 0 ? "|" : "");
                text.append(PQgetisnull(&result, row, column) != 0
                                ? "NULL"
                                : PQgetvalue(&result, row, column));
            }
        }
        return rows;
    }

    std::unique_ptr<PGconn, Finish> connection_;
};

std::string program(const char *name) {
    return std::string(KVEX_POSTGRESQL_PROGRAMS "/") + name;
}

std::string quoted(const std::string &name) {
    return '"' + name + '"';
}

} // namespace

PostgreSqlServer::PostgreSqlServer() : DatabaseServer({"PostgreSQL Unicode", "postgres", SIGINT}) {
    folder().write("password", password());
    runToEnd({program("initdb"), "--pgdata", folder() / "data", "--username", user, "--pwfile",
              folder() / "password", "--auth", "scram-sha-256", "--encoding=UTF8",
              "--locale=C.UTF-8", "--no-sync", "--no-instructions"},
             folder());
    std::filesystem::remove(folder() / "password");
    start();
}

PostgreSqlServer &PostgreSqlServer::shared() {
    static PostgreSqlServer server;
    return server;
}

std::vector<std::string> PostgreSqlServer::command() const {
    // The server does without fsync, which matters only when the system crashes.
    return {program("postgres"),
            "-D",
            folder() / "data",
            "-p",
            std::to_string(port()),
            "-c",
            "listen_addresses=" + address(),
            "-c",
            "unix_socket_directories=",
            "-c",
            "fsync=off",
            "-c",
            "full_page_writes=off",
            "-c",
            "shared_buffers=8MB",
            "-c",
            "wal_level=minimal",
            "-c",
            "max_wal_senders=0",
            "-c",
            "max_connections=30",
            "-c",
            "shared_memory_type=mmap",
            "-c",
            "dynamic_shared_memory_type=mmap"};
}

std::unique_ptr<ServerClient> PostgreSqlServer::connect(const std::string &database) const {
    const std::string portText = std::to_string(port());
    const std::array<const char *, 9> keys{"host",    "port",     "dbname",
                                           "user",    "password", "connect_timeout",
                                           "sslmode", "options",  nullptr};
    const std::array<const char *, 9> values{"127.0.0.1",
                                             portText.c_str(),
                                             database.c_str(),
                                             user,
                                             password().c_str(),
                                             "60",
                                             "disable",
                                             "-c log_min_duration_statement=-1",
                                             nullptr};
    return std::make_unique<PostgreSqlClient>(PQconnectdbParams(keys.data(), values.data(), 0));
}

void PostgreSqlServer::createDatabase(const std::string &name) {
    // Copying files takes a fraction of the time that the write-ahead log takes.
    run(ownDatabase(),
        "CREATE DATABASE " + quoted(name) + " TEMPLATE template0 STRATEGY FILE_COPY");
}

void PostgreSqlServer::dropDatabase(const std::string &name) {
    disconnect(name);
    run(ownDatabase(), "DROP DATABASE " + quoted(name) + " WITH (FORCE)");
}

void PostgreSqlServer::createUser(const std::string &name, const std::string &itsPassword) {
    run(ownDatabase(), "DROP ROLE IF EXISTS " + quoted(name) + "; CREATE ROLE " + quoted(name) +
                           " LOGIN PASSWORD '" + itsPassword + "'");
}

void PostgreSqlServer::listen(const std::string &database) {
    run(ownDatabase(),
        "ALTER DATABASE " + quoted(database) + " SET log_min_duration_statement = 0");
    static_cast<void>(heard());
}

std::vector<Asked> PostgreSqlServer::heard() {
    static const std::regex line(
        "LOG:  duration: [0-9.]+ ms  (statement|parse|execute)( [^:]*)?: (.*)");
    std::ifstream log(folder() / "log");
    log.seekg(heard_);
    std::vector<Asked> asked;
    std::smatch found;
    for (std::string text; std::getline(log, text);) {
        heard_ += static_cast<std::streamoff>(text.size()) + 1;
        if (std::regex_search(text, found, line)) {
            asked.push_back(
                {found[1] == "parse" ? Asked::How::prepared : Asked::How::executed, found[3]});
        }
    }
    return asked;
}

} // namespace kvex::test
