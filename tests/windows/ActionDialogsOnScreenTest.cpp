#include "tests/windows/EditorRows.h"
#include "tests/windows/WindowsOnScreenFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QTreeView>
#include <QWindow>

#include <array>
#include <set>

namespace kvex::test {
namespace {

class ActionDialogsOnScreen : public WindowsOnScreen {
protected:
    ActionDialogsOnScreen() {
        database.addUser(1, "SYSTEM");
        database.addUser(3, "Asha");
        database.addUser(7, "Ravi");
        database.addUser(9, "Meena");
        database.addAccount(2, "Main");
        database.addAccount(5, "Spare");
    }

    /// Ticks the action in the editor on a new rule, and plays in its dialog.
    void play(int action, OnScreen dialog) {
        constexpr auto names =
            std::array{u"", u"frmRuleDistribute", u"frmRuleReply", u"frmRuleAlert"};
        WindowsOnScreen::play.whenShown(u"frmRuleEdit", [action](QtUser &user) {
            user.tickRow(actions, action);
            user.pressAccessKey(u'S');
            user.press(Key::escape);
        });
        WindowsOnScreen::play.whenShown(names.at(static_cast<std::size_t>(action)),
                                        std::move(dialog));
        WindowsOnScreen::play.whenShown(u"frmRules", [](QtUser &user) { user.press(Key::escape); });
        showRules(u"");
        sessionOwner->release();
        sessionOwner.reset();
    }
    static std::vector<int> ticked(QtUser &user) {
        return tickedRows(user.get<ListView>(u"lvwOutAccount"));
    }
    static std::u16string count(QtUser &user) { return user.get<TextBox>(u"txtCharCount").text(); }
    static void clickRowHolding(QtUser &user, const char16_t *list, int row,
                                Qt::KeyboardModifiers held) {
        auto *view = qobject_cast<QTreeView *>(user.widget(list));
        const QRect place = view->visualRect(view->model()->index(row - 1, 0));
        QTest::mouseClick(view->window()->windowHandle(), Qt::LeftButton, held,
                          view->viewport()->mapTo(view->window(), place.center()));
        QCoreApplication::processEvents();
    }
};

using Rows = std::vector<int>;

TEST_F(ActionDialogsOnScreen, AReplyOfSeveralLinesIsWrittenByKeyboardAlone) {
    play(row::reply, [](QtUser &user) {
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

TEST_F(ActionDialogsOnScreen, TabLeavesTheTextInBothDirectionsAndInsertsNothing) {
    play(row::reply, [](QtUser &user) {
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

TEST_F(ActionDialogsOnScreen, AccountsAreASingleChoiceByMouse) {
    play(row::reply, [](QtUser &user) {
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

TEST_F(ActionDialogsOnScreen, ARefusedReplyLeadsToTheAccounts) {
    play(row::reply, [](QtUser &user) {
        EXPECT_EQ(user.widget(u"cmdOK")->toolTip(), "Type a text first");
        user.type(u"Hi");
        EXPECT_EQ(user.widget(u"cmdOK")->toolTip(), "");
        user.pressAccessKey(u'O');
        EXPECT_EQ(user.focused(), u"lvwOutAccount");
        user.pressAccessKey(u'C');
    });
    EXPECT_EQ(utility.messages.size(), 1U);
}

TEST_F(ActionDialogsOnScreen, WhatIsPastedIntoATextIsKeptToTheUnit) {
    const QString whole = QString::fromUtf16(u"  one\ttwo\u00A0\nthree \U0001F600 ");
    QGuiApplication::clipboard()->setText(whole);
    play(row::alert, [](QtUser &user) {
        user.press(Key::paste);
        EXPECT_EQ(user.get<RichTextBox>(u"rtAlertText").text(),
                  u"  one\ttwo\u00A0\r\nthree \U0001F600 ");
        EXPECT_EQ(count(user), u"21");
        user.press(Key::escape);
    });
}

TEST_F(ActionDialogsOnScreen, RecipientsAreAddedByEnterAndClearedAfterTheQuestion) {
    utility.answers = {message_box::no, message_box::yes};
    play(row::alert, [](QtUser &user) {
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

TEST_F(ActionDialogsOnScreen, OnceThereAreRecipientsTheirAccessKeyTurnsToRemoveToo) {
    play(row::alert, [](QtUser &user) {
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

TEST_F(ActionDialogsOnScreen, AnAlertIsComposedAndConfirmed) {
    platform.addressBook.numbers = {u"91", u"92"};
    play(row::alert, [](QtUser &user) {
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

TEST_F(ActionDialogsOnScreen, AnAlertWithoutRecipientsLeadsToTheirList) {
    play(row::alert, [](QtUser &user) {
        user.type(u"Look");
        user.tickRow(u"lvwOutAccount", 1);
        user.click(u"cmdOK");
        EXPECT_EQ(user.focused(), u"lvwPeople");
        user.press(Key::escape);
    });
    EXPECT_EQ(utility.messages.size(), 1U);
}

TEST_F(ActionDialogsOnScreen, UsersAreSelectedByDoubleClickAndByKeys) {
    play(row::distribute, [](QtUser &user) {
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

TEST_F(ActionDialogsOnScreen, OfSeveralHighlightedUsersTheOneClickedLastIsTaken) {
    play(row::distribute, [](QtUser &user) {
        user.pressAccessKey(u'A');
        EXPECT_FALSE(user.get<ListView>(u"lvwUsersSource").multiSelect());
        clickRowHolding(user, u"lvwUsersSource", 2, Qt::ControlModifier);
        EXPECT_FALSE(user.get<ListView>(u"lvwUsersSource").selected(1));
        user.press(Key::escape);
    });
    database.execute("UPDATE SMS_RULES SET ActionParam = '<DIST>3</DIST>' WHERE ID = 1");
    WindowsOnScreen::play.whenShown(u"frmRuleEdit", [](QtUser &user) {
        user.clickRow(actions, row::distribute);
        user.click(u"cmdConfigureAction");
        user.press(Key::escape);
    });
    WindowsOnScreen::play.whenShown(u"frmRuleDistribute", [](QtUser &user) {
        clickRowHolding(user, u"lvwUsersSource", 2, Qt::ControlModifier);
        EXPECT_TRUE(user.get<ListView>(u"lvwUsersSource").selected(1));
        user.click(u"cmdSelect");
        EXPECT_EQ(user.rows(u"lvwUsersSelected"), (Texts{u"Asha", u"Ravi"}));
        user.press(Key::escape);
    });
    WindowsOnScreen::play.whenShown(u"frmRules", [](QtUser &user) { user.press(Key::escape); });
    showRules(u"1");
}

TEST_F(ActionDialogsOnScreen, TabWalksTheControlsInTheirOrder) {
    play(row::reply, [](QtUser &user) {
        user.type(u"a");
        EXPECT_EQ(user.tabOrder(), (Texts{u"rtReplyText", u"txtCharCount", u"lvwOutAccount",
                                          u"cmdOK", u"cmdCancel"}));
        user.press(Key::escape);
    });
    play(row::alert, [](QtUser &user) {
        user.pressAccessKey(u'R');
        user.type(u"98\r99");
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"rtAlertText", u"txtCharCount", u"lvwOutAccount", u"txtMobileNo",
                         u"cmdAdd", u"cmdAddressBook", u"lvwPeople", u"cmdRemove", u"cmdClear",
                         u"cmdOK", u"cmdCancel"}));
        user.press(Key::escape);
    });
    play(row::distribute, [](QtUser &user) {
        user.click(u"cmdAll");
        EXPECT_EQ(user.tabOrder(), (Texts{u"lvwUsersSource", u"cmdSelect", u"cmdAll", u"cmdRemove",
                                          u"lvwUsersSelected", u"cmdOK", u"cmdCancel"}));
        user.press(Key::escape);
    });
}

TEST_F(ActionDialogsOnScreen, EveryControlThatTakesTheFocusHasANameForAssistiveTechnology) {
    for (const int action : {row::distribute, row::reply, row::alert}) {
        play(action, [](QtUser &user) {
            for (const std::u16string &name : user.tabOrder()) {
                QAccessibleInterface *accessible =
                    QAccessible::queryAccessibleInterface(user.widget(name));
                ASSERT_NE(accessible, nullptr) << utf8(name);
                EXPECT_NE(accessible->text(QAccessible::Name), "") << utf8(name);
            }
            user.press(Key::escape);
        });
    }
}

TEST_F(ActionDialogsOnScreen, TheDialogsFitASmallScreenInTheUsualSizeOfText) {
    const QFont usual = QApplication::font();
    QFont font = usual;
    font.setPointSize(9);
    QApplication::setFont(font);
    for (const int action : {row::distribute, row::reply, row::alert}) {
        play(action, [](QtUser &user) {
            const QWidget *window = user.widget(u"cmdOK")->window();
            EXPECT_LT(window->height(), 700);
            EXPECT_LT(window->width(), 1000);
            user.press(Key::escape);
        });
    }
    QApplication::setFont(usual);
}

TEST_F(ActionDialogsOnScreen, FiveThousandUsersAreSelectedTogether) {
    database.execute("WITH RECURSIVE n(i) AS (SELECT 10 UNION ALL SELECT i + 1 FROM n WHERE i < "
                     "5000) INSERT INTO SMS_USERS (ID, NAME) SELECT i, 'User ' || i FROM n");
    play(row::distribute, [](QtUser &user) {
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
