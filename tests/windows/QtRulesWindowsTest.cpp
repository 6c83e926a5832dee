// The rules window and the editor on Qt: widgets, themes and assistive technology.
#include "tests/windows/EditorRows.h"
#include "tests/windows/QtOnScreen.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QPalette>
#include <QTextEdit>

#include <algorithm>
#include <cmath>

namespace kvex::test {
namespace {

using QtRulesWindows = QtWindowsOnScreen;

TEST_F(QtRulesWindows, TheRulesWindowFirstShowsTenLinesOfTheDescription) {
    playRules([](OnScreenUser &shown) {
        QtUser &user = qtUser(shown);
        const auto *box = qobject_cast<QTextEdit *>(user.widget(u"rtRuleDesc"));
        ASSERT_NE(box, nullptr);
        const double lines = (box->viewport()->height() - 2 * box->document()->documentMargin()) /
                             QFontMetricsF(box->document()->defaultFont()).lineSpacing();
        EXPECT_GE(lines, 10);
        user.press(Key::escape);
    });
}

TEST_F(QtRulesWindows, LockedRowsSayInWordsWhyTheyAreGrey) {
    playNewRule([](OnScreenUser &shown) {
        QtUser &user = qtUser(shown);
        user.tickRow(conditions, row::forAllMessages);
        const auto *list = qobject_cast<QAbstractItemView *>(user.widget(u"lvwRuleConditions"));
        ASSERT_NE(list, nullptr);
        const QModelIndex first = list->model()->index(0, 0);
        EXPECT_EQ(first.data(Qt::AccessibleDescriptionRole).toString(),
                  "Not available while \"For All Messages\" is ticked");
        user.tickRow(conditions, row::forAllMessages);
        EXPECT_EQ(first.data(Qt::AccessibleDescriptionRole).toString(), "");
        user.press(Key::escape);
    });
}

TEST_F(QtRulesWindows, EveryControlThatTakesTheFocusHasANameForAssistiveTechnology) {
    const auto check = [](QtUser &user) {
        for (const std::u16string &name : user.tabOrder()) {
            QWidget *widget = user.widget(name);
            ASSERT_NE(widget, nullptr) << utf8(name);
            QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(accessible, nullptr) << utf8(name);
            EXPECT_NE(accessible->text(QAccessible::Name), "") << utf8(name);
        }
        user.press(Key::escape);
    };
    play.whenShown(u"frmRuleEdit", check);
    play.whenShown(u"frmRules", check);
    showRules(u"");
}

double luminance(const QColor &colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

TEST_F(QtRulesWindows, TheDescriptionCanBeReadOnLightAndDarkThemes) {
    database.execute("UPDATE SMS_RULES SET QueryParam = '<WORD><CON><ANY><ASCOMMAND>STOP</WORD>'");
    const QPalette usual = QApplication::palette();
    for (const bool dark : {false, true}) {
        if (dark) {
            QPalette night(QColor(53, 53, 53), QColor(30, 30, 30));
            night.setColor(QPalette::Base, QColor(25, 25, 25));
            night.setColor(QPalette::Text, Qt::white);
            QApplication::setPalette(night);
        }
        playRules([](OnScreenUser &shown) {
            QtUser &user = qtUser(shown);
            user.clickRow(u"lvwRules", 1);
            const auto *box = qobject_cast<QTextEdit *>(user.widget(u"rtRuleDesc"));
            ASSERT_NE(box, nullptr);
            const double base = luminance(box->palette().color(QPalette::Base));
            QTextCursor cursor(box->document());
            int coloured = 0;
            while (cursor.movePosition(QTextCursor::NextCharacter)) {
                if (cursor.charFormat().hasProperty(QTextFormat::ForegroundBrush)) {
                    const double ink = luminance(cursor.charFormat().foreground().color());
                    EXPECT_GE((std::max(ink, base) + 0.05) / (std::min(ink, base) + 0.05), 4.5);
                    ++coloured;
                }
            }
            EXPECT_EQ(coloured, static_cast<int>(std::string(" (as SMS Command) STOP").size()));
            user.press(Key::escape);
        });
        sessionOwner->release();
        sessionOwner.reset();
    }
    QApplication::setPalette(usual);
}

} // namespace
} // namespace kvex::test
