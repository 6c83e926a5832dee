#include "tests/windows/EditorRows.h"
#include "tests/windows/WindowsOnScreenFixture.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QPalette>
#include <QPushButton>
#include <QTextEdit>

namespace kvex::test {
namespace {

TEST_F(WindowsOnScreen, ARuleIsComposedNamedAndSavedByKeyboardAlone) {
    play.whenShown(u"frmRuleEdit", [](QtUser &user) {
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
    play.whenShown(u"frmRules", [](QtUser &user) {
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

TEST_F(WindowsOnScreen, ARuleIsSwitchedOffByMouseAtOnce) {
    playRules([this](QtUser &user) {
        user.tickRow(u"lvwRules", 2);
        EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'B'"), "0");
        EXPECT_EQ(user.get<ListView>(u"lvwRules").selectedRow(), 2);
        EXPECT_EQ(description(user), u"This Rule is disabled\r\nFor ALL Messages");
        user.click(u"cmdCancel");
    });
}

TEST_F(WindowsOnScreen, ABlankInASearchByFirstLettersSwitchesNoRule) {
    database.addRule("No services", "<ALLMESSAGES>", "", 9);
    playRules([this](QtUser &user) {
        user.type(u"No services");
        EXPECT_EQ(user.get<ListView>(u"lvwRules").selectedRow(), 4);
        EXPECT_EQ(database.value("SELECT COUNT(*) FROM SMS_RULES WHERE ACTIVE = 1"), "4");
        user.press(Key::escape);
    });
}

TEST_F(WindowsOnScreen, ATickThatTheDatabaseRefusesGivesAMessage) {
    playRules([this](QtUser &user) {
        database.execute("CREATE TRIGGER refuse BEFORE UPDATE ON SMS_RULES BEGIN "
                         "SELECT RAISE(ABORT, 'reserved'); END");
        user.tickRow(u"lvwRules", 2);
        database.execute("DROP TRIGGER refuse");
        ASSERT_EQ(play.messageBoxes().size(), 1U);
        const std::u16string &text = play.messageBoxes().front().text;
        EXPECT_TRUE(text.starts_with(u"The change of record ID 2 was not stored. The database "))
            << toUtf8(text);
        EXPECT_TRUE(text.ends_with(u" refuses these values (reserved).")) << toUtf8(text);
        user.clickRow(u"lvwRules", 1);
        EXPECT_EQ(ruleState().strRuleName, u"A");
        user.press(Key::escape);
    });
    EXPECT_EQ(database.value("SELECT ACTIVE FROM SMS_RULES WHERE Name = 'B'"), "1");
}

TEST_F(WindowsOnScreen, RulesAreMovedByTheirAccessKeysAndStoredByOk) {
    EXPECT_EQ(playRules([](QtUser &user) {
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

TEST_F(WindowsOnScreen, ARuleIsRemovedAndTheNextTakesItsPlace) {
    playRules([this](QtUser &user) {
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

TEST_F(WindowsOnScreen, ARuleIsModifiedOverTheRulesWindow) {
    playRules([this](QtUser &user) {
        user.clickRow(u"lvwRules", 2);
        play.whenShown(u"frmRuleEdit", [](QtUser &editor) {
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

TEST_F(WindowsOnScreen, AWarningLeavesTheEditorOpenAndPointsAtTheName) {
    playNewRule([](QtUser &user) {
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

TEST_F(WindowsOnScreen, TheRulesWindowFirstShowsTenLinesOfTheDescription) {
    playRules([](QtUser &user) {
        const auto *box = qobject_cast<QTextEdit *>(user.widget(u"rtRuleDesc"));
        ASSERT_NE(box, nullptr);
        const double lines = (box->viewport()->height() - 2 * box->document()->documentMargin()) /
                             QFontMetricsF(box->document()->defaultFont()).lineSpacing();
        EXPECT_GE(lines, 10);
        user.press(Key::escape);
    });
}

TEST_F(WindowsOnScreen, LockedRowsSayInWordsWhyTheyAreGrey) {
    playNewRule([](QtUser &user) {
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

TEST_F(WindowsOnScreen, ADisabledButtonSaysWhatItWaitsFor) {
    playNewRule([](QtUser &user) {
        EXPECT_NE(user.widget(u"cmdEditCondition")->toolTip(), "");
        user.tickRow(conditions, row::fromPeople);
        EXPECT_TRUE(user.get<CommandButton>(u"cmdEditCondition").enabled());
        EXPECT_EQ(user.widget(u"cmdEditCondition")->toolTip(), "");
        user.press(Key::escape);
    });
}

TEST_F(WindowsOnScreen, TabWalksTheWindowsInTheirOrder) {
    playRules([](QtUser &user) {
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"lvwRules", u"cmdNew", u"cmdModify", u"cmdRemove", u"cmdMoveUp",
                         u"cmdMoveDown", u"rtRuleDesc", u"cmdOK", u"cmdCancel"}));
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"cmdNew");
        user.press(Key::escape);
    });
}

TEST_F(WindowsOnScreen, EveryControlThatTakesTheFocusHasANameForAssistiveTechnology) {
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

TEST_F(WindowsOnScreen, TheDescriptionCanBeReadOnLightAndDarkThemes) {
    database.execute("UPDATE SMS_RULES SET QueryParam = '<WORD><CON><ANY><ASCOMMAND>STOP</WORD>'");
    const QPalette usual = QApplication::palette();
    for (const bool dark : {false, true}) {
        if (dark) {
            QPalette night(QColor(53, 53, 53), QColor(30, 30, 30));
            night.setColor(QPalette::Base, QColor(25, 25, 25));
            night.setColor(QPalette::Text, Qt::white);
            QApplication::setPalette(night);
        }
        playRules([](QtUser &user) {
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

TEST_F(WindowsOnScreen, TenThousandRulesAreScrolledAndMoved) {
    database.execute("WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT i + 1 FROM n WHERE i < "
                     "10000) INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY) "
                     "SELECT 'Rule ' || i, '<ALLMESSAGES>', '', i FROM n");
    playRules([](QtUser &user) {
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
