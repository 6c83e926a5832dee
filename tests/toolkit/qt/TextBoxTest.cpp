#include "tests/toolkit/qt/QtTest.h"

#include "adapters/qt/QText.h"

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTimer>

namespace kvex::test {
namespace {

class QtTextBoxTest : public QtTest {
protected:
    /// Accepts digits only.
    std::unique_ptr<Window> digitBox(int maxLength) {
        auto shown = window({{.kind = ControlKind::textBox,
                              .name = u"txt",
                              .maxLength = maxLength,
                              .columns = 20}});
        shown->get<TextBox>(u"txt").onKeyPress = [this](std::int16_t &code) {
            codes.push_back(code);
            if (code > 31 && (code < u'0' || code > u'9')) {
                code = 0;
            }
            if (code == 22 && pasteRefused) {
                code = 0;
            }
        };
        return shown;
    }
    static QLineEdit &line(const QtUser &user) {
        return dynamic_cast<QLineEdit &>(*user.widget(u"txt"));
    }
    static void commit(QLineEdit &line, const QString &text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&line, &event);
    }

    std::vector<int> codes;
    bool pasteRefused = false;
};

TEST_F(QtTextBoxTest, WhatAnInputMethodCommitsIsAskedForCharacterByCharacter) {
    const auto shown = digitBox(4);
    show(*shown, [&](QtUser &user) {
        commit(line(user), QStringLiteral("1a2"));
        EXPECT_EQ(shown->get<TextBox>(u"txt").text(), u"12");
        EXPECT_EQ(codes, (std::vector<int>{u'1', u'a', u'2'}));
        commit(line(user), QStringLiteral("34567"));
        EXPECT_EQ(shown->get<TextBox>(u"txt").text(), u"1234");
    });
}

TEST_F(QtTextBoxTest, ACharacterOfTwoUnitsComesWholeOrNotAtAll) {
    const auto shown =
        window({{.kind = ControlKind::textBox, .name = u"txt", .maxLength = 3, .columns = 20}});
    auto &box = shown->get<TextBox>(u"txt");
    show(*shown, [&](QtUser &user) {
        user.type(u"ab\U0001F600");
        EXPECT_EQ(box.text(), u"ab");
        box.setText(u"");
        QGuiApplication::clipboard()->setText(qt::toQt(u"ab\U0001F600"));
        user.press(Key::paste);
        EXPECT_EQ(box.text(), u"ab");
        box.setText(u"");
        user.type(u"\U0001F600x");
        EXPECT_EQ(box.text(), u"\U0001F600x");
    });
}

TEST_F(QtTextBoxTest, TheContextMenuAsksBeforeItPastes) {
    const auto shown = digitBox(0);
    auto &box = shown->get<TextBox>(u"txt");
    QGuiApplication::clipboard()->setText(QStringLiteral("xy"));
    const auto pasteByMenu = [](QLineEdit &line) {
        QTimer::singleShot(0, &line, [] {
            auto *menu = dynamic_cast<QMenu *>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (QAction *action : menu->actions()) {
                if (action->text() == QStringLiteral("&Paste")) {
                    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                                      menu->actionGeometry(action).center());
                    return;
                }
            }
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, line.rect().center(),
                                line.mapToGlobal(line.rect().center()));
        QApplication::sendEvent(&line, &event);
    };
    show(*shown, [&](QtUser &user) {
        pasteRefused = true;
        pasteByMenu(line(user));
        EXPECT_EQ(box.text(), u"");
        pasteRefused = false;
        pasteByMenu(line(user));
        EXPECT_EQ(box.text(), u"xy");
    });
    EXPECT_EQ(codes, (std::vector<int>{22, 22}));
}

TEST_F(QtTextBoxTest, TheMiddleButtonInsertsOnlyWhatCouldBeTyped) {
    const auto shown = digitBox(4);
    QClipboard &clipboard = *QGuiApplication::clipboard();
    ASSERT_TRUE(clipboard.supportsSelection());
    clipboard.setText(QStringLiteral("a12b345"), QClipboard::Selection);
    show(*shown, [&](QtUser &user) {
        QLineEdit &box = line(user);
        QTest::mouseClick(box.window()->windowHandle(), Qt::MiddleButton, Qt::NoModifier,
                          box.mapTo(box.window(), box.rect().center()));
        EXPECT_EQ(shown->get<TextBox>(u"txt").text(), u"1234");
    });
}

TEST_F(QtTextBoxTest, AssistiveTechnologyCannotPassItsLimit) {
    auto shown =
        window({{.kind = ControlKind::textBox, .name = u"txt", .maxLength = 5, .columns = 20}});
    auto &box = shown->get<TextBox>(u"txt");
    std::vector<std::u16string> changes;
    show(*shown, [&](QtUser &user) {
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&line(user));
        ASSERT_NE(spoken, nullptr);
        QAccessibleEditableTextInterface *editable = spoken->editableTextInterface();
        ASSERT_NE(editable, nullptr);
        box.onChange = [&] { changes.push_back(box.text()); };
        spoken->setText(QAccessible::Value, QStringLiteral("1234567"));
        editable->insertText(2, QStringLiteral("ab"));
        editable->replaceText(0, 5, QString::fromUtf16(u"1234\U0001F4F1"));
        box.setText(u"a longer text");
        EXPECT_EQ(box.text(), u"a longer text");
    });
    EXPECT_EQ(changes,
              (std::vector<std::u16string>{u"12345", u"12ab3", u"1234", u"a longer text"}));
}

TEST_F(QtTextBoxTest, NothingCanBeDroppedIntoIt) {
    const auto shown = digitBox(0);
    show(*shown, [&](QtUser &user) { EXPECT_FALSE(line(user).acceptDrops()); });
}

TEST_F(QtTextBoxTest, ItHasRoomForItsColumns) {
    const auto shown = digitBox(0);
    show(*shown, [&](QtUser &user) {
        const QLineEdit &box = line(user);
        EXPECT_GE(box.minimumSizeHint().width(),
                  box.fontMetrics().horizontalAdvance(QString(20, QChar(u'0'))));
    });
}

} // namespace
} // namespace kvex::test
