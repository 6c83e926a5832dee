// What the suite for all databases leaves out: long texts, refusals and missing servers.
#include "adapters/odbc/OdbcError.h"
#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/ClientRecordset.h"
#include "host/suite/Schema.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/Transaction.h"
#include "tests/databases/ServerFixture.h"
#include "tests/servers/FreePort.h"
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"
#include "tests/servers/TcpRelay.h"
#include "tests/support/RaisedError.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace kvex::test {
namespace {

namespace refusal = odbc::refusal;
using testing::HasSubstr;
using testing::Not;

class OdbcDatabase : public testing::TestWithParam<DatabaseKind> {
protected:
    OdbcDatabase() : database(GetParam().make()), client({database->provider()}) {
        connection.open(database->connectionString());
        database->run(u"INSERT INTO SMS_RULES (ID, Name) VALUES (1, 'rule')");
    }

    /// Stores the text, and returns what a new connection reads.
    std::u16string kept(const std::u16string &text) {
        recordset::ClientRecordset stored;
        Recordset &rules = stored;
        rules.open(u"SELECT * FROM SMS_RULES", connection, CursorType::dynamic,
                   LockType::optimistic);
        rules.setField(u"QueryParam", text);
        rules.update();
        recordset::ClientConnection other({database->provider()});
        static_cast<Connection &>(other).open(database->connectionString());
        recordset::ClientRecordset read;
        static_cast<Recordset &>(read).open(u"SELECT * FROM SMS_RULES", other);
        return static_cast<Recordset &>(read).field(u"QueryParam").text();
    }

    std::unique_ptr<DatabaseFixture> database;
    recordset::ClientConnection client;
    Connection &connection = client;
};

TEST_P(OdbcDatabase, TextsAreKeptWholeWhateverTheirLength) {
    std::u16string repeated;
    for (const std::u16string_view unit :
         {u"x", u"क", u"\U0001F4F1", u"a\r\n", u"'", u"é\U0001F4F1क"}) {
        for (const unsigned length : {2046U, 2047U, 2048U, 4093U, 5001U, 10001U, 10002U, 10003U,
                                      20003U, 20004U, 20005U, 20008U, 1000000U}) {
            repeated.clear();
            while (repeated.size() < length) {
                repeated += unit;
            }
            // EXPECT_EQ would print both long texts.
            EXPECT_TRUE(kept(repeated) == repeated) << repeated.size();
        }
    }
}

TEST_P(OdbcDatabase, TheProviderOfOdbcMayStandBeforeTheDriver) {
    recordset::ClientConnection other({database->provider()});
    static_cast<Connection &>(other).open(u"Provider=MSDASQL;" + database->connectionString());
    recordset::ClientRecordset read;
    static_cast<Recordset &>(read).open(u"SELECT * FROM SMS_RULES", other);
    EXPECT_EQ(static_cast<Recordset &>(read).field(u"Name").text(), u"rule");
}

TEST_P(OdbcDatabase, RowsWithSeveralLongTextsAreReadWhole) {
    const auto insert = [&](const std::u16string &id, std::size_t query, std::size_t action) {
        database->run(u"INSERT INTO SMS_RULES (ID, Name, QueryParam, ActionParam, PRIORITY) "
                      u"VALUES (" +
                      id + u", 'name " + id + u"', '" + std::u16string(query, u'q') + u"', '" +
                      std::u16string(action, u'a') + u"', " + id + u")");
    };
    insert(u"2", 300000, 40000);
    insert(u"3", 10, 30000);
    insert(u"4", 30000, 0);
    recordset::ClientRecordset read;
    Recordset &rules = read;
    rules.open(u"SELECT * FROM SMS_RULES WHERE ID > 1 ORDER BY ID", connection);
    for (const auto &[id, query, action] :
         {std::tuple{2, 300000, 40000}, {3, 10, 30000}, {4, 30000, 0}}) {
        ASSERT_FALSE(rules.eof());
        EXPECT_EQ(rules.field(u"ID").int32(), id);
        EXPECT_EQ(rules.field(u"Name").text(), u"name " + toText(std::int64_t{id}));
        EXPECT_TRUE(rules.field(u"QueryParam").text() ==
                    std::u16string(static_cast<std::size_t>(query), u'q'));
        EXPECT_TRUE(rules.field(u"ActionParam").text() ==
                    std::u16string(static_cast<std::size_t>(action), u'a'));
        EXPECT_EQ(rules.field(u"PRIORITY").int32(), id);
        EXPECT_EQ(rules.field(u"ACTIVE").int32(), 1);
        rules.moveNext();
    }
    EXPECT_TRUE(rules.eof());
}

TEST_P(OdbcDatabase, AStatementThatMakesATableGivesNoRowsAndIsNotRun) {
    recordset::ClientRecordset records;
    const auto error = raisedBy([&] {
        static_cast<Recordset &>(records).open(u"CREATE TABLE made (ID INTEGER)", connection);
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), error_number::badArgument);
    // This fails if the table exists already.
    database->run(u"CREATE TABLE made (ID INTEGER)");
}

TEST_P(OdbcDatabase, ATextTooLongForItsColumnIsRefusedAndNothingIsCut) {
    recordset::ClientRecordset stored;
    Recordset &rules = stored;
    rules.open(u"SELECT * FROM SMS_RULES", connection, CursorType::dynamic, LockType::optimistic);
    const std::u16string text(300, u'x');
    rules.setField(u"Name", text);
    const auto error = raisedBy([&] { rules.update(); });
    if (error) {
        EXPECT_EQ(error->number(), refusal::tooLong);
        EXPECT_EQ(database->valueOf(u"SELECT Name FROM SMS_RULES"), u"rule");
    } else {
        EXPECT_EQ(database->valueOf(u"SELECT Name FROM SMS_RULES"), text);
    }
}

TEST_P(OdbcDatabase, AStatementOfAnUndoneTransactionRunsAgain) {
    recordset::ClientRecordset stored;
    Recordset &rules = stored;
    rules.open(u"SELECT * FROM SMS_RULES", connection, CursorType::dynamic, LockType::optimistic);
    const auto rename = [&](const char16_t *name) {
        rules.setField(u"Name", std::u16string(name));
        rules.update();
        rules.resyncCurrent();
    };
    {
        const Transaction undone(client);
        rename(u"undone");
    }
    EXPECT_EQ(database->valueOf(u"SELECT Name FROM SMS_RULES"), u"rule");
    rules.resyncCurrent();
    rename(u"kept");
    EXPECT_EQ(database->valueOf(u"SELECT Name FROM SMS_RULES"), u"kept");
    Transaction committed(client);
    rename(u"committed");
    committed.commit();
    EXPECT_EQ(database->valueOf(u"SELECT Name FROM SMS_RULES"), u"committed");
}

TEST_P(OdbcDatabase, DecimalsAreIntegersWhereTheyAreWhole) {
    recordset::ClientRecordset read;
    Recordset &sums = read;
    sums.open(u"SELECT SUM(ID) AS TOTAL, COUNT(*) AS HOWMANY FROM SMS_RULES", connection);
    EXPECT_EQ(sums.field(u"TOTAL").int32(), 1);
    EXPECT_EQ(sums.field(u"HOWMANY").int32(), 1);
}

TEST_P(OdbcDatabase, AnEmptyStatementIsRefused) {
    recordset::ClientRecordset records;
    const auto error = raisedBy([&] { static_cast<Recordset &>(records).open(u" ", connection); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), error_number::badArgument);
}

INSTANTIATE_TEST_SUITE_P(Odbc, OdbcDatabase,
                         testing::Values(odbcSqlite(), postgreSqlServer(), mariaDbServer()),
                         kindName);

template <class Server> class OdbcServer : public testing::Test {
protected:
    OdbcServer() { server.createDatabase("odbc"); }
    ~OdbcServer() override { server.dropDatabase("odbc"); }

    static std::optional<Error> refused(const std::string &text) {
        return raisedBy([&] {
            recordset::ClientConnection client({odbc::provider()});
            static_cast<Connection &>(client).open(fromUtf8(text));
        });
    }

    Server &server = Server::shared();
};

using Servers = testing::Types<PostgreSqlServer, MariaDbServer>;
TYPED_TEST_SUITE(OdbcServer, Servers);

TYPED_TEST(OdbcServer, AWrongPasswordIsRefusedAndNotRepeated) {
    std::string text = this->server.odbcConnectionString("odbc");
    text = text.substr(0, text.find("PWD=")) + "PWD={hidden;word}";
    const auto error = this->refused(text);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), refusal::wrongUser);
    EXPECT_THAT(std::string(error->what()), Not(HasSubstr("hidden")));
    EXPECT_EQ(error->helpContext(), HelpContext::wrongUser);
}

TYPED_TEST(OdbcServer, ADatabaseThatIsNotThereIsSaidByItsName) {
    const auto error = this->refused(this->server.odbcConnectionString("nowhere"));
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->fromDatabase());
    EXPECT_THAT(std::string(error->what()), HasSubstr("nowhere"));
}

TYPED_TEST(OdbcServer, AServerThatIsNotThereCannotBeReached) {
    const auto error = this->refused(this->server.odbcConnectionString("odbc", freePort()));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), refusal::noConnection);
    EXPECT_THAT(std::string(error->what()), HasSubstr("cannot be reached"));
}

TYPED_TEST(OdbcServer, AServerThatDoesNotAnswerEndsTheOpening) {
    TcpRelay relay(this->server.port());
    relay.cut();
    const auto error = this->refused(this->server.odbcConnectionString("odbc", relay.port()) +
                                     ";Connect Timeout=2");
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->fromDatabase());
}

TYPED_TEST(OdbcServer, AConnectionThatBreaksIsLostForEveryLaterCall) {
    TcpRelay relay(this->server.port());
    recordset::ClientConnection client({odbc::provider()});
    Connection &connection = client;
    connection.open(fromUtf8(this->server.odbcConnectionString("odbc", relay.port())));
    relay.refuse();
    for (int call = 0; call < 2; ++call) {
        recordset::ClientRecordset records;
        const auto error =
            raisedBy([&] { static_cast<Recordset &>(records).open(u"SELECT 1", connection); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->number(), noConnection) << error->what();
    }
}

/// Repeats each statement after another program has changed the type of a column.
template <class Server> void expectToFitAChangedTable(Server &server, const char *change) {
    server.createDatabase("changed");
    {
        recordset::ClientConnection client({odbc::provider()});
        Connection &connection = client;
        connection.open(fromUtf8(server.odbcConnectionString("changed")));
        host::createSchema(client);
        server.run("changed", "INSERT INTO SMS_RULES (Name, QueryParam) VALUES ('A', 'x')");
        recordset::ClientRecordset stored;
        Recordset &rules = stored;
        rules.open(u"SELECT * FROM SMS_RULES", connection, CursorType::dynamic,
                   LockType::optimistic);
        for (const char16_t *name : {u"B", u"C"}) {
            rules.setField(u"Name", std::u16string(name));
            rules.update();
            rules.resyncCurrent();
            EXPECT_EQ(rules.field(u"Name").text(), name);
            server.run("changed", change);
        }
    }
    server.dropDatabase("changed");
}

TEST(OdbcPostgreSql, StatementsThatRanBeforeFitAChangedTable) {
    expectToFitAChangedTable(PostgreSqlServer::shared(),
                             "ALTER TABLE SMS_RULES ALTER COLUMN Name TYPE text");
}

TEST(OdbcMariaDb, StatementsThatRanBeforeFitAChangedTable) {
    expectToFitAChangedTable(MariaDbServer::shared(), "ALTER TABLE SMS_RULES MODIFY Name TEXT");
}

// The driver does not return an enumeration as bytes; the other types are further kinds of text.
TEST(OdbcPostgreSql, ValuesOfEveryTypeAreRead) {
    PostgreSqlServer &server = PostgreSqlServer::shared();
    server.createDatabase("types");
    server.run("types", "CREATE TYPE mood AS ENUM ('fine')");
    {
        recordset::ClientConnection client({odbc::provider()});
        Connection &connection = client;
        connection.open(fromUtf8(server.odbcConnectionString("types")));
        recordset::ClientRecordset read;
        Recordset &values = read;
        values.open(u"SELECT 'fine'::mood AS a, '{\"b\": \"ü\"}'::json AS b, 'ü'::name AS c, "
                    u"'<d>ü</d>'::xml AS d, 'ü'::char(3) AS e, true AS f, '2024-03-01'::date AS g, "
                    u"1.5::numeric AS h, NULL::text AS i, ''::text AS j",
                    connection);
        EXPECT_EQ(values.field(u"a").text(), u"fine");
        EXPECT_EQ(values.field(u"b").text(), u"{\"b\": \"ü\"}");
        EXPECT_EQ(values.field(u"c").text(), u"ü");
        EXPECT_EQ(values.field(u"d").text(), u"<d>ü</d>");
        EXPECT_EQ(values.field(u"e").text(), u"ü  ");
        EXPECT_EQ(values.field(u"f").int32(), 1);
        EXPECT_EQ(values.field(u"g").text(), u"2024-03-01");
        EXPECT_EQ(values.field(u"h").text(), u"1.5");
        EXPECT_TRUE(values.field(u"i").isNull());
        EXPECT_EQ(values.field(u"j").text(), u"");
    }
    server.dropDatabase("types");
}

TEST(OdbcMariaDb, TextsAreTheSameInWhateverCharacterSet) {
    MariaDbServer &server = MariaDbServer::shared();
    server.createDatabase("texts");
    server.run("texts", "CREATE TABLE t (a VARCHAR(9) CHARACTER SET latin1, b ENUM('ü'), "
                        "c TEXT CHARACTER SET utf16, d JSON, e YEAR, f DECIMAL(5,2), g DATE);"
                        "INSERT INTO t VALUES ('ü', 'ü', '📱', '[\"ü\"]', 2024, 1.5, '2024-03-01')");
    for (const char *charset : {"", ";CHARSET=utf8mb4", ";CHARSET=latin1"}) {
        recordset::ClientConnection client({odbc::provider()});
        Connection &connection = client;
        connection.open(fromUtf8(server.odbcConnectionString("texts") + charset));
        recordset::ClientRecordset read;
        Recordset &values = read;
        values.open(u"SELECT * FROM t", connection);
        EXPECT_EQ(values.field(u"a").text(), u"ü") << charset;
        EXPECT_EQ(values.field(u"b").text(), u"ü") << charset;
        EXPECT_EQ(values.field(u"d").text(), u"[\"ü\"]") << charset;
        EXPECT_EQ(values.field(u"f").text(), u"1.5") << charset;
        EXPECT_EQ(values.field(u"g").text(), u"2024-03-01") << charset;
        if (!std::string_view(charset).ends_with("latin1")) {
            EXPECT_EQ(values.field(u"c").text(), u"📱") << charset;
        }
    }
    server.dropDatabase("texts");
}

// The relay's host still acknowledges what is sent. PostgreSQL's client library then waits without
// a limit, so it has no such test.
TEST(OdbcMariaDb, ASilentServerEndsACall) {
    MariaDbServer &server = MariaDbServer::shared();
    server.createDatabase("silent");
    TcpRelay relay(server.port());
    recordset::ClientConnection client({odbc::provider()});
    Connection &connection = client;
    connection.open(
        fromUtf8(server.odbcConnectionString("silent", relay.port()) + ";Connect Timeout=2"));
    relay.cut();
    recordset::ClientRecordset records;
    const auto error =
        raisedBy([&] { static_cast<Recordset &>(records).open(u"SELECT 1", connection); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), noConnection) << error->what();
}

TEST(OdbcDriverManager, ADriverThatIsNotInstalledIsNamed) {
    recordset::ClientConnection client({odbc::provider()});
    const auto error = raisedBy(
        [&] { static_cast<Connection &>(client).open(u"Driver={Unheard Of};PWD=hidden"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), refusal::noConnection);
    EXPECT_THAT(std::string(error->what()), HasSubstr("Unheard Of"));
    EXPECT_THAT(std::string(error->what()), Not(HasSubstr("hidden")));
}

} // namespace
} // namespace kvex::test
