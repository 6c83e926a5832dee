#include "tests/recordset/ServerFixture.h"

#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/Schema.h"
#include "platform/Text.h"
#include "tests/recordset/SqliteFixture.h"
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"
#include "tests/support/SqliteSchema.h"

#include <utility>

namespace kvex::test {
namespace {

/// A database on a server; it is dropped with the object.
class ServerFixture : public DatabaseFixture {
public:
    ~ServerFixture() override { server_.dropDatabase(name_); }
    ServerFixture(const ServerFixture &) = delete;
    ServerFixture &operator=(const ServerFixture &) = delete;

    [[nodiscard]] recordset::Provider provider() const override { return odbc::provider(); }
    [[nodiscard]] std::u16string connectionString() const override {
        return connectionString(server_, name_);
    }
    void run(std::u16string_view statement) override { server_.run(name_, toUtf8(statement)); }
    [[nodiscard]] std::u16string valueOf(std::u16string_view query) override {
        return fromUtf8(server_.valueOf(name_, toUtf8(query)));
    }

protected:
    explicit ServerFixture(DatabaseServer &server) : server_(server) {
        static int number = 0;
        name_ = "conformance" + std::to_string(++number);
    }

    static void createTables(const DatabaseServer &server, const std::string &database) {
        recordset::ClientConnection connection({odbc::provider()});
        static_cast<Connection &>(connection).open(connectionString(server, database));
        recordset::createSchema(connection);
    }
    [[nodiscard]] const std::string &name() const { return name_; }

private:
    static std::u16string connectionString(const DatabaseServer &server,
                                           const std::string &database) {
        return fromUtf8(server.odbcConnectionString(database));
    }

    DatabaseServer &server_;
    std::string name_;
};

class PostgreSqlFixture final : public ServerFixture {
public:
    PostgreSqlFixture() : ServerFixture(PostgreSqlServer::shared()) {
        static const std::string original = originalOn(PostgreSqlServer::shared());
        PostgreSqlServer::shared().createDatabase(name(), original);
    }

    [[nodiscard]] std::map<Deviation, std::string> deviations() const override {
        return {{Deviation::refusesNulCharacters, "its texts hold every character but NUL"}};
    }

private:
    /// The database that the others are copies of: its tables are made once.
    static std::string originalOn(PostgreSqlServer &server) {
        std::string database = "original";
        server.createDatabase(database);
        createTables(server, database);
        // The numbers that it gives know nothing of those that a statement gives; they begin
        // above the suite's.
        server.run(database, "ALTER TABLE SMS_RULES ALTER COLUMN ID RESTART WITH 1000");
        return database;
    }
};

class MariaDbFixture final : public ServerFixture {
public:
    MariaDbFixture() : ServerFixture(MariaDbServer::shared()) {
        MariaDbServer::shared().createDatabase(name());
        createTables(MariaDbServer::shared(), name());
    }

    [[nodiscard]] std::map<Deviation, std::string> deviations() const override {
        return {{Deviation::refusesNulCharacters,
                 "its ODBC driver reads a text up to its first NUL character"}};
    }
};

class OdbcSqliteFixture final : public DatabaseFixture {
public:
    OdbcSqliteFixture() : file_(folder_.path() / "rules.db"), other_(file_) {
        createSqliteSchema(fromUtf8(file_));
    }

    [[nodiscard]] recordset::Provider provider() const override { return odbc::provider(); }
    [[nodiscard]] std::u16string connectionString() const override {
        return u"Driver={SQLite3};Database=" + fromUtf8(file_);
    }
    void run(std::u16string_view statement) override { other_.run(statement); }
    [[nodiscard]] std::u16string valueOf(std::u16string_view query) override {
        return other_.valueOf(query);
    }
    [[nodiscard]] std::map<Deviation, std::string> deviations() const override {
        return {{Deviation::refusesNulCharacters,
                 "its ODBC driver ends a text at its first NUL character"}};
    }

private:
    TemporaryFolder folder_;
    std::string file_;
    OtherProgram other_;
};

template <class Fixture> std::unique_ptr<DatabaseFixture> make() {
    return std::make_unique<Fixture>();
}

} // namespace

DatabaseKind postgreSqlServer() {
    return {"PostgreSql", &make<PostgreSqlFixture>};
}

DatabaseKind mariaDbServer() {
    return {"MariaDb", &make<MariaDbFixture>};
}

DatabaseKind odbcSqlite() {
    return {"OdbcSqlite", &make<OdbcSqliteFixture>};
}

} // namespace kvex::test
