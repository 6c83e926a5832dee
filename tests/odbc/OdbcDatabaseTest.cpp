// What the suite of all databases does not ask: long texts, refusals, servers that are not there.
#include "adapters/odbc/OdbcError.h"
#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/ClientRecordset.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "tests/databases/ServerFixture.h"
#include "tests/servers/FreePort.h"
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"
#include "tests/servers/TcpRelay.h"

#include <gmock/gmock.h>

#include <functional>
#include <optional>
#include <string>

namespace kvex::test {
namespace {

namespace refusal = odbc::refusal;
using testing::HasSubstr;
using testing::Not;

std::optional<Error> errorOf(const std::function<void()> &call) {
    try {
        call();
    } catch (const Error &error) {
        return error;
    }
    return std::nullopt;
}

class OdbcDatabase : public testing::TestWithParam<DatabaseKind> {
protected:
    OdbcDatabase() : database(GetParam().make()), client({database->provider()}) {
        connection.open(database->connectionString());
        database->run(u"INSERT INTO SMS_RULES (ID, Name) VALUES (1, 'rule')");
    }

    /// Stores it, and reads it on a new connection.
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
        for (const std::size_t length :
             {std::size_t{2046}, std::size_t{2047}, std::size_t{2048}, std::size_t{4093},
              std::size_t{5001}, std::size_t{1000000}}) {
            repeated.clear();
            while (repeated.size() < length) {
                repeated += unit;
            }
            // A failure would print both.
            EXPECT_TRUE(kept(repeated) == repeated) << repeated.size();
        }
    }
}

TEST_P(OdbcDatabase, ATextTooLongForItsColumnIsRefusedAndNothingIsCut) {
    recordset::ClientRecordset stored;
    Recordset &rules = stored;
    rules.open(u"SELECT * FROM SMS_RULES", connection, CursorType::dynamic, LockType::optimistic);
    const std::u16string text(300, u'x');
    rules.setField(u"Name", text);
    const auto error = errorOf([&] { rules.update(); });
    if (error) {
        EXPECT_EQ(error->number(), refusal::tooLong);
        EXPECT_EQ(database->valueOf(u"SELECT Name FROM SMS_RULES"), u"rule");
    } else {
        EXPECT_EQ(database->valueOf(u"SELECT Name FROM SMS_RULES"), text);
    }
}

TEST_P(OdbcDatabase, DecimalsAreIntegersWhereTheyAreWhole) {
    recordset::ClientRecordset read;
    Recordset &sums = read;
    sums.open(u"SELECT SUM(ID) AS TOTAL, COUNT(*) AS HOWMANY FROM SMS_RULES", connection);
    EXPECT_EQ(sums.field(u"TOTAL").int32(), 1);
    EXPECT_EQ(sums.field(u"HOWMANY").int32(), 1);
}

TEST_P(OdbcDatabase, AnEmptyStatementIsNone) {
    recordset::ClientRecordset records;
    const auto error = errorOf([&] { static_cast<Recordset &>(records).open(u" ", connection); });
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
        return errorOf([&] {
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
    EXPECT_THAT(std::string(error->what()), HasSubstr("UID and PWD"));
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
            errorOf([&] { static_cast<Recordset &>(records).open(u"SELECT 1", connection); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->number(), recordset::connectionLost) << error->what();
    }
}

// PostgreSQL's client library ends a call when the server's host does not answer any more; it
// waits for one that answers and does nothing, as the relay does.
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
        errorOf([&] { static_cast<Recordset &>(records).open(u"SELECT 1", connection); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), recordset::connectionLost) << error->what();
}

TEST(OdbcDriverManager, ADriverThatIsNotInstalledIsSaidByItsName) {
    recordset::ClientConnection client({odbc::provider()});
    const auto error =
        errorOf([&] { static_cast<Connection &>(client).open(u"Driver={Unheard Of};PWD=hidden"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), refusal::noConnection);
    EXPECT_THAT(std::string(error->what()), HasSubstr("Unheard Of"));
    EXPECT_THAT(std::string(error->what()), Not(HasSubstr("hidden")));
}

} // namespace
} // namespace kvex::test
