// A server refuses a change because of rights, a read-only mode or its tables. The user is told
// why, and nothing is lost.
#include "tests/editors/Editor.h"

#include "adapters/odbc/OdbcError.h"
#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "host/suite/Schema.h"
#include "platform/Text.h"
#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"

namespace kvex::test {
namespace {

namespace refusal = odbc::refusal;

struct RefusingServer {
    std::string name;
    DatabaseServer &(*server)();
    /// Statements that make the database read-only for later sessions, and writable again.
    std::string closed;
    std::string open;
};

/// A database with three rules, and its user "editor" with sufficient rights.
class ServerRefusals : public testing::TestWithParam<RefusingServer> {
    OwnLog log_;

protected:
    ServerRefusals() {
        server_.createDatabase(database);
        recordset::ClientConnection connection({odbc::provider()});
        static_cast<Connection &>(connection).open(owner());
        host::createSchema(connection);
        run("INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY) VALUES "
            "('A', '<ALLMESSAGES>', '<DELETE>YES</DELETE>', 10),"
            "('B', '<ALLMESSAGES>', '<DELETE>YES</DELETE>', 10),"
            "('C', '<ALLMESSAGES>', '<DELETE>YES</DELETE>', 10)");
        server_.createUser("editor", "ed1t");
        for (const std::string table : {"SMS_RULES", "SMS_USERS", "SMS_ACCOUNT", "SMS_SERVICE",
                                        "SMS_SERVICECOMMANDS", "SMS_CONTACTS"}) {
            run("GRANT SELECT ON " + table + " TO editor");
        }
        run(permission);
    }
    ~ServerRefusals() override { server_.dropDatabase(database); }

    /// Runs a statement as the administrator.
    void run(const std::string &statement) { server_.run(database, statement); }
    [[nodiscard]] std::vector<std::string> stored() {
        return server_.rows(database, "SELECT Name, PRIORITY, ACTIVE FROM SMS_RULES ORDER BY ID");
    }
    [[nodiscard]] std::u16string owner() const {
        return fromUtf8(server_.odbcConnectionString(database));
    }
    [[nodiscard]] std::u16string editor() const {
        return fromUtf8(server_.odbcConnectionString(database, "editor", "ed1t"));
    }

    /// Expects that no session starts, and that one message with these words tells why.
    static void expectNoSession(const std::u16string &connectionString, std::int32_t number,
                                std::u16string_view words) {
        Editor user(odbc::provider(), connectionString);
        EXPECT_EQ(user.showRules(), 0);
        user.expectTold({u"Sub: ShowRuleUI, Module: RuleUI"}, number, words);
        user.expectPlayedWhole();
    }
    /// Expects a session to show the unchanged rules, and to store a new order.
    void expectSessionWorks(const std::u16string &connectionString) {
        EXPECT_EQ(stored(), unchanged);
        Editor user(odbc::provider(), connectionString);
        user.inRulesWindow([](User &window) {
            EXPECT_EQ(window.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
            EXPECT_EQ(tickedRows(window.get<ListView>(u"lvwRules")), (std::vector{1, 2, 3}));
            window.click(u"cmdOK");
        });
        user.expectPlayedWhole();
        EXPECT_EQ(stored(), (std::vector<std::string>{"A|1|1", "B|2|1", "C|3|1"}));
    }

    static constexpr const char *database = "refusals";
    static constexpr const char *permission = "GRANT INSERT, UPDATE, DELETE ON SMS_RULES TO editor";
    const std::vector<std::string> unchanged{"A|10|1", "B|10|1", "C|10|1"};

private:
    DatabaseServer &server_ = GetParam().server();
};

TEST_P(ServerRefusals, AUserWhoMayOnlyReadGetsAMessageForEveryKindOfWrite) {
    Editor user(odbc::provider(), editor());
    expectNoWay(
        user, refusal::forbidden, u"The database does not permit this (",
        [this] { run("REVOKE INSERT, UPDATE, DELETE ON SMS_RULES FROM editor"); },
        [this] { run(permission); });
    user.expectPlayedWhole();
    expectSessionWorks(editor());
}

TEST_P(ServerRefusals, AUserWhoMayNotAddRulesKeepsTheInputAndCanSaveItOncePermitted) {
    run("REVOKE INSERT ON SMS_RULES FROM editor");
    Editor user(odbc::provider(), editor());
    user.inEditor(u"", [&](User &window) {
        completeRule(window);
        rename(window, u"New");
        window.click(u"cmdOK");
        user.expectTold({u"Sub: cmdOK_Click, Module: frmRuleEdit"}, refusal::forbidden,
                        u"The database does not permit this (");
        EXPECT_EQ(typedName(window), u"New");
        EXPECT_EQ(stored(), unchanged);
        run(permission);
        window.click(u"cmdOK");
        EXPECT_FALSE(window.isOpen());
    });
    user.expectPlayedWhole();
    EXPECT_EQ(stored().back(), "New|0|1");
}

TEST_P(ServerRefusals, AReadOnlyDatabaseIsShownAndNotWritten) {
    run(GetParam().closed);
    Editor user(odbc::provider(), editor());
    expectNoWay(user, refusal::forbidden, u"The database does not permit this (");
    user.expectPlayedWhole();
    run(GetParam().open);
    expectSessionWorks(editor());
}

TEST_P(ServerRefusals, AMissingTableIsNamedForEveryKindOfWrite) {
    Editor user(odbc::provider(), owner());
    expectNoWay(
        user, refusal::noTable, u" was not stored. The database lacks a table (",
        [this] { run("ALTER TABLE SMS_RULES RENAME TO SMS_AWAY"); },
        [this] { run("ALTER TABLE SMS_AWAY RENAME TO SMS_RULES"); });
    user.expectPlayedWhole();
    expectSessionWorks(owner());
}

TEST_P(ServerRefusals, WithoutOneOfItsTablesNoSessionBegins) {
    for (const std::string table :
         {"SMS_RULES", "SMS_USERS", "SMS_ACCOUNT", "SMS_SERVICE", "SMS_SERVICECOMMANDS"}) {
        run("ALTER TABLE " + table + " RENAME TO SMS_AWAY");
        expectNoSession(owner(), refusal::noTable, u"The database lacks a table (");
        run("ALTER TABLE SMS_AWAY RENAME TO " + table);
    }
    expectSessionWorks(owner());
}

TEST_P(ServerRefusals, WithoutAColumnThatOrdersTheRulesNoSessionBegins) {
    for (const std::string column : {"PRIORITY", "DELETED"}) {
        run("ALTER TABLE SMS_RULES RENAME COLUMN " + column + " TO AWAY");
        expectNoSession(owner(), refusal::badStatement, u"The database cannot do this (");
        run("ALTER TABLE SMS_RULES RENAME COLUMN AWAY TO " + column);
    }
    expectSessionWorks(owner());
}

TEST_P(ServerRefusals, WithoutAColumnThatTheListShowsTheUserIsToldOnceAndOkStoresNothing) {
    for (const std::string column : {"Name", "ACTIVE"}) {
        run("ALTER TABLE SMS_RULES RENAME COLUMN " + column + " TO AWAY");
        Editor user(odbc::provider(), owner());
        user.inRulesWindow([&](User &window) {
            EXPECT_EQ(window.rows(u"lvwRules"), Texts());
            window.click(u"cmdOK");
        });
        // The list is filled at the start, and again after the cancelled editor. The query itself
        // succeeds.
        ASSERT_EQ(user.utility.log.size(), 2U);
        for (const LogEntry &entry : user.utility.log) {
            EXPECT_EQ(entry.number, error_number::itemNotFound);
            EXPECT_EQ(entry.description, u"The query has no column " + fromUtf8(column) +
                                             u". Only 0 of 3 rules could be read: the list ends "
                                             u"before the rule with the ID 1.");
        }
        user.utility.log.clear();
        EXPECT_EQ(std::exchange(user.utility.messages, {}).size(), 1U);
        user.expectPlayedWhole();
        run("ALTER TABLE SMS_RULES RENAME COLUMN AWAY TO " + column);
    }
    expectSessionWorks(owner());
}

TEST_P(ServerRefusals, ASaveNamesAColumnThatHasGone) {
    Editor user(odbc::provider(), owner());
    user.inRulesWindow([&](User &window) {
        run("ALTER TABLE SMS_RULES RENAME COLUMN ACTIVE TO AWAY");
        constexpr std::u16string_view words = u" was not stored. The database cannot do this (";
        window.tickRow(u"lvwRules", 2);
        user.expectLeftHandler(refusal::badStatement, words);
        confirmRemoval(user, window, 3);
        user.expectTold({u"Sub: cmdRemove_Click, Module: frmRules"}, refusal::badStatement, words);
        EXPECT_EQ(window.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
        run("ALTER TABLE SMS_RULES RENAME COLUMN AWAY TO ACTIVE");
        window.click(u"cmdCancel");
    });
    user.expectPlayedWhole();
    expectSessionWorks(owner());
}

TEST_P(ServerRefusals, AMissingDatabaseIsNamedInTheMessage) {
    std::u16string elsewhere = owner();
    elsewhere.replace(elsewhere.find(u"refusals"), 8, u"nowhere");
    expectNoSession(elsewhere, refusal::noConnection, u"nowhere");
}

TEST_P(ServerRefusals, AWrongPasswordIsReportedWithAdvice) {
    std::u16string wrong = editor();
    wrong.replace(wrong.find(u"ed1t"), 4, u"w0rd");
    expectNoSession(wrong, refusal::wrongUser, u"Correct UID and PWD in the connection string");
}

DatabaseServer &postgreSql() {
    return PostgreSqlServer::shared();
}

DatabaseServer &mariaDb() {
    return MariaDbServer::shared();
}

INSTANTIATE_TEST_SUITE_P(
    , ServerRefusals,
    testing::Values(RefusingServer{"PostgreSql", &postgreSql,
                                   "ALTER DATABASE refusals SET default_transaction_read_only = on",
                                   "ALTER DATABASE refusals RESET default_transaction_read_only"},
                    RefusingServer{"MariaDb", &mariaDb, "SET GLOBAL read_only = ON",
                                   "SET GLOBAL read_only = OFF"}),
    [](const auto &instance) { return instance.param.name; });

} // namespace
} // namespace kvex::test
