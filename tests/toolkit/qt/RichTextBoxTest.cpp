#include "tests/toolkit/qt/QtTest.h"

#include "adapters/qt/Colours.h"
#include "adapters/qt/QText.h"

#include <QClipboard>
#include <QMimeData>
#include <QTest>
#include <QTextEdit>

namespace kvex::test {
namespace {

class QtRichTextBoxTest : public QtTest {
protected:
    QtRichTextBoxTest()
        : shown(window({{.kind = ControlKind::richTextBox, .name = u"rt", .lines = 5}})) {}

    RichTextBox &box() { return shown->get<RichTextBox>(u"rt"); }
    static QTextEdit &edit(const QtUser &user) {
        return dynamic_cast<QTextEdit &>(*user.widget(u"rt"));
    }
    /// The colour drawn for the character at `position`.
    static QColor drawnAt(const QtUser &user, int position) {
        QTextCursor cursor(edit(user).document());
        cursor.setPosition(position + 1);
        const QTextCharFormat format = cursor.charFormat();
        return format.foreground().style() == Qt::NoBrush
                   ? edit(user).palette().color(QPalette::Text)
                   : format.foreground().color();
    }

    std::unique_ptr<Window> shown;
};

TEST_F(QtRichTextBoxTest, ColoursCanBeReadOnEveryTheme) {
    box().setRuns({{u"a", colour::black}, {u"b", colour::blue}, {u"c", colour::red}});
    const std::vector<TextRun> runs = box().runs();
    int changes = 0;
    box().onChange = [&] { ++changes; };
    show(*shown, [&](QtUser &user) {
        for (const QPalette &palette : {QApplication::palette(), darkPalette()}) {
            const Theme theme(palette, QApplication::font().pointSize());
            const QColor base = edit(user).palette().color(QPalette::Base);
            ASSERT_EQ(base, palette.color(QPalette::Base));
            EXPECT_EQ(drawnAt(user, 0), palette.color(QPalette::Text));
            for (int position = 0; position < 3; ++position) {
                EXPECT_GE(qt::contrast(drawnAt(user, position), base), 4.5) << position;
            }
            EXPECT_GT(drawnAt(user, 1).blue(), drawnAt(user, 1).red());
            EXPECT_GT(drawnAt(user, 2).red(), drawnAt(user, 2).blue());
            EXPECT_EQ(box().runs(), runs);
        }
    });
    EXPECT_EQ(changes, 0);
}

TEST_F(QtRichTextBoxTest, ATextSetAfterColoursIsInTheThemesColour) {
    box().setRuns({{u"c", colour::red}});
    box().setText(u"x");
    show(*shown, [&](QtUser &user) {
        EXPECT_EQ(drawnAt(user, 0), edit(user).palette().color(QPalette::Text));
    });
}

TEST_F(QtRichTextBoxTest, WhatIsPastedComesAsPlainText) {
    auto *rich = new QMimeData;
    rich->setHtml(QStringLiteral("<b>bold</b><img src='x'>"));
    rich->setText(QStringLiteral("bold"));
    QGuiApplication::clipboard()->setMimeData(rich);
    show(*shown, [&](QtUser &user) {
        user.press(Key::paste);
        EXPECT_EQ(box().text(), u"bold");
        EXPECT_EQ(edit(user).currentFont().weight(), QFont::Normal);
    });
}

TEST_F(QtRichTextBoxTest, AShiftedEnterIsALineBreakLikeAnyOther) {
    show(*shown, [&](QtUser &user) {
        user.type(u"a");
        QTest::keyClick(edit(user).window()->windowHandle(), Qt::Key_Return, Qt::ShiftModifier);
        user.type(u"b");
        EXPECT_EQ(box().text(), u"a\r\nb");
    });
}

TEST_F(QtRichTextBoxTest, TextOfAllScriptsStaysAsTyped) {
    const std::u16string text = u"\u0928\u092E\u0938\u094D\u0924\u0947  \u00A0\U0001F600 ";
    show(*shown, [&](QtUser &user) {
        user.type(text);
        EXPECT_EQ(box().text(), text);
    });
}

} // namespace
} // namespace kvex::test
