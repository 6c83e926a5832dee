#include "platform/controls/Buttons.h"
#include "tests/windows/ConditionsOnScreen.h"
#include "tests/windows/EditorRows.h"

#include <algorithm>

namespace kvex::test {
namespace {

TEST_P(ConditionsOnScreen, NumbersAreTypedRemovedAndStoredByKeyboardAlone) {
    playDialog(row::fromPeople, [](OnScreenUser &user) {
        EXPECT_EQ(user.focused(), u"txtMobileNo");
        expectEnabled(user, false);
        for (const char16_t *number : {u"98a1", u"9.9", u"97"}) {
            user.type(number);
            user.press(Key::enter);
            EXPECT_EQ(user.focused(), u"txtMobileNo");
        }
        EXPECT_EQ(rowsBelowHeading(user, u"lvwPeople"), (Texts{u"    981", u"    99", u"    97"}));
        expectEnabled(user, true);
        EXPECT_FALSE(user.isUsable(u"cmdAdd"));
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"lvwPeople");
        // From the heading to the second number.
        for (int i = 0; i < 3; ++i) {
            user.press(Key::down);
        }
        user.pressAccessKey(u'R');
        EXPECT_EQ(rowsBelowHeading(user, u"lvwPeople"), (Texts{u"    981", u"    97"}));
        user.pressAccessKey(u'P');
        EXPECT_EQ(user.focused(), u"txtMobileNo");
        user.pressAccessKey(u'O');
    });
    EXPECT_EQ(ruleState().strPeople, u"981;97");
    EXPECT_TRUE(session().blnChanged);
}

TEST_P(ConditionsOnScreen, NumbersComeFromTheAddressBookAndGoByMouse) {
    platform.addressBook.numbers = {u"98", u"99"};
    utility.answers = {message_box::no, message_box::yes};
    openSession();
    session().strUserID = u"1";
    playDialog(row::fromPeople, [this](OnScreenUser &user) {
        user.click(u"cmdAddressBook");
        EXPECT_EQ(rowsBelowHeading(user, u"lvwPeople"), (Texts{u"    98", u"    99"}));
        user.clickRow(u"lvwPeople", 1);
        user.click(u"cmdRemove");
        EXPECT_EQ(rowsBelowHeading(user, u"lvwPeople"), Texts{u"    99"});
        EXPECT_EQ(user.get<ListView>(u"lvwPeople").selectedRow(), 2);
        user.click(u"cmdClear");
        EXPECT_EQ(rowsBelowHeading(user, u"lvwPeople"), Texts{u"    99"});
        user.click(u"cmdClear");
        EXPECT_EQ(rowsBelowHeading(user, u"lvwPeople"), Texts());
        expectEnabled(user, false);
        EXPECT_EQ(utility.messages,
                  (std::vector<Message>(
                      2, {u"Are you sure you want to clear the list?", message_box::yesNo})));
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(ruleState().strPeople, u"");
}

TEST_P(ConditionsOnScreen, AccountsAreAddedByEnterAndDoubleClick) {
    database.addAccount(3, "Main");
    database.addAccount(7, "मुख्य \xF0\x9F\x93\xB1");
    database.addAccount(8, "Sender", "TRANSMITTER");
    playDialog(row::throughAccounts, [](OnScreenUser &user) {
        EXPECT_EQ(user.focused(), u"lvwAccountSource");
        EXPECT_EQ(user.rows(u"lvwAccountSource"), (Texts{u"Main", u"मुख्य \U0001F4F1"}));
        expectEnabled(user, true);
        user.press(Key::enter);
        user.doubleClickBesideRows(u"lvwAccountSource");
        EXPECT_EQ(rowsBelowHeading(user, u"lvwAccountSelected"), Texts{u"    Main"});
        user.doubleClickRow(u"lvwAccountSource", 1);
        user.doubleClickRow(u"lvwAccountSource", 2);
        EXPECT_EQ(rowsBelowHeading(user, u"lvwAccountSelected"),
                  (Texts{u"    Main", u"    मुख्य \U0001F4F1"}));
        user.clickRow(u"lvwAccountSelected", 2);
        user.click(u"cmdRemove");
        EXPECT_EQ(rowsBelowHeading(user, u"lvwAccountSelected"), Texts{u"    मुख्य \U0001F4F1"});
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().varAccounts, u"7");
}

TEST_P(ConditionsOnScreen, TheSharedAccessKeyOfAccountsPressesNothing) {
    database.addAccount(3, "Main");
    playDialog(row::throughAccounts, [](OnScreenUser &user) {
        Texts reached;
        for (int i = 0; i < 2; ++i) {
            user.pressAccessKey(u'A');
            reached.push_back(user.focused());
        }
        std::ranges::sort(reached);
        EXPECT_EQ(reached, (Texts{u"cmdAdd", u"lvwAccountSource"}));
        EXPECT_EQ(rowsBelowHeading(user, u"lvwAccountSelected"), Texts());
        user.press(Key::escape);
    });
}

TEST_P(ConditionsOnScreen, WordsAreTypedAndMarkedAsACommand) {
    playDialog(row::containsWords, [](OnScreenUser &user) {
        EXPECT_EQ(user.focused(), u"txtWord");
        user.type(u"  price list ");
        user.press(Key::enter);
        user.type(u"मूल्य");
        user.click(u"cmdAdd");
        EXPECT_EQ(user.focused(), u"txtWord");
        EXPECT_EQ(rowsBelowHeading(user, u"lvwWords"), (Texts{u"      price list ", u"    मूल्य"}));
        user.click(u"chkWordAsCommand");
        EXPECT_EQ(ruleState().intAsCommand, 1);
        user.clickRow(u"lvwWords", 1);
        user.click(u"cmdRemove");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strWords, u"मूल्य");
    EXPECT_EQ(ruleState().intAsCommand, 1);
}

TEST_P(ConditionsOnScreen, OptionsStandOverTheirDialogAndCommitTheList) {
    playDialog(row::containsWords, [this](OnScreenUser &user) {
        user.type(u"STOP");
        user.press(Key::enter);
        play.whenShown(u"frmRuleOptions", [&](OnScreenUser &options) {
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(ruleState().strWords, u"STOP");
            EXPECT_EQ(rowsBelowHeading(options, u"lvwRuleCondition"), Texts{u"    STOP"});
            EXPECT_EQ(options.focused(), u"opgAllAnyModifier(1)");
            options.press(Key::up);
            options.click(u"opgConNotmodifier(1)");
            options.press(Key::enter);
        });
        user.click(u"cmdOptions");
        EXPECT_TRUE(user.isOpen());
        user.press(Key::escape);
    });
    EXPECT_EQ(ruleState().strWords, u"STOP");
    EXPECT_EQ(ruleState().intWordsAll, 1);
    EXPECT_EQ(ruleState().intWordsNot, 1);
    EXPECT_TRUE(session().blnChanged);
}

TEST_P(ConditionsOnScreen, PeopleHaveNoChoiceOfAllAndSayWhy) {
    ruleState().intPeopleNot = ruleState().intPeopleAll = 1;
    playOptions(u"PEOPLE", [](OnScreenUser &user) {
        for (const char16_t *name : {u"opgAllAnyModifier(0)", u"opgAllAnyModifier(1)"}) {
            EXPECT_FALSE(user.isUsable(name));
            EXPECT_NE(user.waitsFor(name), u"");
        }
        const auto isChecked = [&](const char16_t *name) {
            return user.get<OptionButton>(name).selected();
        };
        EXPECT_TRUE(isChecked(u"opgAllAnyModifier(1)"));
        EXPECT_TRUE(isChecked(u"opgConNotmodifier(1)"));
        EXPECT_EQ(user.focused(), u"opgConNotmodifier(1)");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().intPeopleNot, 1);
    EXPECT_EQ(ruleState().intPeopleAll, 0);
}

TEST_P(ConditionsOnScreen, TabWalksInTheOrderOfTheDesigns) {
    database.addAccount(3, "Main");
    ruleState().strPeople = ruleState().strWords = u"98";
    playDialog(row::fromPeople, [](OnScreenUser &user) {
        user.type(u"9");
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"cmdClear", u"cmdOptions", u"cmdRemove", u"cmdAddressBook", u"cmdAdd",
                         u"cmdOK", u"cmdCancel", u"txtMobileNo", u"lvwPeople"}));
        user.press(Key::escape);
    });
    playDialog(row::throughAccounts, [](OnScreenUser &user) {
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"lvwAccountSource", u"cmdCancel", u"cmdOK", u"cmdAdd", u"cmdRemove",
                         u"cmdOptions", u"cmdClear", u"lvwAccountSelected"}));
        user.press(Key::escape);
    });
    playDialog(row::containsWords, [](OnScreenUser &user) {
        user.type(u"w");
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"chkWordAsCommand", u"cmdClear", u"cmdOptions", u"cmdRemove", u"cmdAdd",
                         u"cmdOK", u"cmdCancel", u"txtWord", u"lvwWords"}));
        user.press(Key::escape);
    });
    playOptions(u"WORD", [](OnScreenUser &user) {
        Texts reached;
        for (int i = 0; i < 5; ++i) {
            reached.push_back(user.focused());
            user.press(Key::tab);
        }
        EXPECT_EQ(reached, (Texts{u"opgAllAnyModifier(1)", u"opgConNotmodifier(0)", u"cmdcancel",
                                  u"cmdOK", u"lvwRuleCondition"}));
        user.press(Key::escape);
    });
}

TEST_P(ConditionsOnScreen, FiveThousandNumbersAreScrolledRemovedAndCleared) {
    ruleState().strPeople = numbersUpTo(5000);
    utility.answers = {message_box::yes};
    playDialog(row::fromPeople, [](OnScreenUser &user) {
        user.focusOn(u"lvwPeople");
        user.press(Key::end);
        EXPECT_EQ(user.get<ListView>(u"lvwPeople").selectedRow(), 5001);
        user.click(u"cmdRemove");
        EXPECT_EQ(user.get<ListView>(u"lvwPeople").text(5000), u"    4999");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strPeople, numbersUpTo(4999));
    playDialog(row::fromPeople, [](OnScreenUser &user) {
        user.clickRow(u"lvwPeople", 5000);
        user.click(u"cmdClear");
        EXPECT_EQ(user.get<ListView>(u"lvwPeople").rowCount(), 1);
        EXPECT_EQ(user.get<ListView>(u"lvwPeople").selectedRow(), 0);
        user.press(Key::escape);
    });
}

TEST_P(ConditionsOnScreen, ARuleIsComposedByWayOfTheDialogs) {
    database.addAccount(3, "Main");
    play.whenShown(u"frmRuleEdit", [this](OnScreenUser &editor) {
        const auto edit = [&](int condition, OnScreen script) {
            editor.tickRow(conditions, condition);
            play.whenShown(u"", std::move(script));
            editor.click(u"cmdEditCondition");
        };
        edit(row::fromPeople, [](OnScreenUser &user) {
            user.type(u"98");
            user.press(Key::enter);
            user.click(u"cmdOK");
        });
        edit(row::throughAccounts, [](OnScreenUser &user) {
            user.press(Key::enter);
            user.click(u"cmdOK");
        });
        edit(row::containsWords, [](OnScreenUser &user) {
            user.type(u"STOP");
            user.press(Key::enter);
            user.closeByFrame();
        });
        EXPECT_EQ(description(editor), u"Apply this Rule after the message arrives\r\nIf the "
                                       u"message is from 98\r\nand the message is received "
                                       u"through Main");
        editor.tickRow(conditions, row::containsWords);
        editor.tickRow(actions, row::noMoreRules);
        editor.click(u"cmdOK");
        play.whenShown(u"frmRules", [](OnScreenUser &user) { user.press(Key::escape); });
    });
    showRules(u"");
    EXPECT_EQ(database.value("SELECT QueryParam FROM SMS_RULES WHERE ID = 4"),
              "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>98</PEOPLE>"
              "<ACCOUNT><CON><ANY>3</ACCOUNT>");
}

} // namespace
} // namespace kvex::test
