// How many statements each step sends. Each one costs a round trip to the server.
#include "tests/editors/Editors.h"
#include "tests/windows/EditorRows.h"

namespace kvex::test {

TEST_P(Editors, ASessionOpensWithOneConnectionTheTablesVersionAndFiveQueries) {
    const std::u16string id = addRule(u"A");
    mine.inEditor(id, [this](User &user) {
        EXPECT_EQ(watched.takeCalls(), (DriverCalls{.connects = 1, .queries = 6}));
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(watched.takeCalls(), DriverCalls{});
}

TEST_P(Editors, ANewRuleTakesOneQueryToOpenAndTwoStatementsToSave) {
    addRule(u"A");
    mine.inEditor(u"", [this](User &user) {
        EXPECT_EQ(watched.takeCalls(), (DriverCalls{.connects = 1, .queries = 7}));
        completeRule(user);
        EXPECT_EQ(watched.takeCalls(), DriverCalls{});
        user.click(u"cmdOK");
        EXPECT_EQ(watched.takeCalls(), (DriverCalls{.queries = 1, .inserts = 1}));
    });
    EXPECT_EQ(watched.takeCalls(), DriverCalls{});
    EXPECT_EQ(ruleCount(), u"2");
}

TEST_P(Editors, AChangedRuleIsWrittenOnceAndReadOnce) {
    const std::u16string id = addRule(u"A");
    mine.inEditor(id, [this](User &user) {
        rename(user, u"Mine");
        setWord(user, u"STOP");
        user.tickRow(actions, row::deleteIt);
        static_cast<void>(watched.takeCalls());
        user.click(u"cmdOK");
        EXPECT_EQ(watched.takeCalls(), (DriverCalls{.queries = 1, .executes = 1}));
    });
}

TEST_P(Editors, AnUnchangedRuleIsOnlyReadAgain) {
    const std::u16string id = addRule(u"A");
    mine.inEditor(id, [this](User &user) {
        static_cast<void>(watched.takeCalls());
        user.click(u"cmdOK");
        EXPECT_EQ(watched.takeCalls(), DriverCalls{.queries = 1});
    });
}

TEST_P(Editors, ARefusedSaveIsSentOnceAndItsRowReadToTellWhy) {
    const std::u16string id = addRule(u"A");
    mine.inEditor(id, [this](User &user) {
        run(u"UPDATE SMS_RULES SET Name = 'Theirs'");
        rename(user, u"Mine");
        static_cast<void>(watched.takeCalls());
        user.click(u"cmdOK");
        EXPECT_EQ(watched.takeCalls(), (DriverCalls{.queries = 1, .executes = 1}));
        mine.expectTold({saveFailed}, rowChangedByAnother, u"was not stored");
        user.click(u"cmdCancel");
    });
}

TEST_P(Editors, ATickARemovalAndEachMovedRuleAreOneStatementEachAndAnOrderIsOneTransaction) {
    addThree();
    mine.inRulesWindow([this](User &user) {
        static_cast<void>(watched.takeCalls());
        user.tickRow(u"lvwRules", 2);
        EXPECT_EQ(watched.takeCalls(), DriverCalls{.executes = 1});
        user.clickRow(u"lvwRules", 3);
        user.click(u"cmdMoveUp");
        EXPECT_EQ(watched.takeCalls(), DriverCalls{});
        user.click(u"cmdOK");
        EXPECT_EQ(watched.takeCalls(), (DriverCalls{.executes = 2, .transactions = 2}));
    });
    mine.inRulesWindow([this](User &user) {
        static_cast<void>(watched.takeCalls());
        confirmRemoval(mine, user, 1);
        EXPECT_EQ(watched.takeCalls(), DriverCalls{.executes = 1});
        user.click(u"cmdCancel");
    });
    mine.utility.messages.clear();
    EXPECT_EQ(watched.takeCalls(), DriverCalls{});
}

TEST_P(Editors, AnOrderThatIsStoredAlreadySendsNothing) {
    addThree();
    mine.inRulesWindow([this](User &user) {
        static_cast<void>(watched.takeCalls());
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(watched.takeCalls(), DriverCalls{});
}

} // namespace kvex::test
