#include "tests/windows/RulesWindowFixture.h"

namespace kvex::test {
namespace {

const Message removeQuestion{u"Are you sure you want to remove this rule?", 4};

TEST_F(RulesWindow, NewAndCancelInTheEditorLeaveTheListUntouched) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 3);
        whenShown(u"frmRuleEdit", [](User &editor) { editor.click(u"cmdCancel"); });
        user.click(u"cmdNew");
        EXPECT_EQ(list(user).selectedRow(), 3);
        EXPECT_EQ(description(user), appliedToAll);
        user.click(u"cmdCancel");
    });
}

TEST_F(RulesWindow, NewAndASaveListAllRulesAgainAndSelectTheFirst) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 3);
        whenShown(u"frmRuleEdit", [](User &editor) {
            editor.tickRow(u"lvwRuleConditions", 6);
            editor.tickRow(u"lvwRuleActions", 4);
            editor.click(u"cmdOK");
        });
        user.click(u"cmdNew");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"New Rule #4", u"A", u"B", u"C"}));
        EXPECT_EQ(list(user).selectedRow(), 1);
        EXPECT_EQ(description(user), appliedToAll +
                                         u"\r\nThen Delete it\r\nand do not process any more "
                                         u"Rules");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{"New Rule #4 1", "A 2", "B 3", "C 4"}));
}

TEST_F(RulesWindow, ModifyShowsTheNewNameAndLeavesPlaceAndTickAlone) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 2);
        whenShown(u"frmRuleEdit", [](User &editor) {
            editor.focusOn(u"txtRuleName");
            editor.press(Key::selectAll);
            editor.type(u"Renamed");
            editor.tickRow(u"lvwRuleActions", 5);
            editor.click(u"cmdOK");
        });
        user.click(u"cmdModify");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"Renamed", u"C"}));
        EXPECT_EQ(list(user).selectedRow(), 2);
        EXPECT_EQ(description(user), appliedToAll + u"\r\nThen do not process any more Rules");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(database.value("SELECT Name FROM SMS_RULES WHERE ID = 2"), "Renamed");
}

TEST_F(RulesWindow, AfterACancelledModifyTheUnsavedRuleIsDescribedUntilTheNextClick) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 2);
        whenShown(u"frmRuleEdit", [](User &editor) {
            editor.tickRow(u"lvwRuleActions", 4);
            editor.click(u"cmdCancel");
        });
        user.click(u"cmdModify");
        EXPECT_NE(description(user), appliedToAll);
        user.clickRow(u"lvwRules", 2);
        EXPECT_EQ(description(user), appliedToAll);
        user.click(u"cmdCancel");
    });
}

TEST_F(RulesWindow, RemoveAnsweredYesDeletesTheRowItself) {
    addThree();
    const std::int32_t result = playRules([this](User &user) {
        user.clickRow(u"lvwRules", 2);
        utility.answers = {6};
        user.click(u"cmdRemove");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"C"}));
        EXPECT_EQ(user.focused(), u"lvwRules");
        EXPECT_EQ(list(user).selectedRow(), 2);
        EXPECT_EQ(ruleState().strRuleName, u"C");
        EXPECT_EQ(database.value("SELECT COUNT(*) FROM SMS_RULES"), "2");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(utility.messages, std::vector{removeQuestion});
    expectLog({});
}

TEST_F(RulesWindow, RemoveAnsweredNoEndsWithALoggedErrorAndNoVisibleChange) {
    addThree();
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 2);
        user.click(u"cmdRemove");
        EXPECT_EQ(list(user).rowCount(), 3);
        EXPECT_EQ(list(user).selectedRow(), 2);
        EXPECT_EQ(description(user), appliedToAll);
        EXPECT_EQ(ruleState().strRuleName, u"B");
        user.click(u"cmdCancel");
    });
    expectLog({u"Sub: cmdRemove_Click, Module: frmRules"});
    EXPECT_EQ(utility.log.at(0).number, error_number::indexOutOfBounds);
}

TEST_F(RulesWindow, RemovingTheLastOfSeveralRulesIsLoggedAndSelectsNone) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 3);
        utility.answers = {6};
        user.click(u"cmdRemove");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B"}));
        EXPECT_EQ(list(user).selectedRow(), 0);
        EXPECT_EQ(description(user), appliedToAll);
        user.click(u"cmdCancel");
    });
    expectLog({u"Sub: cmdRemove_Click, Module: frmRules"});
}

TEST_F(RulesWindow, RemovingTheOnlyRuleClearsTheDescription) {
    database.addRule("A");
    playRules([this](User &user) {
        utility.answers = {6};
        user.click(u"cmdRemove");
        EXPECT_EQ(list(user).rowCount(), 0);
        EXPECT_EQ(description(user), u"");
        // The window stays whole: a first rule can be saved again.
        whenShown(u"frmRuleEdit", [](User &editor) {
            editor.tickRow(u"lvwRuleConditions", 6);
            editor.tickRow(u"lvwRuleActions", 5);
            editor.click(u"cmdOK");
        });
        user.click(u"cmdNew");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"New Rule #1"}));
        user.click(u"cmdOK");
    });
    expectLog({});
    EXPECT_EQ(database.rows("SELECT ID, Name FROM SMS_RULES"),
              (std::vector<std::string>{"2|New Rule #1"}));
}

TEST_F(RulesWindow, RemovingARuleThatAnotherRemovedIsLoggedAndItsRowStays) {
    addThree();
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 2);
        database.execute("DELETE FROM SMS_RULES WHERE Name = 'B'");
        utility.answers = {6};
        user.click(u"cmdRemove");
        EXPECT_EQ(list(user).rowCount(), 3);
        user.click(u"cmdCancel");
    });
    expectLog({u"Sub: cmdRemove_Click, Module: frmRules"});
    EXPECT_LT(utility.log.at(0).number, 0);
}

} // namespace
} // namespace kvex::test
