#include "tests/windows/ActionDialogsOnScreen.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/RichTextBox.h"

#include <set>

namespace kvex::test {
namespace {

using Rows = std::vector<int>;

TEST_P(ActionDialogsOnScreen, AReplyOfSeveralLinesIsWrittenByKeyboardAlone) {
    play(row::reply, [](OnScreenUser &user) {
        EXPECT_EQ(user.focused(), u"rtReplyText");
        user.type(u"Hello\n\nनमस्ते \U0001F4F1");
        EXPECT_EQ(user.get<RichTextBox>(u"rtReplyText").text(), u"Hello\r\n\r\nनमस्ते \U0001F4F1");
        EXPECT_EQ(count(user), u"18");
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"txtCharCount");
        user.type(u"7");
        EXPECT_EQ(count(user), u"18");
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"lvwOutAccount");
        user.press(Key::down);
        user.press(Key::space);
        EXPECT_EQ(ticked(user), Rows{2});
        user.press(Key::enter);
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(ruleState().strReplyText, u"Hello\r\n\r\nनमस्ते \U0001F4F1");
    EXPECT_EQ(ruleState().strReplyAccount, u"5");
}

TEST_P(ActionDialogsOnScreen, TabLeavesTheTextInBothDirectionsAndInsertsNothing) {
    play(row::reply, [](OnScreenUser &user) {
        user.type(u"a");
        user.press(Key::shiftTab);
        EXPECT_EQ(user.focused(), u"cmdCancel");
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"rtReplyText");
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"txtCharCount");
        EXPECT_EQ(user.get<RichTextBox>(u"rtReplyText").text(), u"a");
        user.press(Key::escape);
    });
}

TEST_P(ActionDialogsOnScreen, AccountsAreASingleChoiceByMouse) {
    play(row::reply, [](OnScreenUser &user) {
        user.tickRow(u"lvwOutAccount", 1);
        user.tickRow(u"lvwOutAccount", 2);
        EXPECT_EQ(ticked(user), Rows{2});
        EXPECT_EQ(user.get<ListView>(u"lvwOutAccount").selectedRow(), 2);
        user.tickRow(u"lvwOutAccount", 2);
        EXPECT_EQ(ticked(user), Rows());
        user.clickRow(u"lvwOutAccount", 1);
        EXPECT_EQ(ticked(user), Rows());
        user.closeByFrame();
    });
}

TEST_P(ActionDialogsOnScreen, ARefusedReplyLeadsToTheAccounts) {
    play(row::reply, [](OnScreenUser &user) {
        EXPECT_EQ(user.waitsFor(u"cmdOK"), u"Type a text first");
        user.type(u"Hi");
        EXPECT_EQ(user.waitsFor(u"cmdOK"), u"");
        user.pressAccessKey(u'O');
        EXPECT_EQ(user.focused(), u"lvwOutAccount");
        user.pressAccessKey(u'C');
    });
    EXPECT_EQ(utility.messages.size(), 1U);
}

TEST_P(ActionDialogsOnScreen, WhatIsPastedIntoATextIsKeptToTheUnit) {
    stage->setClipboardText(u"  one\ttwo\u00A0\nthree \U0001F600 ");
    play(row::alert, [](OnScreenUser &user) {
        user.press(Key::paste);
        EXPECT_EQ(user.get<RichTextBox>(u"rtAlertText").text(),
                  u"  one\ttwo\u00A0\r\nthree \U0001F600 ");
        EXPECT_EQ(count(user), u"21");
        user.press(Key::escape);
    });
}

TEST_P(ActionDialogsOnScreen, RecipientsAreAddedByEnterAndClearedAfterTheQuestion) {
    utility.answers = {message_box::no, message_box::yes};
    play(row::alert, [](OnScreenUser &user) {
        user.type(u"Look");
        user.pressAccessKey(u'R');
        EXPECT_EQ(user.focused(), u"txtMobileNo");
        user.type(u"+98 12x");
        user.press(Key::enter);
        EXPECT_EQ(user.focused(), u"txtMobileNo");
        user.type(u"97");
        user.press(Key::enter);
        EXPECT_EQ(user.rows(u"lvwPeople"), (Texts{u"    9812", u"    97"}));
        user.press(Key::enter);
        EXPECT_TRUE(user.isOpen());
        user.pressAccessKey(u'L');
        EXPECT_EQ(user.rows(u"lvwPeople").size(), 2U);
        user.pressAccessKey(u'L');
        EXPECT_EQ(user.rows(u"lvwPeople"), Texts());
        EXPECT_FALSE(user.get<CommandButton>(u"cmdOK").enabled());
        user.press(Key::escape);
    });
    EXPECT_EQ(utility.messages.size(), 2U);
}

TEST_P(ActionDialogsOnScreen, OnceThereAreRecipientsTheirAccessKeyTurnsToRemoveToo) {
    play(row::alert, [](OnScreenUser &user) {
        user.pressAccessKey(u'R');
        user.type(u"98\r");
        user.focusOn(u"rtAlertText");
        user.pressAccessKey(u'R');
        const std::u16string first = user.focused();
        user.pressAccessKey(u'R');
        EXPECT_EQ((std::set{first, user.focused()}),
                  (std::set<std::u16string>{u"txtMobileNo", u"cmdRemove"}));
        EXPECT_EQ(user.rows(u"lvwPeople"), Texts{u"    98"});
        user.press(Key::escape);
    });
}

TEST_P(ActionDialogsOnScreen, AnAlertIsComposedAndConfirmed) {
    platform.addressBook.numbers = {u"91", u"92"};
    play(row::alert, [](OnScreenUser &user) {
        user.type(u"Look: @@SMS@@");
        user.tickRow(u"lvwOutAccount", 1);
        user.click(u"cmdAddressBook");
        user.clickRow(u"lvwPeople", 1);
        user.click(u"cmdRemove");
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(ruleState().strAlertText, u"Look: @@SMS@@");
    EXPECT_EQ(ruleState().strAlertAccount, u"2");
    EXPECT_EQ(ruleState().strAlertRecipients, u"92");
}

TEST_P(ActionDialogsOnScreen, AnAlertWithoutRecipientsLeadsToTheirList) {
    play(row::alert, [](OnScreenUser &user) {
        user.type(u"Look");
        user.tickRow(u"lvwOutAccount", 1);
        user.click(u"cmdOK");
        EXPECT_EQ(user.focused(), u"lvwPeople");
        user.press(Key::escape);
    });
    EXPECT_EQ(utility.messages.size(), 1U);
}

TEST_P(ActionDialogsOnScreen, UsersAreSelectedByDoubleClickAndByKeys) {
    play(row::distribute, [](OnScreenUser &user) {
        EXPECT_EQ(user.focused(), u"lvwUsersSource");
        user.doubleClickBesideRows(u"lvwUsersSource");
        EXPECT_EQ(user.rows(u"lvwUsersSelected"), Texts());
        user.doubleClickRow(u"lvwUsersSource", 3);
        EXPECT_EQ(user.rows(u"lvwUsersSelected"), Texts{u"Meena"});
        user.press(Key::home);
        user.pressAccessKey(u'S');
        EXPECT_EQ(user.rows(u"lvwUsersSelected"), (Texts{u"Meena", u"Asha"}));
        user.pressAccessKey(u'S');
        EXPECT_EQ(user.rows(u"lvwUsersSelected").size(), 2U);
        user.clickRow(u"lvwUsersSelected", 1);
        user.pressAccessKey(u'R');
        user.pressAccessKey(u'O');
    });
    EXPECT_EQ(ruleState().strDistribution, u"3");
}

TEST_P(ActionDialogsOnScreen, TabWalksTheControlsInTheirOrder) {
    play(row::reply, [](OnScreenUser &user) {
        user.type(u"a");
        EXPECT_EQ(user.tabOrder(), (Texts{u"rtReplyText", u"txtCharCount", u"lvwOutAccount",
                                          u"cmdOK", u"cmdCancel"}));
        user.press(Key::escape);
    });
    play(row::alert, [](OnScreenUser &user) {
        user.pressAccessKey(u'R');
        user.type(u"98\r99");
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"rtAlertText", u"txtCharCount", u"lvwOutAccount", u"txtMobileNo",
                         u"cmdAdd", u"cmdAddressBook", u"lvwPeople", u"cmdRemove", u"cmdClear",
                         u"cmdOK", u"cmdCancel"}));
        user.press(Key::escape);
    });
    play(row::distribute, [](OnScreenUser &user) {
        user.click(u"cmdAll");
        EXPECT_EQ(user.tabOrder(), (Texts{u"lvwUsersSource", u"cmdSelect", u"cmdAll", u"cmdRemove",
                                          u"lvwUsersSelected", u"cmdOK", u"cmdCancel"}));
        user.press(Key::escape);
    });
}

TEST_P(ActionDialogsOnScreen, FiveThousandUsersAreSelectedTogether) {
    database.execute("WITH RECURSIVE n(i) AS (SELECT 10 UNION ALL SELECT i + 1 FROM n WHERE i < "
                     "5000) INSERT INTO SMS_USERS (ID, NAME) SELECT i, 'User ' || i FROM n");
    play(row::distribute, [](OnScreenUser &user) {
        user.pressAccessKey(u'A');
        user.focusOn(u"lvwUsersSelected");
        user.press(Key::end);
        user.pressAccessKey(u'R');
        user.pressAccessKey(u'O');
    });
    EXPECT_TRUE(ruleState().strDistribution.starts_with(u"3;7;9;10;"));
    EXPECT_TRUE(ruleState().strDistribution.ends_with(u";4998;4999"));
}

} // namespace
} // namespace kvex::test
