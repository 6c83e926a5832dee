#include "platform/controls/Buttons.h"
#include "platform/controls/RichTextBox.h"
#include "tests/windows/EditorRows.h"
#include "tests/windows/OnScreen.h"

namespace kvex::test {
namespace {

TEST_P(WindowsOnScreen, ARuleIsComposedNamedAndSavedByKeyboardAlone) {
    play.whenShown(u"frmRuleEdit", [](OnScreenUser &user) {
        EXPECT_EQ(user.focused(), u"lvwRuleConditions");
        user.press(Key::end);
        user.press(Key::space);
        user.pressAccessKey(u'A');
        EXPECT_EQ(user.focused(), u"lvwRuleActions");
        for (int i = 0; i < 3; ++i) {
            user.press(Key::down);
        }
        user.press(Key::space);
        user.pressAccessKey(u'N');
        EXPECT_EQ(user.focused(), u"txtRuleName");
        user.press(Key::selectAll);
        user.type(u"Keys नियम \U0001F4F1");
        user.press(Key::enter);
    });
    play.whenShown(u"frmRules", [](OnScreenUser &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"Keys नियम \U0001F4F1", u"A", u"B", u"C"}));
        EXPECT_EQ(description(user),
                  u"Apply this Rule after the message arrives\r\nFor ALL Messages\r\nThen Delete "
                  u"it\r\nand do not process any more Rules");
        user.press(Key::enter);
    });
    EXPECT_EQ(showRules(u""), 99);
    EXPECT_EQ(database.value("SELECT Name, QueryParam, ActionParam, PRIORITY FROM SMS_RULES WHERE "
                             "ID = 4"),
              "Keys नियम \xF0\x9F\x93\xB1|<ALLMESSAGES>|<DELETE>YES</DELETE>"
              "<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>|1");
}

TEST_P(WindowsOnScreen, ARuleIsSwitchedOffByMouseAtOnce) {
    playRules([this](OnScreenUser &user) {
        user.tickRow(u"lvwRules", 2);
        EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'B'"), "0");
        EXPECT_EQ(user.get<ListView>(u"lvwRules").selectedRow(), 2);
        EXPECT_EQ(description(user), u"This Rule is disabled\r\nFor ALL Messages");
        user.click(u"cmdCancel");
    });
}

TEST_P(WindowsOnScreen, ABlankInASearchByFirstLettersSwitchesNoRule) {
    database.addRule("No services", "<ALLMESSAGES>", "", 9);
    playRules([this](OnScreenUser &user) {
        user.type(u"No services");
        EXPECT_EQ(user.get<ListView>(u"lvwRules").selectedRow(), 4);
        EXPECT_EQ(database.value("SELECT COUNT(*) FROM SMS_RULES WHERE ACTIVE = 1"), "4");
        user.press(Key::escape);
    });
}

TEST_P(WindowsOnScreen, ATickThatTheDatabaseRefusesGivesAMessage) {
    playRules([this](OnScreenUser &user) {
        database.execute("CREATE TRIGGER refuse BEFORE UPDATE ON SMS_RULES BEGIN "
                         "SELECT RAISE(ABORT, 'reserved'); END");
        user.tickRow(u"lvwRules", 2);
        database.execute("DROP TRIGGER refuse");
        ASSERT_EQ(play.messageBoxes().size(), 1U);
        const std::u16string text = play.messageBoxes().front().text;
        EXPECT_TRUE(text.starts_with(u"The change of record ID 2 was not stored. The database "))
            << toUtf8(text);
        EXPECT_TRUE(text.ends_with(u" refuses these values (reserved).")) << toUtf8(text);
        user.clickRow(u"lvwRules", 1);
        EXPECT_EQ(ruleState().strRuleName, u"A");
        user.press(Key::escape);
    });
    EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'B'"), "1");
}

TEST_P(WindowsOnScreen, RulesAreMovedByTheirAccessKeysAndStoredByOk) {
    EXPECT_EQ(playRules([](OnScreenUser &user) {
                  user.clickRow(u"lvwRules", 3);
                  user.pressAccessKey(u'U');
                  user.pressAccessKey(u'U');
                  EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"C", u"A", u"B"}));
                  user.pressAccessKey(u'D');
                  EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"C", u"B"}));
                  EXPECT_EQ(user.get<ListView>(u"lvwRules").selectedRow(), 2);
                  user.pressAccessKey(u'O');
              }),
              99);
    EXPECT_EQ(database.rows("SELECT Name FROM SMS_RULES ORDER BY PRIORITY"),
              (std::vector<std::string>{"A", "C", "B"}));
}

TEST_P(WindowsOnScreen, ARuleIsRemovedAndTheNextTakesItsPlace) {
    playRules([this](OnScreenUser &user) {
        user.clickRow(u"lvwRules", 2);
        utility.answers = {message_box::yes};
        user.click(u"cmdRemove");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"C"}));
        EXPECT_EQ(user.get<ListView>(u"lvwRules").selectedRow(), 2);
        EXPECT_EQ(user.focused(), u"lvwRules");
        EXPECT_EQ(ruleState().strRuleName, u"C");
        user.press(Key::escape);
    });
    EXPECT_EQ(database.value("SELECT COUNT(*) FROM SMS_RULES"), "2");
}

TEST_P(WindowsOnScreen, ARuleIsModifiedOverTheRulesWindow) {
    playRules([this](OnScreenUser &user) {
        user.clickRow(u"lvwRules", 2);
        play.whenShown(u"frmRuleEdit", [](OnScreenUser &editor) {
            EXPECT_EQ(editor.window().caption(), u"Modify Rule");
            editor.focusOn(u"txtRuleName");
            editor.press(Key::selectAll);
            editor.type(u"Changed");
            editor.tickRow(actions, row::noMoreRules);
            editor.click(u"cmdOK");
        });
        user.click(u"cmdModify");
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"Changed", u"C"}));
        user.closeByFrame();
    });
    EXPECT_EQ(database.value("SELECT Name FROM SMS_RULES WHERE ID = 2"), "Changed");
}

TEST_P(WindowsOnScreen, AWarningLeavesTheEditorOpenAndPointsAtTheName) {
    playNewRule([](OnScreenUser &user) {
        user.tickRow(conditions, row::forAllMessages);
        user.tickRow(actions, row::noMoreRules);
        user.focusOn(u"txtRuleName");
        user.press(Key::selectAll);
        user.type(u"   ");
        user.click(u"cmdOK");
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(user.focused(), u"txtRuleName");
        user.press(Key::escape);
    });
    EXPECT_EQ(utility.messages, (std::vector<Message>{{u"Type a name for this Rule.", 48}}));
}

TEST_P(WindowsOnScreen, ADisabledButtonSaysWhatItWaitsFor) {
    playNewRule([](OnScreenUser &user) {
        EXPECT_NE(user.waitsFor(u"cmdEditCondition"), u"");
        user.tickRow(conditions, row::fromPeople);
        EXPECT_TRUE(user.get<CommandButton>(u"cmdEditCondition").enabled());
        EXPECT_EQ(user.waitsFor(u"cmdEditCondition"), u"");
        user.press(Key::escape);
    });
}

TEST_P(WindowsOnScreen, TabWalksTheWindowsInTheirOrder) {
    playRules([](OnScreenUser &user) {
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"lvwRules", u"cmdNew", u"cmdModify", u"cmdRemove", u"cmdMoveUp",
                         u"cmdMoveDown", u"rtRuleDesc", u"cmdOK", u"cmdCancel"}));
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"cmdNew");
        user.press(Key::escape);
    });
}

TEST_P(WindowsOnScreen, TenThousandRulesAreScrolledAndMoved) {
    database.execute("WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT i + 1 FROM n WHERE i < "
                     "10000) INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY) "
                     "SELECT 'Rule ' || i, '<ALLMESSAGES>', '', i FROM n");
    playRules([](OnScreenUser &user) {
        user.press(Key::end);
        EXPECT_EQ(user.get<ListView>(u"lvwRules").selectedRow(), 10000);
        EXPECT_EQ(ruleState().strRuleName, u"Rule 10000");
        user.pressAccessKey(u'U');
        EXPECT_EQ(user.get<ListView>(u"lvwRules").text(9999), u"Rule 10000");
        user.pressAccessKey(u'O');
    });
    EXPECT_EQ(database.value("SELECT Name FROM SMS_RULES WHERE PRIORITY = 9999"), "Rule 10000");
}

} // namespace
} // namespace kvex::test
