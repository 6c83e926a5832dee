#include "tests/servers/MariaDbServer.h"

#include <mysql.h>

#include <csignal>
#include <stdexcept>

namespace kvex::test {
namespace {

class MariaDbClient final : public ServerClient {
public:
    MariaDbClient(const std::string &address, std::uint16_t port, const std::string &database,
                  const char *user, const std::string &password)
        : connection_(mysql_init(nullptr)) {
        constexpr unsigned int limit = 60;
        mysql_options(connection_.get(), MYSQL_OPT_CONNECT_TIMEOUT, &limit);
        mysql_options(connection_.get(), MYSQL_SET_CHARSET_NAME, "utf8mb4");
        mysql_options(connection_.get(), MYSQL_INIT_COMMAND, "SET sql_log_off = 1");
        if (!mysql_real_connect(connection_.get(), address.c_str(), user, password.c_str(),
                                database.c_str(), port, nullptr, CLIENT_MULTI_STATEMENTS)) {
            fail();
        }
    }

    std::vector<std::string> rows(std::string_view statements) override {
        if (mysql_real_query(connection_.get(), statements.data(), statements.size()) != 0) {
            fail();
        }
        std::vector<std::string> rows;
        int next = 0;
        while (next == 0) {
            if (const Result result{mysql_store_result(connection_.get())}) {
                rows = rowsOf(*result);
            }
            next = mysql_next_result(connection_.get());
        }
        if (next > 0) {
            fail();
        }
        return rows;
    }

private:
    struct Close {
        void operator()(MYSQL *connection) const noexcept { mysql_close(connection); }
    };
    struct Free {
        void operator()(MYSQL_RES *result) const noexcept { mysql_free_result(result); }
    };
    using Result = std::unique_ptr<MYSQL_RES, Free>;

    [[noreturn]] void fail() { throw std::runtime_error(mysql_error(connection_.get())); }

    static std::vector<std::string> rowsOf(MYSQL_RES &result) {
        std::vector<std::string> rows;
        while (MYSQL_ROW row = mysql_fetch_row(&result)) {
            const unsigned long *lengths = mysql_fetch_lengths(&result);
            std::string &text = rows.emplace_back();
            for (unsigned int column = 0; column < mysql_num_fields(&result); ++column) {
                text.append(column > 0 ? "|" : "");
                text.append(row[column] ? std::string_view(row[column], lengths[column]) : "NULL");
            }
        }
        return rows;
    }

    std::unique_ptr<MYSQL, Close> connection_;
};

// These settings are safe when only the server crashes: the system has each commit by then.
const std::vector<std::string> fastSettings{
    "--innodb-flush-method=nosync",
    "--innodb-flush-log-at-trx-commit=2",
    "--innodb-buffer-pool-size=16M",
    "--innodb-log-file-size=8M",
    "--innodb-buffer-pool-dump-at-shutdown=OFF",
    "--innodb-buffer-pool-load-at-startup=OFF",
    "--sync-frm=OFF",
    "--skip-name-resolve",
};

std::string quoted(const std::string &name) {
    return '`' + name + '`';
}

} // namespace

MariaDbServer::MariaDbServer(const std::string &password)
    : DatabaseServer({"MariaDB Unicode", "mysql", SIGTERM}, password) {}

MariaDbServer::MariaDbServer() : MariaDbServer(randomPassword()) {
    std::vector<std::string> installation{
        KVEX_MARIADB_INSTALL, "--no-defaults", "--datadir=" + (folder() / "data").string(),
        // A starting server deletes every temporary table in this folder, so each has its own.
        "--tmpdir=" + folder().path().string(), "--auth-root-authentication-method=normal",
        "--skip-test-db"};
    installation.insert(installation.end(), fastSettings.begin(), fastSettings.end());
    runToEnd(installation, folder());
    // The server runs this file before it accepts connections.
    const std::string identified = std::string("'") + user + "'@'%' IDENTIFIED BY '" + password();
    folder().write("users.sql", "DELETE FROM mysql.global_priv WHERE User IN ('', 'root');\n"
                                "FLUSH PRIVILEGES;\n"
                                "CREATE USER " +
                                    identified +
                                    "';\n"
                                    "GRANT ALL ON *.* TO '" +
                                    user + "'@'%' WITH GRANT OPTION;\n");
    setFurtherArguments({"--init-file=" + (folder() / "users.sql").string()});
    start();
    setFurtherArguments({});
    std::filesystem::remove(folder() / "users.sql");
}

std::unique_ptr<MariaDbServer> MariaDbServer::copyOf(const MariaDbServer &original,
                                                     const std::string &address) {
    std::unique_ptr<MariaDbServer> copy(new MariaDbServer(original.password()));
    copy->listenAt(address, original.port());
    std::filesystem::copy(original.folder() / "data", copy->folder() / "data",
                          std::filesystem::copy_options::recursive);
    copy->folder().handOver();
    return copy;
}

MariaDbServer &MariaDbServer::shared() {
    static MariaDbServer server;
    return server;
}

void MariaDbServer::setFurtherArguments(std::vector<std::string> arguments) {
    furtherArguments_ = std::move(arguments);
}

std::vector<std::string> MariaDbServer::command() const {
    std::vector<std::string> command{KVEX_MARIADBD,
                                     "--no-defaults",
                                     "--datadir=" + (folder() / "data").string(),
                                     "--tmpdir=" + folder().path().string(),
                                     "--socket=" + (folder() / "socket").string(),
                                     "--pid-file=" + (folder() / "pid").string(),
                                     "--bind-address=" + address(),
                                     "--port=" + std::to_string(port()),
                                     "--character-set-server=utf8mb4",
                                     "--skip-log-bin"};
    command.insert(command.end(), fastSettings.begin(), fastSettings.end());
    command.insert(command.end(), furtherArguments_.begin(), furtherArguments_.end());
    return command;
}

std::unique_ptr<ServerClient> MariaDbServer::connect(const std::string &database) const {
    return std::make_unique<MariaDbClient>(address(), port(), database, user, password());
}

void MariaDbServer::createDatabase(const std::string &name) {
    run(ownDatabase(), "CREATE DATABASE " + quoted(name));
}

void MariaDbServer::dropDatabase(const std::string &name) {
    disconnect(name);
    run(ownDatabase(), "DROP DATABASE " + quoted(name));
}

void MariaDbServer::createUser(const std::string &name, const std::string &itsPassword) {
    run(ownDatabase(),
        "CREATE OR REPLACE USER " + quoted(name) + "@'%' IDENTIFIED BY '" + itsPassword + "'");
}

void MariaDbServer::listen(const std::string & /*database*/) {
    // MariaDB logs all databases or none.
    run(ownDatabase(), "SET GLOBAL log_output = 'TABLE', GLOBAL general_log = 1");
    static_cast<void>(heard());
}

std::vector<Asked> MariaDbServer::heard() {
    std::vector<Asked> asked;
    for (const std::string &row :
         rows(ownDatabase(), "SELECT IF(command_type = 'Prepare', 'P', 'E'), argument FROM "
                             "general_log WHERE command_type IN ('Prepare', 'Execute', 'Query')")) {
        asked.push_back(
            {row.front() == 'P' ? Asked::How::prepared : Asked::How::executed, row.substr(2)});
    }
    run(ownDatabase(), "TRUNCATE general_log");
    return asked;
}

} // namespace kvex::test
