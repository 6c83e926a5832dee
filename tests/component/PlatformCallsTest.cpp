// Every call that RuleUI makes to its platform, in order and with all arguments.
#include "tests/support/ComponentTest.h"
#include "tests/support/RaisedError.h"
#include "tests/support/RecordingPlatform.h"

#include <algorithm>

namespace kvex::test {
namespace {

using Calls = std::vector<std::string>;

const Calls creation{
    "create utility",     "create connection",  "create recordset 1", "create recordset 2",
    "create recordset 3", "create recordset 4", "create recordset 5", "componentDirectory",
};

const Calls opening{
    "utility.connectionString",
    "connection.open 'DATABASE' '' '' -1",
    "recordset 1.cursorLocation 3",
    "recordset 1.open 'SELECT * FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY' connection 2 3 "
    "-1",
    "recordset 1.eof",
    "recordset 2.cursorLocation 3",
    "recordset 2.open 'SELECT * FROM SMS_USERS WHERE DELETED = 0' connection 2 3 -1",
    "recordset 2.eof",
    "recordset 3.cursorLocation 3",
    "recordset 3.open 'SELECT * FROM SMS_ACCOUNT WHERE DELETED = 0' connection 2 3 -1",
    "recordset 3.eof",
    "recordset 4.cursorLocation 3",
    "recordset 4.open 'SELECT * FROM SMS_SERVICE WHERE DELETED = 0 AND DISABLED = 0' connection 2 "
    "3 -1",
    "recordset 4.eof",
    "recordset 5.cursorLocation 3",
    "recordset 5.open 'SELECT * FROM SMS_SERVICECOMMANDS WHERE SERVICE_ID IN (SELECT ID FROM "
    "SMS_SERVICE WHERE DELETED = 0 AND DISABLED = 0)' connection 2 3 -1",
    "recordset 5.eof",
};

/// The calls that open the rules window when there are no rules, for a rule that does not exist.
const Calls showing{
    "recordset 1.requireWritable",
    "toolkit",
    "recordset 1.eof",
    "recordset 1.recordCount",
    "utility.writeErrorLog 'FOLDER\\KVEX.log' 35601 'KVEXMessageRules: Error occured. Sub: "
    "Form_Load, Module: frmRules' 0 -1",
};

/// The record sets in the order in which they are closed.
constexpr int closingOrder[] = {3, 1, 4, 5, 2};

std::string recordset(int number) {
    return "recordset " + std::to_string(number);
}

/// The calls that release the objects after this many opening calls. The last opening call may have
/// failed.
Calls releaseAfter(std::size_t made) {
    const auto isOpened = [made](const std::string &object) {
        const auto open = std::ranges::find_if(
            opening, [&](const std::string &call) { return call.starts_with(object + ".open"); });
        return static_cast<std::size_t>(open - opening.begin()) < made;
    };
    Calls calls;
    const auto close = [&](const std::string &object) {
        calls.push_back(object + ".state");
        if (isOpened(object)) {
            calls.push_back(object + ".close");
        }
    };
    close("connection");
    for (const int number : closingOrder) {
        close(recordset(number));
    }
    for (const char *object : {"utility", "connection", "recordset 1", "recordset 2", "recordset 3",
                               "recordset 4", "recordset 5"}) {
        calls.push_back(std::string("release ") + object);
    }
    return calls;
}

std::string logged(std::int32_t number, const std::string &sub) {
    return "utility.writeErrorLog 'FOLDER\\KVEX.log' " + std::to_string(number) +
           " 'KVEXMessageRules: Error occured. Sub: " + sub + ", Module: RuleUI' 0 -1";
}

Calls behind(Calls calls, const Calls &more) {
    calls.insert(calls.end(), more.begin(), more.end());
    return calls;
}

class PlatformSequence : public testing::Test {
protected:
    PlatformSequence() { session().blnChanged = false; }
    ~PlatformSequence() override {
        EXPECT_EQ(toolkit.problems(), Calls());
        EXPECT_EQ(toolkit.pendingScripts(), 0U);
    }
    std::int32_t showRules(SessionOwner &rules) {
        toolkit.whenShown(u"frmRules", [](User &user) { user.click(u"cmdCancel"); });
        return rules.ShowRules(u"1", u"99");
    }

    headless::HeadlessToolkit toolkit;
    RecordingPlatform platform{toolkit};
    PlatformCalls &calls = platform.calls;
};

TEST_F(PlatformSequence, CreationMakesEveryObjectAndOpensNone) {
    SessionOwner rules(platform);
    EXPECT_EQ(calls.take(), creation);
    rules.release();
    EXPECT_EQ(calls.take(), releaseAfter(0));
}

TEST_F(PlatformSequence, CreationEndsAtTheFirstObjectThatCannotBeMade) {
    for (std::size_t step = 0; step < creation.size(); ++step) {
        RecordingPlatform own(toolkit);
        own.calls.failing = creation[step];
        EXPECT_EQ(errorNumber([&] { SessionOwner rules(own); }), error_number::automationError);
        Calls made = own.calls.take();
        std::erase_if(made, [](const std::string &call) { return call.starts_with("release"); });
        EXPECT_EQ(made, Calls(creation.begin(),
                              creation.begin() + static_cast<std::ptrdiff_t>(step) + 1));
        // The objects are released while their platform still exists.
        own.calls.failing.clear();
        session() = Session();
    }
}

TEST_F(PlatformSequence, ShowRulesOpensConnectionAndRecordSetsInOrder) {
    SessionOwner rules(platform);
    calls.made.clear();
    EXPECT_EQ(showRules(rules), 1);
    EXPECT_EQ(calls.take(), behind(opening, showing));
    rules.release();
    EXPECT_EQ(calls.take(), releaseAfter(opening.size()));
}

TEST_F(PlatformSequence, ASecondCallIsRefusedByTheConnection) {
    SessionOwner rules(platform);
    EXPECT_EQ(showRules(rules), 1);
    calls.made.clear();
    EXPECT_EQ(rules.ShowRules(u"1", u""), 0);
    EXPECT_EQ(calls.take(),
              (Calls{opening[0], opening[1], logged(error_number::objectOpen, "ShowRuleUI")}));
    rules.release();
    EXPECT_EQ(calls.take(), releaseAfter(opening.size()));
}

TEST_F(PlatformSequence, OpeningEndsAtTheFirstCallThatFailsAndWhatIsOpenStaysSo) {
    for (const std::string sub : {"ShowRuleUI", "OpenRules"}) {
        for (std::size_t step = 0; step < opening.size(); ++step) {
            RecordingPlatform own(toolkit);
            SessionOwner rules(own);
            own.calls.made.clear();
            own.calls.failing = opening[step];
            if (sub == "OpenRules") {
                EXPECT_FALSE(rules.OpenRules());
            } else {
                EXPECT_EQ(rules.ShowRules(u"1", u""), 0);
            }
            const auto end = opening.begin() + static_cast<std::ptrdiff_t>(step) + 1;
            EXPECT_EQ(own.calls.take(), behind(Calls(opening.begin(), end),
                                               {logged(error_number::automationError, sub)}));
            rules.release();
            // A call of open that failed has opened nothing.
            EXPECT_EQ(own.calls.take(), releaseAfter(step));
        }
    }
}

TEST_F(PlatformSequence, AWindowThatCannotBeMadeLeavesTheSessionOpen) {
    SessionOwner rules(platform);
    calls.made.clear();
    calls.failing = "toolkit";
    EXPECT_EQ(rules.ShowRules(u"1", u""), 0);
    EXPECT_EQ(calls.take(), behind(opening, {"recordset 1.requireWritable", "toolkit",
                                             logged(error_number::automationError, "ShowRuleUI")}));
    rules.release();
    EXPECT_EQ(calls.take(), releaseAfter(opening.size()));
}

TEST_F(PlatformSequence, RulesThatCannotBeWrittenAreNotShown) {
    SessionOwner rules(platform);
    calls.made.clear();
    calls.failing = "recordset 1.requireWritable";
    EXPECT_EQ(rules.ShowRules(u"1", u""), 0);
    EXPECT_EQ(calls.take(), behind(opening, {"recordset 1.requireWritable",
                                             logged(error_number::automationError, "ShowRuleUI")}));
    rules.release();
    EXPECT_EQ(calls.take(), releaseAfter(opening.size()));
}

TEST_F(PlatformSequence, ReadingRulesOpensTheSameSession) {
    SessionOwner rules(platform);
    calls.made.clear();
    EXPECT_TRUE(rules.OpenRules());
    EXPECT_EQ(calls.take(), opening);
    rules.release();
    EXPECT_EQ(calls.take(), releaseAfter(opening.size()));
}

TEST_F(PlatformSequence, AReleaseThatFailsReachesTheHost) {
    SessionOwner rules(platform);
    ASSERT_TRUE(rules.OpenRules());
    calls.made.clear();
    calls.failing = "recordset 3.close";
    EXPECT_EQ(errorNumber([&] { rules.release(); }), error_number::automationError);
    EXPECT_EQ(calls.take(), (Calls{"connection.state", "connection.close", "recordset 3.state",
                                   "recordset 3.close"}));
    calls.failing.clear();
    session() = Session();
}

} // namespace
} // namespace kvex::test
