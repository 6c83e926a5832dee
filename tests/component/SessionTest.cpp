#include "component/SessionOwner.h"
#include "component/session/ErrorTrap.h"
#include "rules/InputHelpers.h"
#include "tests/support/ComponentTest.h"
#include "tests/support/RaisedError.h"

#include <thread>

namespace kvex::test {
namespace {

const std::u16string showFailed = u"Sub: ShowRuleUI, Module: RuleUI";

class SessionLife : public ComponentTest {
protected:
    std::int32_t playIdle() {
        return playRules([](User &user) { user.click(u"cmdCancel"); });
    }
};

TEST_F(SessionLife, CreationOpensNothingAndFixesTheLogPath) {
    createSession();
    EXPECT_EQ(session().cnMain->state(), ObjectState::closed);
    EXPECT_EQ(session().rsRules->state(), ObjectState::closed);
    EXPECT_EQ(session().strLogFile, u"/usr/lib/kvex\\KVEX.log");
}

TEST_F(SessionLife, ARootDirectoryGivesADoubledBackslash) {
    platform.directory = u"C:\\";
    createSession();
    EXPECT_EQ(session().strLogFile, u"C:\\\\KVEX.log");
}

TEST_F(SessionLife, AFailedCreationReachesTheHost) {
    utility.creationFails = true;
    EXPECT_EQ(errorNumber([&] { createSession(); }), error_number::cannotCreateObject);
    sessionOwner.reset();
}

TEST_F(SessionLife, AnEmptyTableStillShowsTheWindow) {
    EXPECT_EQ(playIdle(), 1);
    EXPECT_FALSE(session().blnHasRules);
    EXPECT_FALSE(session().blnHasUsers);
}

TEST_F(SessionLife, FlagsTellWhichRecordSetsHaveRows) {
    database.addRule("A");
    database.addUser(1, "U");
    database.execute("INSERT INTO SMS_SERVICE (ID, NAME) VALUES (1, 'On')");
    database.execute("INSERT INTO SMS_SERVICE (ID, NAME, DISABLED) VALUES (2, 'Off', 1)");
    database.execute("INSERT INTO SMS_SERVICECOMMANDS (ID, SERVICE_ID) VALUES (1, 2)");
    EXPECT_EQ(playIdle(), 1);
    EXPECT_TRUE(session().blnHasRules);
    EXPECT_TRUE(session().blnHasUsers);
    EXPECT_FALSE(session().blnHasAccounts);
    EXPECT_TRUE(session().blnHasServices);
    EXPECT_FALSE(session().blnHasServiceCommands);
    EXPECT_EQ(session().strUserID, u"1");
}

TEST_F(SessionLife, DeletedRowsAreNotRead) {
    database.addRule("A");
    database.addUser(1, "U");
    database.addAccount(1, "M");
    database.execute("INSERT INTO SMS_SERVICE (ID, NAME) VALUES (1, 'S')");
    database.execute("INSERT INTO SMS_SERVICECOMMANDS (ID, SERVICE_ID) VALUES (1, 1)");
    for (const char *table : {"SMS_RULES", "SMS_USERS", "SMS_ACCOUNT", "SMS_SERVICE"}) {
        database.execute("UPDATE " + std::string(table) + " SET DELETED = 2");
    }
    openSession();
    EXPECT_FALSE(session().blnHasRules);
    EXPECT_FALSE(session().blnHasUsers);
    EXPECT_FALSE(session().blnHasAccounts);
    EXPECT_FALSE(session().blnHasServices);
    EXPECT_FALSE(session().blnHasServiceCommands);
}

TEST_F(SessionLife, TheLastOfFiveQueriesFailingIsLoggedAndGivesZero) {
    database.execute("DROP TABLE SMS_SERVICECOMMANDS");
    EXPECT_EQ(showRules(u""), 0);
    expectLog({showFailed});
    EXPECT_EQ(session().strSQL,
              u"SELECT * FROM SMS_SERVICECOMMANDS WHERE SERVICE_ID IN (SELECT ID FROM SMS_SERVICE "
              u"WHERE DELETED = 0 AND DISABLED = 0)");
    EXPECT_EQ(session().cnMain->state(), ObjectState::open);
    EXPECT_EQ(session().rsServices->state(), ObjectState::open);
    EXPECT_EQ(session().rsServiceCommands->state(), ObjectState::closed);
}

TEST_F(SessionLife, TheFirstQueryFailingOpensNoFurtherRecordSet) {
    database.execute("DROP TABLE SMS_RULES");
    EXPECT_EQ(showRules(u""), 0);
    expectLog({showFailed});
    EXPECT_EQ(session().strSQL, u"SELECT * FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY");
    EXPECT_EQ(session().rsUsers->state(), ObjectState::closed);
}

TEST_F(SessionLife, AnUnknownConnectionStringIsLoggedAndGivesZero) {
    utility.connectionString = u"Provider=Nobody;Data Source=x";
    EXPECT_EQ(showRules(u""), 0);
    expectLog({showFailed});
    EXPECT_EQ(session().cnMain->state(), ObjectState::closed);
}

TEST_F(SessionLife, AnEntryCarriesItsSixArguments) {
    utility.connectionString = u"Provider=SQLite;Data Source=/nowhere/at/all.db";
    EXPECT_EQ(showRules(u""), 0);
    expectLog({showFailed});
    const LogEntry &entry = logged.at(0);
    EXPECT_EQ(entry.logFile, u"/usr/lib/kvex\\KVEX.log");
    EXPECT_LT(entry.number, 0);
    EXPECT_NE(entry.description, u"");
    EXPECT_EQ(entry.source, u"SQLite");
    EXPECT_EQ(entry.reserved, 0);
    EXPECT_EQ(entry.flag, -1);
}

TEST_F(SessionLife, WhatTheUtilityObjectMakesOfTheLogFileIsTheLogFileFromThenOn) {
    utility.connectionString = u"Provider=Nobody";
    utility.addedToLogFile = u".1";
    EXPECT_EQ(showRules(u""), 0);
    EXPECT_EQ(showRules(u""), 0);
    expectLog({showFailed, showFailed});
    EXPECT_EQ(logged.at(0).logFile, u"/usr/lib/kvex\\KVEX.log");
    EXPECT_EQ(logged.at(1).logFile, u"/usr/lib/kvex\\KVEX.log.1");
    EXPECT_EQ(session().strLogFile, u"/usr/lib/kvex\\KVEX.log.1.1");
}

TEST_F(SessionLife, ASecondCallOnOneObjectIsRefused) {
    EXPECT_EQ(playIdle(), 1);
    EXPECT_EQ(showRules(u""), 0);
    EXPECT_EQ(showRules(u""), 0);
    expectLog({showFailed, showFailed});
    EXPECT_EQ(logged.at(0).number, error_number::objectOpen);
}

TEST_F(SessionLife, TheFlagOutlivesASessionUntilAnEditorLoads) {
    database.addRule("A");
    EXPECT_EQ(playRules([](User &user) {
                  user.clickRow(u"lvwRules", 1);
                  user.click(u"cmdMoveUp");
                  user.click(u"cmdCancel");
              }),
              99);
    closeSession();
    // The rule is not found, so no editor opens that would clear the flag.
    whenShown(u"frmRules", [](User &user) { user.click(u"cmdCancel"); });
    EXPECT_EQ(showRules(u"99"), 99);
    expectLog({u"Sub: Form_Load, Module: frmRules"});
    closeSession();
    EXPECT_EQ(playIdle(), 1);
}

TEST_F(SessionLife, AReorderingIsForgottenByTheFlagWhenTheEditorOpensAfterwards) {
    database.addRule("A", "<ALLMESSAGES>", "", 1);
    database.addRule("B", "<ALLMESSAGES>", "", 2);
    EXPECT_EQ(playRules([this](User &user) {
                  user.clickRow(u"lvwRules", 2);
                  user.click(u"cmdMoveUp");
                  whenShown(u"frmRuleEdit", [](User &editor) { editor.press(Key::escape); });
                  user.click(u"cmdNew");
                  user.click(u"cmdOK");
              }),
              1);
    EXPECT_EQ(database.rows("SELECT Name FROM SMS_RULES ORDER BY PRIORITY"),
              (std::vector<std::string>{"B", "A"}));
}

TEST_F(SessionLife, TheSessionStaysOpenAfterTheWindowAndClosesWithTheObject) {
    playIdle();
    EXPECT_EQ(session().cnMain->state(), ObjectState::open);
    EXPECT_EQ(session().rsRules->state(), ObjectState::open);
    closeSession();
    EXPECT_EQ(errorNumber([] { return session().cnMain->state(); }), error_number::objectNotSet);
    EXPECT_EQ(errorNumber([] { return session().rsUsers->state(); }), error_number::objectNotSet);
}

TEST_F(SessionLife, ASecondObjectOnTheThreadReplacesTheFirstsObjects) {
    openSession();
    SessionOwner second(platform);
    EXPECT_EQ(session().cnMain->state(), ObjectState::closed);
    EXPECT_TRUE(second.OpenRules());
    // Releasing the first closes what the second opened: they share one session.
    closeSession();
    EXPECT_EQ(errorNumber([&] { second.release(); }), error_number::objectNotSet);
}

TEST_F(SessionLife, EachThreadHasASessionAndARuleOfItsOwn) {
    openSession();
    session().blnChanged = true;
    ruleState().strPeople = u"mine";
    std::thread([this] {
        EXPECT_FALSE(session().blnChanged);
        EXPECT_EQ(ruleState().strPeople, u"");
        EXPECT_EQ(errorNumber([] { return session().cnMain->state(); }),
                  error_number::objectNotSet);
        SessionOwner other(platform);
        EXPECT_TRUE(other.OpenRules());
        ruleState().strPeople = u"theirs";
        other.release();
    }).join();
    EXPECT_EQ(session().cnMain->state(), ObjectState::open);
    EXPECT_EQ(ruleState().strPeople, u"mine");
}

TEST_F(SessionLife, AWindowThatCannotBeShownIsLoggedAndGivesZero) {
    class NoDisplay final : public Toolkit {
    public:
        std::unique_ptr<Window> createWindow(const WindowDesign &) override {
            throw Error(error_number::cannotCreateObject, u"no display");
        }
        std::int32_t showMessageBox(const std::u16string &, const std::u16string &,
                                    std::int32_t) override {
            return 0;
        }
        Clipboard &clipboard() override { throw Error(error_number::cannotCreateObject); }
    } noDisplay;
    TestPlatform blind(utility, noDisplay, database.provider());
    sessionOwner = std::make_unique<SessionOwner>(blind);
    EXPECT_EQ(showRules(u""), 0);
    expectLog({showFailed});
    EXPECT_EQ(logged.front().description, u"no display");
    closeSession();
}

TEST_F(SessionLife, ALogThatFailsPassesItsOwnErrorOn) {
    utility.connectionString = u"";
    utility.logFails = true;
    EXPECT_EQ(errorNumber([&] { return showRules(u""); }), error_number::automationError);
}

TEST_F(SessionLife, AnErrorWithoutATrapIsLoggedUnderTheCaller) {
    createSession();
    trapErrors(u"Caller", u"Somewhere", [] { (void)PadLeft(u"1234", 3, u'0'); });
    trapErrors(u"Caller", u"Somewhere", [] { throw std::bad_alloc(); });
    expectLog({u"Sub: Caller, Module: Somewhere", u"Sub: Caller, Module: Somewhere"});
    EXPECT_EQ(logged.at(0).number, error_number::invalidCall);
    EXPECT_EQ(logged.at(1).number, error_number::outOfMemory);
}

TEST_F(SessionLife, RulesAreDescribedWithoutAWindow) {
    database.addRule("A", "<ALLMESSAGES>", "<DELETE>YES</DELETE>", 1, 0);
    openSession();
    const std::vector<TextRun> expected{
        {u"This Rule is disabled\r\nFor ALL Messages\r\nThen Delete it", colour::black}};
    EXPECT_EQ(describeRule(u"1"), expected);
    EXPECT_EQ(describeRule(u"2"), std::nullopt);
    EXPECT_EQ(describeRule(u"abc"), std::nullopt);
    EXPECT_EQ(describeRule(u""), std::nullopt);
    expectLog({});
}

} // namespace
} // namespace kvex::test
