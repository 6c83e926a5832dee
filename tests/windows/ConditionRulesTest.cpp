// The user composes whole rules in the conditions' dialogs and saves them.
#include "tests/windows/ConditionDialogFixture.h"

namespace kvex::test {
namespace {

using ConditionRules = ConditionDialog;

const Script notAndOk = [](User &options) {
    options.click(u"opgConNotmodifier(1)");
    options.click(u"cmdOK");
};

TEST_F(ConditionRules, PeopleAreSavedAndDescribed) {
    playEditor(0, [this](User &editor) {
        edit(editor, people, [](User &user) {
            for (const char16_t *number : {u"9811100011", u"9811100022"}) {
                user.type(number);
                user.press(Key::enter);
            }
            user.click(u"cmdOK");
        });
        EXPECT_EQ(description(editor), u"Apply this Rule after the message arrives\r\nIf the "
                                       u"message is from 9811100011 or 9811100022");
        EXPECT_EQ(save(editor), "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE>"
                                "<PEOPLE><CON><ANY>9811100011;9811100022</PEOPLE>");
    });
}

TEST_F(ConditionRules, EveryConditionWithItsModifiersIsSavedToTheByte) {
    database.addAccount(3, "Main");
    database.addAccount(7, "Backup");
    platform.addressBook.numbers = {u"9811100022"};
    playEditor(0, [this](User &editor) {
        edit(editor, people, [this](User &user) {
            user.type(u"9811100011");
            user.press(Key::enter);
            user.click(u"cmdAddressBook");
            whenShown(u"frmRuleOptions", notAndOk);
            user.click(u"cmdOptions");
            user.click(u"cmdOK");
        });
        edit(editor, accounts, [this](User &user) {
            user.doubleClickRow(u"lvwAccountSource", 2);
            user.doubleClickRow(u"lvwAccountSource", 1);
            whenShown(u"frmRuleOptions", notAndOk);
            user.click(u"cmdOptions");
            user.click(u"cmdOK");
        });
        edit(editor, words, [this](User &user) {
            user.type(u"STOP");
            user.press(Key::enter);
            user.type(u"price list");
            user.press(Key::enter);
            whenShown(u"frmRuleOptions", [](User &options) {
                options.click(u"opgAllAnyModifier(0)");
                options.click(u"cmdOK");
            });
            user.click(u"cmdOptions");
            user.click(u"cmdOK");
        });
        EXPECT_EQ(description(editor), u"Apply this Rule after the message arrives\r\n"
                                       u"If the message is not from 9811100011 or 9811100022\r\n"
                                       u"and the message is not received through Backup or Main\r\n"
                                       u"and the message contains the words STOP and price list");
        EXPECT_EQ(save(editor), "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE>"
                                "<PEOPLE><NOT><ANY>9811100011;9811100022</PEOPLE>"
                                "<ACCOUNT><NOT><ANY>7;3</ACCOUNT>"
                                "<WORD><CON><ALL>STOP;price list</WORD>");
    });
}

TEST_F(ConditionRules, WordsAsACommandAreSavedWithAny) {
    const auto id = database.addRule("Rule", "<WORD><NOT><ALL>STOP;HALT</WORD>");
    playEditor(id, [this](User &editor) {
        edit(editor, words, [this](User &user) {
            user.click(u"chkWordAsCommand");
            whenShown(u"frmRuleOptions", [](User &options) { options.press(Key::enter); });
            user.click(u"cmdOptions");
            user.click(u"cmdOK");
        });
        EXPECT_EQ(description(editor),
                  u"Apply this Rule after the message arrives\r\nIf the message does not contain "
                  u"the words  (as SMS Command) STOP or HALT");
        EXPECT_EQ(save(editor), "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE>"
                                "<WORD><NOT><ANY><ASCOMMAND>STOP;HALT</WORD>");
    });
}

TEST_F(ConditionRules, AStoredAllOfPeopleAndAccountsLastsUntilTheirOptionsAreConfirmed) {
    database.addAccount(3, "Main");
    const auto query = "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ALL>98;99</PEOPLE>"
                       "<ACCOUNT><NOT><ALL>3</ACCOUNT>";
    const auto id = database.addRule("Rule", query);
    playEditor(id, [&](User &editor) {
        for (const Condition &condition : {people, accounts}) {
            edit(editor, condition, [](User &user) { user.click(u"cmdOK"); });
        }
        EXPECT_EQ(save(editor), query);
    });
    closeSession();
    playEditor(id, [this](User &editor) {
        for (const Condition &condition : {people, accounts}) {
            edit(editor, condition, [this](User &user) {
                whenShown(u"frmRuleOptions", [](User &options) { options.press(Key::enter); });
                user.click(u"cmdOptions");
                user.press(Key::escape);
            });
        }
        EXPECT_EQ(description(editor), u"Apply this Rule after the message arrives\r\n"
                                       u"If the message is from 98 or 99\r\n"
                                       u"and the message is not received through Main\r\n"
                                       u"Then do not process any more Rules");
        editor.click(u"cmdOK");
    });
    EXPECT_EQ(database.value("SELECT QueryParam FROM SMS_RULES"),
              "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>98;99</PEOPLE>"
              "<ACCOUNT><NOT><ANY>3</ACCOUNT>");
}

TEST_F(ConditionRules, ACancelledDialogLeavesTheTickedConditionWithoutItsValues) {
    playEditor(0, [this](User &editor) {
        for (const Condition &condition : {people, accounts, words}) {
            edit(editor, condition, [](User &user) { user.click(u"cmdCancel"); });
        }
        EXPECT_EQ(description(editor), u"Apply this Rule after the message arrives");
        editor.tickRow(actions, row::noMoreRules);
        editor.click(u"cmdOK");
        EXPECT_TRUE(editor.isOpen());
    });
    expectMessages({{u"Insufficient information. Please select the People for this rule.",
                     message_box::exclamation}});
}

TEST_F(ConditionRules, ADialogLetsTheEditorsFlagStandAndSetsIt) {
    const auto id = database.addRule("Rule", "<PEOPLE><CON><ANY>98;99</PEOPLE>");
    playEditor(id, [this](User &editor) {
        edit(editor, people, [](User &user) { user.click(u"cmdOK"); });
        EXPECT_FALSE(session().blnChanged);
        edit(editor, people, [](User &user) {
            user.click(u"cmdClear");
            user.click(u"cmdCancel");
        });
        EXPECT_TRUE(session().blnChanged);
    });
    expectMessages({clearQuestion});
}

} // namespace
} // namespace kvex::test
