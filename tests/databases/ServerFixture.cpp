#include "tests/databases/ServerFixture.h"

#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "host/suite/Schema.h"
#include "platform/Text.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/servers/GaleraCluster.h"
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"

#include <set>

namespace kvex::test {
namespace {

/// The one test database of a server, for one test at a time. It is created once and emptied for
/// each test, which takes a tenth of the time.
class ServerFixture : public DatabaseFixture {
public:
    [[nodiscard]] recordset::Provider provider() const override { return odbc::provider(); }
    [[nodiscard]] std::u16string connectionString() const override {
        return connectionStringOf(server_);
    }
    void run(std::u16string_view statement) override { server_.run(name, toUtf8(statement)); }
    [[nodiscard]] std::vector<std::u16string> rows(std::u16string_view query) override {
        std::vector<std::u16string> found;
        for (const std::string &row : server_.rows(name, toUtf8(query))) {
            found.push_back(fromUtf8(row));
        }
        return found;
    }

protected:
    explicit ServerFixture(DatabaseServer &server) : server_(server) {
        static std::set<DatabaseServer *> prepared;
        if (prepared.insert(&server).second) {
            server.createDatabase(name);
            recordset::ClientConnection connection({odbc::provider()});
            static_cast<Connection &>(connection).open(connectionStringOf(server));
            host::createSchema(connection);
        }
    }

    [[nodiscard]] static std::u16string connectionStringOf(const DatabaseServer &server) {
        return fromUtf8(server.odbcConnectionString(name));
    }

private:
    static constexpr const char *name = "rules";

    DatabaseServer &server_;
};

class PostgreSqlFixture final : public ServerFixture {
public:
    PostgreSqlFixture() : ServerFixture(PostgreSqlServer::shared()) {
        permit();
        run(u"TRUNCATE " +
            valueOf(u"SELECT STRING_AGG(tablename, ',') FROM pg_tables "
                    u"WHERE schemaname = 'public'") +
            u" RESTART IDENTITY");
    }

    void refuse(std::u16string_view event, std::u16string_view condition) override {
        std::u16string trigger = u"CREATE FUNCTION refuse() RETURNS trigger LANGUAGE plpgsql AS "
                                 u"$$BEGIN RAISE EXCEPTION 'refused'; END$$;"
                                 u"CREATE TRIGGER refuse BEFORE ";
        trigger.append(event).append(u" ON SMS_RULES FOR EACH ROW ");
        if (!condition.empty()) {
            trigger.append(u"WHEN (").append(condition).append(u")");
        }
        run(trigger.append(u" EXECUTE FUNCTION refuse()"));
    }
    void permit() override { run(u"DROP FUNCTION IF EXISTS refuse CASCADE"); }

    [[nodiscard]] std::map<Deviation, std::string> deviations() const override {
        return {{Deviation::refusesNulCharacters, "its texts hold every character but NUL"}};
    }
};

class MariaDbFixture : public ServerFixture {
public:
    explicit MariaDbFixture(MariaDbServer &server = MariaDbServer::shared())
        : ServerFixture(server) {
        MariaDbFixture::permit();
        for (const std::u16string &table :
             rows(u"SELECT TABLE_NAME FROM information_schema.TABLES "
                  u"WHERE TABLE_SCHEMA = DATABASE() AND AUTO_INCREMENT > 1")) {
            run(u"TRUNCATE " + table);
        }
    }

    void refuse(std::u16string_view event, std::u16string_view condition) override {
        std::u16string trigger = u"CREATE TRIGGER refuse BEFORE ";
        trigger.append(event)
            .append(u" ON SMS_RULES FOR EACH ROW IF ")
            .append(condition.empty() ? u"TRUE" : condition);
        run(trigger.append(u" THEN SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT = 'refused'; END IF"));
    }
    void permit() override { run(u"DROP TRIGGER IF EXISTS refuse"); }

    [[nodiscard]] std::map<Deviation, std::string> deviations() const override {
        return {{Deviation::refusesNulCharacters,
                 "its ODBC driver reads a text up to its first NUL character"}};
    }
};

/// The first user is on the first node and the other user on the second. Other programs are on the
/// third node, and see what any node has committed before.
class GaleraFixture final : public MariaDbFixture {
public:
    GaleraFixture() : MariaDbFixture(thirdNode()) { reachEveryNode(); }

    [[nodiscard]] std::u16string connectionString() const override {
        return connectionStringOf(GaleraCluster::shared().node(0));
    }
    [[nodiscard]] std::u16string otherConnectionString() const override {
        return connectionStringOf(GaleraCluster::shared().node(1));
    }
    void refuse(std::u16string_view event, std::u16string_view condition) override {
        MariaDbFixture::refuse(event, condition);
        reachEveryNode();
    }
    void permit() override {
        MariaDbFixture::permit();
        reachEveryNode();
    }

private:
    static MariaDbServer &thirdNode() {
        MariaDbServer &node = GaleraCluster::shared().node(2);
        node.run("mysql", "SET GLOBAL wsrep_sync_wait = 15");
        return node;
    }
    static void reachEveryNode() {
        for (std::size_t node = 0; node < GaleraCluster::size; ++node) {
            GaleraCluster::shared().node(node).run(
                "mysql",
                "SET SESSION wsrep_sync_wait = 15; SELECT 1; SET SESSION wsrep_sync_wait = 0");
        }
    }
};

class OdbcSqliteFixture final : public SqliteFixture {
public:
    [[nodiscard]] recordset::Provider provider() const override { return odbc::provider(); }
    [[nodiscard]] std::u16string connectionString() const override {
        return u"Driver={SQLite3};Database=" + SqliteFixture::connectionString();
    }
    [[nodiscard]] std::map<Deviation, std::string> deviations() const override {
        return {{Deviation::refusesNulCharacters,
                 "its ODBC driver ends a text at its first NUL character"}};
    }
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

DatabaseKind galeraCluster() {
    return {"Galera", &make<GaleraFixture>};
}

DatabaseKind odbcSqlite() {
    return {"OdbcSqlite", &make<OdbcSqliteFixture>};
}

} // namespace kvex::test
