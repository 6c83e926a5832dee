// The dialogs of actions on Qt: widgets, fonts and assistive technology.
#include "tests/windows/ActionDialogsOnScreen.h"
#include "tests/windows/QtOnScreen.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QTreeView>
#include <QWindow>

namespace kvex::test {
namespace {

class QtActions : public ActionDialogsOnScreen {
protected:
    static void clickRowHolding(QtUser &user, const char16_t *list, int row,
                                Qt::KeyboardModifiers held) {
        auto *view = qobject_cast<QTreeView *>(user.widget(list));
        const QRect place = view->visualRect(view->model()->index(row - 1, 0));
        QTest::mouseClick(view->window()->windowHandle(), Qt::LeftButton, held,
                          view->viewport()->mapTo(view->window(), place.center()));
        QCoreApplication::processEvents();
    }
};

TEST_P(QtActions, OfSeveralHighlightedUsersTheOneClickedLastIsTaken) {
    play(row::distribute, [](OnScreenUser &shown) {
        QtUser &user = qtUser(shown);
        user.pressAccessKey(u'A');
        EXPECT_FALSE(user.get<ListView>(u"lvwUsersSource").multiSelect());
        clickRowHolding(user, u"lvwUsersSource", 2, Qt::ControlModifier);
        EXPECT_FALSE(user.get<ListView>(u"lvwUsersSource").selected(1));
        user.press(Key::escape);
    });
    database.execute("UPDATE SMS_RULES SET ActionParam = '<DIST>3</DIST>' WHERE ID = 1");
    WindowsOnScreen::play.whenShown(u"frmRuleEdit", [](OnScreenUser &shown) {
        QtUser &user = qtUser(shown);
        user.clickRow(actions, row::distribute);
        user.click(u"cmdConfigureAction");
        user.press(Key::escape);
    });
    WindowsOnScreen::play.whenShown(u"frmRuleDistribute", [](OnScreenUser &shown) {
        QtUser &user = qtUser(shown);
        clickRowHolding(user, u"lvwUsersSource", 2, Qt::ControlModifier);
        EXPECT_TRUE(user.get<ListView>(u"lvwUsersSource").selected(1));
        user.click(u"cmdSelect");
        EXPECT_EQ(user.rows(u"lvwUsersSelected"), (Texts{u"Asha", u"Ravi"}));
        user.press(Key::escape);
    });
    WindowsOnScreen::play.whenShown(u"frmRules", [](OnScreenUser &shown) {
        QtUser &user = qtUser(shown);
        user.press(Key::escape);
    });
    showRules(u"1");
}

TEST_P(QtActions, EveryControlThatTakesTheFocusHasANameForAssistiveTechnology) {
    for (const int action : {row::distribute, row::reply, row::alert}) {
        play(action, [](OnScreenUser &shown) {
            QtUser &user = qtUser(shown);
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

TEST_P(QtActions, TheDialogsFitASmallScreenInTheUsualSizeOfText) {
    const QFont usual = QApplication::font();
    QFont font = usual;
    font.setPointSize(9);
    QApplication::setFont(font);
    for (const int action : {row::distribute, row::reply, row::alert}) {
        play(action, [](OnScreenUser &shown) {
            QtUser &user = qtUser(shown);
            const QWidget *window = user.widget(u"cmdOK")->window();
            EXPECT_LT(window->height(), 700);
            EXPECT_LT(window->width(), 1000);
            user.press(Key::escape);
        });
    }
    QApplication::setFont(usual);
}

INSTANTIATE_TEST_SUITE_P(Qt, QtActions, testing::Values(&QtStage::make));

} // namespace
} // namespace kvex::test
