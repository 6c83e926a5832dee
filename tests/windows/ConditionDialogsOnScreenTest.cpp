#include "platform/Text.h"
#include "tests/windows/EditorRows.h"
#include "tests/windows/WindowsOnScreenFixture.h"
#include "ui/conditions/frmRuleOptions.h"
#include "ui/rules/RuleParts.h"

#include <QAbstractButton>
#include <QAccessible>

#include <algorithm>
#include <cstdlib>

namespace kvex::test {
namespace {

const Texts allButtons = {u"cmdRemove", u"cmdClear", u"cmdOptions", u"cmdOK"};

class ConditionsOnScreen : public WindowsOnScreen {
protected:
    /// Shows the dialog of the condition in this row of the editor, and plays in it.
    void playDialog(int condition, OnScreen script) {
        openSession();
        play.whenShown(u"", std::move(script));
        ruleConditions()[static_cast<std::size_t>(condition - 1)].showDialog();
    }
    void playOptions(const std::u16string &kind, OnScreen script) {
        openSession();
        play.whenShown(u"frmRuleOptions", std::move(script));
        showConditionOptions(kind);
    }
    void openSession() {
        if (!sessionOwner) {
            sessionOwner = std::make_unique<SessionOwner>(platform);
            ASSERT_TRUE(sessionOwner->OpenRules());
        }
    }
    /// Whether the widgets of the buttons are all enabled, or all disabled.
    static void expectEnabled(QtUser &user, bool expected) {
        for (const std::u16string &button : allButtons) {
            EXPECT_EQ(user.widget(button)->isEnabled(), expected) << utf8(button);
        }
    }
    static Texts rowsBelowHeading(QtUser &user, const char16_t *list) {
        Texts rows = user.rows(list);
        rows.erase(rows.begin());
        return rows;
    }
    static std::u16string numbersUpTo(int last) {
        std::u16string joined;
        for (int number = 1; number <= last; ++number) {
            joined.append(number > 1 ? u";" : u"").append(toText(std::int64_t{number}));
        }
        return joined;
    }
};

TEST_F(ConditionsOnScreen, NumbersAreTypedRemovedAndStoredByKeyboardAlone) {
    playDialog(row::fromPeople, [](QtUser &user) {
        EXPECT_EQ(user.focused(), u"txtMobileNo");
        expectEnabled(user, false);
        for (const char16_t *number : {u"98a1", u"9.9", u"97"}) {
            user.type(number);
            user.press(Key::enter);
            EXPECT_EQ(user.focused(), u"txtMobileNo");
        }
        EXPECT_EQ(rowsBelowHeading(user, u"lvwPeople"), (Texts{u"    981", u"    99", u"    97"}));
        expectEnabled(user, true);
        EXPECT_FALSE(user.widget(u"cmdAdd")->isEnabled());
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

TEST_F(ConditionsOnScreen, NumbersComeFromTheAddressBookAndGoByMouse) {
    platform.addressBook.numbers = {u"98", u"99"};
    utility.answers = {message_box::no, message_box::yes};
    openSession();
    session().strUserID = u"1";
    playDialog(row::fromPeople, [this](QtUser &user) {
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

TEST_F(ConditionsOnScreen, AccountsAreAddedByEnterAndDoubleClick) {
    database.addAccount(3, "Main");
    database.addAccount(7, "मुख्य \xF0\x9F\x93\xB1");
    database.addAccount(8, "Sender", "TRANSMITTER");
    playDialog(row::throughAccounts, [](QtUser &user) {
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

TEST_F(ConditionsOnScreen, TheSharedAccessKeyOfAccountsPressesNothing) {
    database.addAccount(3, "Main");
    playDialog(row::throughAccounts, [](QtUser &user) {
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

TEST_F(ConditionsOnScreen, WordsAreTypedAndMarkedAsACommand) {
    playDialog(row::containsWords, [](QtUser &user) {
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

TEST_F(ConditionsOnScreen, OptionsStandOverTheirDialogAndCommitTheList) {
    playDialog(row::containsWords, [this](QtUser &user) {
        user.type(u"STOP");
        user.press(Key::enter);
        play.whenShown(u"frmRuleOptions", [&](QtUser &options) {
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

TEST_F(ConditionsOnScreen, PeopleHaveNoChoiceOfAllAndSayWhy) {
    ruleState().intPeopleNot = ruleState().intPeopleAll = 1;
    playOptions(u"PEOPLE", [](QtUser &user) {
        for (const char16_t *name : {u"opgAllAnyModifier(0)", u"opgAllAnyModifier(1)"}) {
            EXPECT_FALSE(user.widget(name)->isEnabled());
            EXPECT_NE(user.widget(name)->toolTip(), "");
        }
        const auto isChecked = [&](const char16_t *name) {
            return qobject_cast<QAbstractButton *>(user.widget(name))->isChecked();
        };
        EXPECT_TRUE(isChecked(u"opgAllAnyModifier(1)"));
        EXPECT_TRUE(isChecked(u"opgConNotmodifier(1)"));
        EXPECT_EQ(user.focused(), u"opgConNotmodifier(1)");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().intPeopleNot, 1);
    EXPECT_EQ(ruleState().intPeopleAll, 0);
}

TEST_F(ConditionsOnScreen, TabWalksInTheOrderOfTheDesigns) {
    database.addAccount(3, "Main");
    ruleState().strPeople = ruleState().strWords = u"98";
    playDialog(row::fromPeople, [](QtUser &user) {
        user.type(u"9");
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"cmdClear", u"cmdOptions", u"cmdRemove", u"cmdAddressBook", u"cmdAdd",
                         u"cmdOK", u"cmdCancel", u"txtMobileNo", u"lvwPeople"}));
        user.press(Key::escape);
    });
    playDialog(row::throughAccounts, [](QtUser &user) {
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"lvwAccountSource", u"cmdCancel", u"cmdOK", u"cmdAdd", u"cmdRemove",
                         u"cmdOptions", u"cmdClear", u"lvwAccountSelected"}));
        user.press(Key::escape);
    });
    playDialog(row::containsWords, [](QtUser &user) {
        user.type(u"w");
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"chkWordAsCommand", u"cmdClear", u"cmdOptions", u"cmdRemove", u"cmdAdd",
                         u"cmdOK", u"cmdCancel", u"txtWord", u"lvwWords"}));
        user.press(Key::escape);
    });
    playOptions(u"WORD", [](QtUser &user) {
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

TEST_F(ConditionsOnScreen, EveryControlThatTakesTheFocusHasANameForAssistiveTechnology) {
    ruleState().strPeople = ruleState().strWords = u"98";
    const auto check = [](QtUser &user) {
        for (const std::u16string &name : user.tabOrder()) {
            QAccessibleInterface *accessible =
                QAccessible::queryAccessibleInterface(user.widget(name));
            ASSERT_NE(accessible, nullptr) << utf8(name);
            EXPECT_NE(accessible->text(QAccessible::Name), "") << utf8(name);
        }
        user.press(Key::escape);
    };
    for (const int condition : {row::fromPeople, row::throughAccounts, row::containsWords}) {
        playDialog(condition, check);
    }
    playOptions(u"WORD", check);
}

TEST_F(ConditionsOnScreen, TheAccountButtonsStandBesideTheirLists) {
    playDialog(row::throughAccounts, [](QtUser &user) {
        const auto top = [&](const char16_t *name) { return user.widget(name)->y(); };
        EXPECT_LT(std::abs(top(u"cmdAdd") - top(u"lvwAccountSource")), 4);
        EXPECT_LT(std::abs(top(u"cmdRemove") - top(u"lvwAccountSelected")), 4);
        user.press(Key::escape);
    });
}

TEST_F(ConditionsOnScreen, FiveThousandNumbersAreScrolledRemovedAndCleared) {
    ruleState().strPeople = numbersUpTo(5000);
    utility.answers = {message_box::yes};
    playDialog(row::fromPeople, [](QtUser &user) {
        user.focusOn(u"lvwPeople");
        user.press(Key::end);
        EXPECT_EQ(user.get<ListView>(u"lvwPeople").selectedRow(), 5001);
        user.click(u"cmdRemove");
        EXPECT_EQ(user.get<ListView>(u"lvwPeople").text(5000), u"    4999");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strPeople, numbersUpTo(4999));
    playDialog(row::fromPeople, [](QtUser &user) {
        user.clickRow(u"lvwPeople", 5000);
        user.click(u"cmdClear");
        EXPECT_EQ(user.get<ListView>(u"lvwPeople").rowCount(), 1);
        EXPECT_EQ(user.get<ListView>(u"lvwPeople").selectedRow(), 0);
        user.press(Key::escape);
    });
}

TEST_F(ConditionsOnScreen, ARuleIsComposedByWayOfTheDialogs) {
    database.addAccount(3, "Main");
    play.whenShown(u"frmRuleEdit", [this](QtUser &editor) {
        const auto edit = [&](int condition, OnScreen script) {
            editor.tickRow(conditions, condition);
            play.whenShown(u"", std::move(script));
            editor.click(u"cmdEditCondition");
        };
        edit(row::fromPeople, [](QtUser &user) {
            user.type(u"98");
            user.press(Key::enter);
            user.click(u"cmdOK");
        });
        edit(row::throughAccounts, [](QtUser &user) {
            user.press(Key::enter);
            user.click(u"cmdOK");
        });
        edit(row::containsWords, [](QtUser &user) {
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
        play.whenShown(u"frmRules", [](QtUser &user) { user.press(Key::escape); });
    });
    showRules(u"");
    EXPECT_EQ(database.value("SELECT QueryParam FROM SMS_RULES WHERE ID = 4"),
              "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>98</PEOPLE>"
              "<ACCOUNT><CON><ANY>3</ACCOUNT>");
}

} // namespace
} // namespace kvex::test
