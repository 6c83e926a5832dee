// Which statements each step of an editor sends, as the server's own log shows them. Each statement
// costs a round trip.
#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "host/suite/Schema.h"
#include "platform/Text.h"
#include "tests/editors/Editor.h"
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

namespace kvex::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;
using testing::Le;
using Lines = std::vector<std::string>;

const std::string commandsQuery =
    "SELECT * FROM SMS_SERVICECOMMANDS WHERE SERVICE_ID IN (SELECT ID FROM SMS_SERVICE WHERE "
    "DELETED = 0 AND DISABLED = 0)";
const std::string versionQuery = "SELECT MAX(VERSION) FROM SMS_SCHEMA";
const Lines sessionQueries{
    "SELECT * FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY",
    "SELECT * FROM SMS_USERS WHERE DELETED = 0", "SELECT * FROM SMS_ACCOUNT WHERE DELETED = 0",
    "SELECT * FROM SMS_SERVICE WHERE DELETED = 0 AND DISABLED = 0", commandsQuery};

/// Ignores the case of `text`; `part` must be in capitals.
bool contains(const std::string &text, std::string_view part) {
    const auto isSame = [](unsigned char unit, unsigned char wanted) {
        return std::toupper(unit) == wanted;
    };
    return std::search(text.begin(), text.end(), part.begin(), part.end(), isSame) != text.end();
}

/// True for a statement that the editor sends. The driver itself sends all others.
bool isOurs(const Asked &asked) {
    return contains(asked.text, "SMS_") && !contains(asked.text, "PG_CATALOG") &&
           !contains(asked.text, "INFORMATION_SCHEMA");
}

/// What a driver sends around the writes of a transaction.
Lines transactionOf(const PostgreSqlServer & /*server*/) {
    return {"BEGIN", "COMMIT"};
}
Lines transactionOf(const MariaDbServer & /*server*/) {
    return {"SET autocommit=0", "COMMIT", "SET autocommit=1"};
}

/// What asks for the version of the tables. On PostgreSQL, the query of a missing table would fill
/// the server's log with errors.
Lines versionQueries(const PostgreSqlServer & /*server*/) {
    return {"SELECT CAST(to_regclass('SMS_SCHEMA') AS TEXT)", versionQuery};
}
Lines versionQueries(const MariaDbServer & /*server*/) {
    return {versionQuery};
}

struct Heard {
    /// The editor's executed statements: whole, and their first words.
    Lines ours;
    Lines verbs;
    /// How many of the editor's statements were prepared.
    int prepared = 0;
    /// The driver's own statements, prepared or executed.
    Lines ofDriver;
};

template <class Server> class Wire : public testing::Test {
protected:
    Wire() {
        server.createDatabase("wire");
        {
            recordset::ClientConnection connection({odbc::provider()});
            static_cast<Connection &>(connection).open(connectionString());
            host::createSchema(connection);
        }
        for (const char *name : {"A", "B", "C"}) {
            server.run("wire", std::string("INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, "
                                           "PRIORITY) VALUES ('") +
                                   name +
                                   "', '<ALLMESSAGES>', '<DELETE>YES</DELETE><IGNOREFURTHERRULES>"
                                   "YES</IGNOREFURTHERRULES>', " +
                                   std::to_string(name[0] - 'A' + 1) + ")");
        }
        server.listen("wire");
    }
    ~Wire() override { server.dropDatabase("wire"); }
    void TearDown() override {
        editor.expectNothingTold();
        editor.expectPlayedWhole();
    }

    std::u16string connectionString() { return fromUtf8(server.odbcConnectionString("wire")); }
    std::u16string idOf(const std::string &name) {
        return fromUtf8(
            server.valueOf("wire", "SELECT ID FROM SMS_RULES WHERE Name = '" + name + "'"));
    }

    /// The statements since the last call.
    Heard heard() {
        Heard heard;
        for (const Asked &asked : server.heard()) {
            if (!isOurs(asked)) {
                heard.ofDriver.push_back(asked.text);
            } else if (asked.how == Asked::How::prepared) {
                ++heard.prepared;
            } else {
                heard.ours.push_back(asked.text);
                heard.verbs.push_back(asked.text.substr(0, asked.text.find(' ')));
            }
        }
        return heard;
    }

    /// The rows of the rules window are numbered from 1.
    static void moveUp(User &user, int row) {
        user.clickRow(u"lvwRules", row);
        user.click(u"cmdMoveUp");
    }

    Server &server = Server::shared();
    Editor editor{odbc::provider(), connectionString()};
};

using Servers = testing::Types<PostgreSqlServer, MariaDbServer>;
TYPED_TEST_SUITE(Wire, Servers);

TYPED_TEST(Wire, ASessionIsOpenedWithTheVersionItsFiveQueriesAndTheKeyBehindTheConnection) {
    this->editor.inEditor(this->idOf("A"), [this](User &user) {
        const Heard opening = this->heard();
        Lines expected = versionQueries(this->server);
        expected.insert(expected.end(), sessionQueries.begin(), sessionQueries.end());
        EXPECT_EQ(opening.ours, expected);
        int aboutTheTable = 0;
        for (const std::string &text : opening.ofDriver) {
            // One query asks MariaDB whether it is a node of a cluster.
            const bool connects = text.starts_with("SET ") || text.starts_with("show ") ||
                                  contains(text, "TYPNAME = 'LO'") || contains(text, "'WSREP_ON'");
            aboutTheTable += connects ? 0 : 1;
        }
        // The driver asks for the table's columns and key, and may drop the prepared query.
        EXPECT_THAT(aboutTheTable, AllOf(Ge(1), Le(3))) << testing::PrintToString(opening.ofDriver);
        user.click(u"cmdCancel");
    });
    const Heard closing = this->heard();
    EXPECT_THAT(closing.ours, IsEmpty());
    EXPECT_THAT(closing.ofDriver, IsEmpty());
}

TYPED_TEST(Wire, ATickIsOneStatement) {
    this->editor.inRulesWindow([this](User &user) {
        static_cast<void>(this->heard());
        user.tickRow(u"lvwRules", 2);
        const Heard first = this->heard();
        EXPECT_THAT(first.verbs, ElementsAre("UPDATE"));
        EXPECT_EQ(first.prepared, 1);
        EXPECT_THAT(first.ofDriver, IsEmpty());
        for (const int row : {2, 1}) {
            user.tickRow(u"lvwRules", row);
            const Heard tick = this->heard();
            EXPECT_THAT(tick.verbs, ElementsAre("UPDATE"));
            EXPECT_EQ(tick.prepared, 0);
            EXPECT_THAT(tick.ofDriver, IsEmpty());
        }
        user.click(u"cmdCancel");
    });
    EXPECT_THAT(this->heard().ofDriver, IsEmpty());
}

TYPED_TEST(Wire, ASaveIsOneStatementAndOneReading) {
    this->editor.inRulesWindow([this](User &user) {
        for (const bool again : {false, true}) {
            this->editor.toolkit.whenShown(u"frmRuleEdit", [&](User &rule) {
                rename(rule, again ? u"Renamed again" : u"Renamed");
                static_cast<void>(this->heard());
                rule.click(u"cmdOK");
                const Heard save = this->heard();
                EXPECT_THAT(save.verbs, ElementsAre("UPDATE", "SELECT"));
                EXPECT_EQ(save.prepared, again ? 0 : 2);
                EXPECT_THAT(save.ofDriver, IsEmpty());
            });
            user.clickRow(u"lvwRules", 1);
            user.click(u"cmdModify");
        }
        user.click(u"cmdCancel");
    });
}

TYPED_TEST(Wire, ANewRuleIsOneStatementAndOneReading) {
    this->editor.inRulesWindow([this](User &user) {
        for (const bool again : {false, true}) {
            this->editor.toolkit.whenShown(u"frmRuleEdit", [&](User &rule) {
                completeRule(rule);
                rename(rule, again ? u"Another" : u"New");
                static_cast<void>(this->heard());
                rule.click(u"cmdOK");
                const Heard save = this->heard();
                EXPECT_THAT(save.verbs, ElementsAre("INSERT", "SELECT"));
                EXPECT_EQ(save.prepared, again ? 0 : 2);
                EXPECT_THAT(save.ofDriver, IsEmpty());
            });
            user.click(u"cmdNew");
        }
        user.click(u"cmdCancel");
    });
}

TYPED_TEST(Wire, AnOrderIsOneStatementForEachRuleWhoseNumberChangedInOneTransaction) {
    this->editor.inRulesWindow([this](User &user) {
        this->moveUp(user, 3);
        static_cast<void>(this->heard());
        user.click(u"cmdOK");
        const Heard order = this->heard();
        EXPECT_THAT(order.verbs, ElementsAre("UPDATE", "UPDATE"));
        EXPECT_EQ(order.prepared, 1);
        EXPECT_EQ(order.ofDriver, transactionOf(this->server));
    });
}

TYPED_TEST(Wire, AnOrderThatIsStoredAlreadySendsNothing) {
    this->editor.inRulesWindow([this](User &user) {
        static_cast<void>(this->heard());
        user.click(u"cmdOK");
        const Heard order = this->heard();
        EXPECT_THAT(order.ours, IsEmpty());
        EXPECT_EQ(order.prepared, 0);
        EXPECT_THAT(order.ofDriver, IsEmpty());
    });
}

TYPED_TEST(Wire, ARemovalIsOneStatement) {
    this->editor.inRulesWindow([this](User &user) {
        static_cast<void>(this->heard());
        confirmRemoval(this->editor, user, 2);
        const Heard removal = this->heard();
        EXPECT_THAT(removal.verbs, ElementsAre("DELETE"));
        EXPECT_EQ(removal.prepared, 1);
        EXPECT_THAT(removal.ofDriver, IsEmpty());
        user.click(u"cmdCancel");
    });
    this->editor.utility.messages.clear();
}

} // namespace
} // namespace kvex::test
