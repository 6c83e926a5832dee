#include "platform/Text.h"
#include "tests/windows/RuleScenarios.h"

namespace kvex::test {
namespace {

TEST_P(RulesWindow, ShowsItsTitleCaptionsAndTabOrder) {
    addThree();
    playRules([](User &user) {
        EXPECT_EQ(user.window().caption(), u"SMS Rules");
        EXPECT_EQ(user.get<Label>(u"Label1").caption(),
                  u"These rules will be applied to incoming short messages");
        EXPECT_EQ(user.get<Label>(u"Label2").caption(), u"Rule description");
        EXPECT_FALSE(user.get<CommandButton>(u"cmdCopy").visible());
        EXPECT_FALSE(user.get<CommandButton>(u"cmdApply").visible());
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"lvwRules", u"cmdNew", u"cmdModify", u"cmdRemove", u"cmdMoveUp",
                         u"cmdMoveDown", u"rtRuleDesc", u"cmdOK", u"cmdCancel"}));
        EXPECT_EQ(user.focused(), u"lvwRules");
        user.press(Key::escape);
    });
}

TEST_P(RulesWindow, ListsRulesInPriorityOrderWithTheirHiddenColumns) {
    const std::u16string last = toText(database.addRule("Last", "<ALLMESSAGES>", "", 30));
    const std::u16string first = toText(database.addRule("First", "<ALLMESSAGES>", "", 5, 0));
    database.addRule("Gone", "<ALLMESSAGES>", "", 1);
    database.execute("UPDATE SMS_RULES SET DELETED = 1 WHERE Name = 'Gone'");
    playRules([&](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"First", u"Last"}));
        EXPECT_EQ(column(user, 1), (Texts{u"1", u"2"}));
        EXPECT_EQ(column(user, 2), (Texts{first, last}));
        EXPECT_EQ(column(user, 3), (Texts{u"00000005", u"00000030"}));
        EXPECT_EQ(list(user).key(1), u"RU" + first);
        EXPECT_FALSE(list(user).checked(1));
        EXPECT_TRUE(list(user).checked(2));
        EXPECT_EQ(list(user).selectedRow(), 1);
        EXPECT_EQ(description(user), disabledForAll);
        user.click(u"cmdCancel");
    });
}

TEST_P(RulesWindow, WithoutRulesItIsEmptyAndTheButtonsDoNothing) {
    const std::int32_t result = playRules([](User &user) {
        EXPECT_EQ(list(user).columnCount(), 4);
        EXPECT_EQ(list(user).rowCount(), 0);
        EXPECT_EQ(list(user).selectedRow(), 0);
        EXPECT_EQ(description(user), u"");
        user.click(u"cmdModify");
        user.click(u"cmdRemove");
        EXPECT_FALSE(session().blnChanged);
        user.click(u"cmdMoveUp");
        EXPECT_TRUE(session().blnChanged);
        session().blnChanged = false;
        user.click(u"cmdMoveDown");
        EXPECT_TRUE(session().blnChanged);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(result, 99);
}

TEST_P(RulesWindow, AClickedRowIsDescribedByItsCheckBox) {
    addThree();
    database.execute("UPDATE SMS_RULES SET ACTIVE = 0 WHERE Name = 'B'");
    playRules([](User &user) {
        user.clickRow(u"lvwRules", 2);
        EXPECT_EQ(description(user), disabledForAll);
        EXPECT_EQ(ruleState().strRuleName, u"B");
        EXPECT_EQ(ruleState().intRuleActive, 0);
        user.clickRow(u"lvwRules", 3);
        EXPECT_EQ(description(user), appliedToAll);
        user.click(u"cmdCancel");
    });
}

TEST_P(RulesWindow, TheDescriptionsAreOnlyRead) {
    addThree();
    playRules([this](User &user) {
        user.focusOn(u"rtRuleDesc");
        user.type(u"x");
        EXPECT_EQ(description(user), appliedToAll);
        whenShown(u"frmRuleEdit", [](User &editor) {
            const std::u16string shown = editor.get<RichTextBox>(u"rtRuleDesc").text();
            editor.focusOn(u"rtRuleDesc");
            editor.type(u"x");
            EXPECT_EQ(editor.get<RichTextBox>(u"rtRuleDesc").text(), shown);
            editor.click(u"cmdCancel");
        });
        user.click(u"cmdNew");
        user.click(u"cmdCancel");
    });
}

TEST_P(RulesWindow, OpensTheEditorOnTheRuleItWasGiven) {
    addThree();
    whenShown(u"frmRuleEdit", [](User &user) {
        EXPECT_EQ(user.window().caption(), u"Modify Rule");
        EXPECT_EQ(user.get<TextBox>(u"txtRuleName").text(), u"B");
        user.press(Key::escape);
    });
    whenShown(u"frmRules", [](User &user) {
        EXPECT_EQ(list(user).selectedRow(), 2);
        EXPECT_EQ(description(user), appliedToAll);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(showRules(fromUtf8(idOf("B"))), 1);
}

TEST_P(RulesWindow, ARuleThatDoesNotExistIsLoggedAndTheWindowStays) {
    addThree();
    whenShown(u"frmRules", [](User &user) {
        EXPECT_EQ(list(user).rowCount(), 3);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(showRules(u"99"), 1);
    expectLog({u"Sub: Form_Load, Module: frmRules"});
    EXPECT_EQ(logged.at(0).number, error_number::elementNotFound);
}

/// The list begins at the current record. After two new rules, that is the second.
TEST_P(RulesWindow, ASessionThatBeganEmptyListsFromWhereTheRecordSetStands) {
    const auto saveAs = [](const std::u16string &name) {
        return [name](User &editor) {
            editor.tickRow(conditions, row::forAllMessages);
            editor.tickRow(actions, row::noMoreRules);
            editor.focusOn(u"txtRuleName");
            editor.press(Key::selectAll);
            editor.type(name);
            editor.click(u"cmdOK");
        };
    };
    whenShown(u"frmRuleEdit", saveAs(u"A"));
    whenShown(u"frmRules", [&](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A"}));
        EXPECT_EQ(list(user).selectedRow(), 1);
        EXPECT_EQ(ruleState().strRuleName, u"A");
        whenShown(u"frmRuleEdit", saveAs(u"B"));
        user.click(u"cmdNew");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"B"}));
        EXPECT_EQ(list(user).selectedRow(), 1);
        user.click(u"cmdCancel");
    });
    showRules(u"");
}

TEST_P(RulesWindow, TickingStoresAtOnceAndCancelKeepsIt) {
    addThree();
    const std::int32_t result = playRules([this](User &user) {
        user.tickRow(u"lvwRules", 2);
        EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'B'"), "0");
        EXPECT_EQ(list(user).selectedRow(), 2);
        EXPECT_EQ(description(user), disabledForAll);
        user.tickRow(u"lvwRules", 3);
        user.tickRow(u"lvwRules", 3);
        EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'C'"), "1");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(result, 99);
    EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'B'"), "0");
}

TEST_P(RulesWindow, SpaceTicksTheSelectedRule) {
    addThree();
    playRules([this](User &user) {
        user.press(Key::down);
        user.press(Key::space);
        EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'B'"), "0");
        user.press(Key::escape);
    });
}

TEST_P(RulesWindow, ATickThatTheDatabaseRefusesLeavesTheWindowUsable) {
    addThree();
    playRules([this](User &user) {
        database.refuseChanges();
        user.tickRow(u"lvwRules", 2);
        database.permit();
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(list(user).selectedRow(), 2);
        EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'B'"), "1");
        user.clickRow(u"lvwRules", 1);
        EXPECT_EQ(description(user), appliedToAll);
        // The check box keeps the state that the user attempted, and the description says the same.
        user.clickRow(u"lvwRules", 2);
        EXPECT_EQ(description(user), u"This Rule is disabled\r\nFor ALL Messages");
        user.click(u"cmdCancel");
    });
    expectedUnhandledErrors = 1;
}

TEST_P(RulesWindow, ARowThatCannotBeReadEndsTheListWithoutAHalfRow) {
    addThree();
    database.execute("UPDATE SMS_RULES SET ACTIVE = NULL WHERE Name = 'B'");
    playRules([](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A"}));
        EXPECT_EQ(list(user).selectedRow(), 0);
        EXPECT_EQ(description(user), u"Apply this Rule after the message arrives");
        user.click(u"cmdCancel");
    });
    // The list is filled at the start. It is filled again after the cancelled editor, as it then
    // differs from the record set.
    expectLog({u"Sub: ListRules, Module: frmRules", u"Sub: ListRules, Module: frmRules"});
}

TEST_P(RulesWindow, NamesOfEveryKindAreShownAsStored) {
    database.addRule("O'Brien's", "<ALLMESSAGES>", "", 1);
    database.addRule("  blanks  ", "<ALLMESSAGES>", "", 2);
    database.addRule("नियम", "<ALLMESSAGES>", "", 3);
    database.addRule("\xF0\x9F\x93\xB1 & <b>", "<ALLMESSAGES>", "", 4);
    playRules([](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"),
                  (Texts{u"O'Brien's", u"  blanks  ", u"नियम", u"\U0001F4F1 & <b>"}));
        user.click(u"cmdCancel");
    });
}

} // namespace
} // namespace kvex::test
