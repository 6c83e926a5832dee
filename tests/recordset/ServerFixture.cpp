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

class ServerFixture final : public DatabaseFixture {
public:
    ServerFixture(DatabaseServer &server, bool numbersBlindly,
                  std::map<Deviation, std::string> deviations)
        : server_(server), numbersBlindly_(numbersBlindly), deviations_(std::move(deviations)) {
        static int number = 0;
        name_ = "conformance" + std::to_string(++number);
        server_.createDatabase(name_);
        recordset::ClientConnection connection({odbc::provider()});
        static_cast<Connection &>(connection).open(connectionString());
        recordset::createSchema(connection);
    }

    ~ServerFixture() override { server_.dropDatabase(name_); }
    ServerFixture(const ServerFixture &) = delete;
    ServerFixture &operator=(const ServerFixture &) = delete;

    [[nodiscard]] recordset::Provider provider() const override { return odbc::provider(); }
    [[nodiscard]] std::u16string connectionString() const override {
        return fromUtf8(server_.odbcConnectionString(name_));
    }
    void run(std::u16string_view statement) override {
        server_.run(name_, toUtf8(statement) + afterRun(statement));
    }
    [[nodiscard]] std::u16string valueOf(std::u16string_view query) override {
        return fromUtf8(server_.valueOf(name_, toUtf8(query)));
    }
    [[nodiscard]] std::map<Deviation, std::string> deviations() const override {
        return deviations_;
    }

private:
    /// PostgreSQL numbers rows without regard to the numbers that others gave: a program that
    /// gives them itself moves the counter on.
    [[nodiscard]] std::string afterRun(std::u16string_view statement) const {
        if (!numbersBlindly_ || !statement.starts_with(u"INSERT INTO SMS_RULES ")) {
            return {};
        }
        return "; SELECT setval(pg_get_serial_sequence('sms_rules', 'id'), GREATEST("
               "nextval(pg_get_serial_sequence('sms_rules', 'id')), "
               "(SELECT MAX(id) FROM sms_rules)))";
    }

    DatabaseServer &server_;
    bool numbersBlindly_;
    std::map<Deviation, std::string> deviations_;
    std::string name_;
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

} // namespace

DatabaseKind postgreSqlServer() {
    return {"PostgreSql", []() -> std::unique_ptr<DatabaseFixture> {
                return std::make_unique<ServerFixture>(
                    PostgreSqlServer::shared(), true,
                    std::map<Deviation, std::string>{{Deviation::refusesNulCharacters,
                                                      "its texts hold every character but "
                                                      "NUL"}});
            }};
}

DatabaseKind mariaDbServer() {
    return {"MariaDb", []() -> std::unique_ptr<DatabaseFixture> {
                return std::make_unique<ServerFixture>(
                    MariaDbServer::shared(), false,
                    std::map<Deviation, std::string>{
                        {Deviation::refusesNulCharacters,
                         "its ODBC driver reads a text up to its first NUL character"}});
            }};
}

DatabaseKind odbcSqlite() {
    return {"OdbcSqlite", []() -> std::unique_ptr<DatabaseFixture> {
                return std::make_unique<OdbcSqliteFixture>();
            }};
}

} // namespace kvex::test
