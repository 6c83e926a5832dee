#include "platform/Text.h"
#include "tests/windows/RuleScenarios.h"

namespace kvex::test {
namespace {

const Message removeQuestion{u"Are you sure you want to remove this rule?", 4};

TEST_P(RulesWindow, NewAndCancelInTheEditorLeaveTheListUntouched) {
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

TEST_P(RulesWindow, ABlankInASearchByFirstLettersSwitchesNoRule) {
    for (const char *name : {"No Calls", "No services", "Other"}) {
        database.addRule(name, "<ALLMESSAGES>", "", 0);
    }
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 3);
        user.type(u"No services");
        EXPECT_EQ(list(user).text(list(user).selectedRow()), u"No services");
        user.press(Key::escape);
    });
    EXPECT_EQ(database.value("SELECT COUNT(*) FROM SMS_RULES WHERE ACTIVE = 1"), "3");
}

TEST_P(RulesWindow, NewAndASaveListAllRulesAgainAndSelectTheFirst) {
    addThree();
    const std::string newName = "New Rule #" + std::to_string(std::stoi(idOf("C")) + 1);
    playRules([&](User &user) {
        user.clickRow(u"lvwRules", 3);
        whenShown(u"frmRuleEdit", [](User &editor) {
            editor.tickRow(u"lvwRuleConditions", 6);
            editor.tickRow(u"lvwRuleActions", 4);
            editor.click(u"cmdOK");
        });
        user.click(u"cmdNew");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{fromUtf8(newName), u"A", u"B", u"C"}));
        EXPECT_EQ(list(user).selectedRow(), 1);
        EXPECT_EQ(description(user), appliedToAll +
                                         u"\r\nThen Delete it\r\nand do not process any more "
                                         u"Rules");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{newName + "|1", "A|2", "B|3", "C|4"}));
}

TEST_P(RulesWindow, ModifyShowsTheNewNameAndLeavesPlaceAndTickAlone) {
    addThree();
    const std::string id = idOf("B");
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
    EXPECT_EQ(idOf("Renamed"), id);
}

TEST_P(RulesWindow, AfterACancelledModifyTheUnsavedRuleIsDescribedUntilTheNextClick) {
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

TEST_P(RulesWindow, RemoveAnsweredYesDeletesTheRowItself) {
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

TEST_P(RulesWindow, RemoveAnsweredNoEndsWithALoggedErrorAndNoVisibleChange) {
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

TEST_P(RulesWindow, RemovingTheLastOfSeveralRulesIsLoggedAndSelectsNone) {
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

TEST_P(RulesWindow, RemovingTheOnlyRuleClearsTheDescription) {
    const auto removed = database.addRule("A");
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
    EXPECT_EQ(database.rows("SELECT Name FROM SMS_RULES"),
              (std::vector<std::string>{"New Rule #1"}));
    EXPECT_GT(std::stoll(idOf("New Rule #1")), removed);
}

TEST_P(RulesWindow, RemovingARuleThatAnotherRemovedIsLoggedAndItsRowStays) {
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

TEST_P(RulesWindow, RulesWithNamesOfEveryScriptAreOrderedSwitchedAndRemoved) {
    int priority = 0;
    for (const char *name : {"दिल्ली के संदेश", "\xF0\x9F\x8C\x99 रात", "\xF0\x9F\x93\xB1"}) {
        database.addRule(name, "<ALLMESSAGES>", "", ++priority);
    }
    playRules([this](User &user) {
        user.tickRow(u"lvwRules", 2);
        user.clickRow(u"lvwRules", 3);
        user.click(u"cmdMoveUp");
        user.click(u"cmdMoveUp");
        user.clickRow(u"lvwRules", 2);
        utility.answers = {6};
        user.click(u"cmdRemove");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"\U0001F4F1", u"\U0001F319 रात"}));
        user.click(u"cmdOK");
    });
    expectLog({});
    EXPECT_EQ(database.rows("SELECT Name, PRIORITY, ACTIVE FROM SMS_RULES ORDER BY PRIORITY"),
              (std::vector<std::string>{"\xF0\x9F\x93\xB1|1|1", "\xF0\x9F\x8C\x99 रात|2|0"}));
}

} // namespace
} // namespace kvex::test
