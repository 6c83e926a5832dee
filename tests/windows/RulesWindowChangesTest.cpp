#include "platform/Text.h"
#include "tests/windows/Questions.h"
#include "tests/windows/RuleScenarios.h"

namespace kvex::test {
namespace {

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
            editor.tickRow(conditions, row::forAllMessages);
            editor.tickRow(actions, row::deleteIt);
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

TEST_P(RulesWindow, ModifyLoadsTheSelectedRuleAnew) {
    addThree();
    database.execute("UPDATE SMS_RULES SET ACTIVE = 0 WHERE Name = 'B'");
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 2);
        whenShown(u"frmRuleEdit", [](User &editor) {
            editor.tickRow(conditions, row::ignoreForService);
            editor.click(u"cmdCancel");
        });
        user.click(u"cmdNew");
        whenShown(u"frmRuleEdit", [&user](User &editor) {
            EXPECT_EQ(editor.get<TextBox>(u"txtRuleName").text(), u"B");
            EXPECT_EQ(ruleState().intRuleActive, 0);
            EXPECT_EQ(description(editor), disabledForAll);
            EXPECT_EQ(description(user), disabledForAll);
            editor.click(u"cmdCancel");
        });
        user.click(u"cmdModify");
        user.click(u"cmdCancel");
    });
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
            editor.tickRow(actions, row::noMoreRules);
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
            editor.tickRow(actions, row::deleteIt);
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
    expectMessages({removeQuestion});
}

/// When a name is taken, the record set stays on the rule that has it.
TEST_P(RulesWindow, RemoveAndModifyFindTheirRuleWhereverTheRecordSetStands) {
    addThree();
    playRules([this](User &user) {
        const auto refuseName = [this](User &editor) {
            editor.tickRow(actions, row::noMoreRules);
            editor.focusOn(u"txtRuleName");
            editor.press(Key::selectAll);
            editor.type(u"A");
            editor.click(u"cmdOK");
            expectMessages(
                {{u"A Rule already exists in this name, please select a different name.", 48}});
            EXPECT_EQ(session().rsRules->field(u"Name").text(), u"A");
            editor.press(Key::escape);
        };
        user.clickRow(u"lvwRules", 2);
        whenShown(u"frmRuleEdit", refuseName);
        user.click(u"cmdModify");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
        whenShown(u"frmRuleEdit", [&](User &editor) {
            editor.tickRow(conditions, row::forAllMessages);
            refuseName(editor);
        });
        user.click(u"cmdNew");
        utility.answers = {6};
        user.click(u"cmdRemove");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"C"}));
        user.click(u"cmdCancel");
    });
    expectMessages({removeQuestion});
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{"A|1", "C|3"}));
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
    expectMessages({removeQuestion});
    expectLog({u"Sub: cmdRemove_Click, Module: frmRules"});
    EXPECT_EQ(logged.at(0).number, error_number::indexOutOfBounds);
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
    expectMessages({removeQuestion});
    expectLog({u"Sub: cmdRemove_Click, Module: frmRules"});
}

TEST_P(RulesWindow, RemovingTheFirstOfTwoRulesLoadsTheOther) {
    database.addRule("A", "<ALLMESSAGES>", "", 1);
    database.addRule("B", "<ALLMESSAGES>", "", 2, 0);
    playRules([this](User &user) {
        user.clickRow(u"lvwRules", 1);
        utility.answers = {6};
        user.click(u"cmdRemove");
        EXPECT_EQ(ruleState().strRuleName, u"B");
        EXPECT_EQ(description(user), disabledForAll);
        user.click(u"cmdCancel");
    });
    expectMessages({removeQuestion});
}

TEST_P(RulesWindow, RemovingTheOnlyRuleClearsTheDescription) {
    const auto removed = database.addRule("A");
    playRules([this](User &user) {
        utility.answers = {6};
        user.click(u"cmdRemove");
        EXPECT_EQ(list(user).rowCount(), 0);
        EXPECT_EQ(description(user), u"");
        // The window still works: the first rule can be saved again.
        whenShown(u"frmRuleEdit", [](User &editor) {
            editor.tickRow(conditions, row::forAllMessages);
            editor.tickRow(actions, row::noMoreRules);
            editor.click(u"cmdOK");
        });
        user.click(u"cmdNew");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"New Rule #1"}));
        user.click(u"cmdOK");
    });
    expectMessages({removeQuestion});
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
    expectMessages({removeQuestion});
    expectLog({u"Sub: cmdRemove_Click, Module: frmRules"});
    EXPECT_LT(logged.at(0).number, 0);
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
    expectMessages({removeQuestion});
    EXPECT_EQ(database.rows("SELECT Name, PRIORITY, ACTIVE FROM SMS_RULES ORDER BY PRIORITY"),
              (std::vector<std::string>{"\xF0\x9F\x93\xB1|1|1", "\xF0\x9F\x8C\x99 रात|2|0"}));
}

TEST_P(RulesWindow, RemoveTakesTheSelectedRuleWhereverTheRecordSetStands) {
    addThree(10, 10);
    utility.answers = {message_box::yes};
    playRules([](User &user) {
        // The move selects another rule than the clicked one. The clicked rule's record stays
        // current.
        user.clickRow(u"lvwRules", 3);
        user.click(u"cmdMoveUp");
        EXPECT_EQ(list(user).text(list(user).selectedRow()), u"B");
        user.click(u"cmdRemove");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"C", u"A"}));
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(storedOrder(), (std::vector<std::string>{"A|10", "C|30"}));
    expectMessages({removeQuestion});
}

} // namespace
} // namespace kvex::test
