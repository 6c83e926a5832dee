// How boxes with text look, and what clicks and page keys do in them.
#include "adapters/lightweight/TextInput.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "tests/terminal/Looks.h"

#include <gtest/gtest.h>

#include <string>

namespace kvex::test {
namespace {

using terminal::Point;

class TextLooks : public Looks {
protected:
    /// A box of one line with 37 cells for its text, which begin in the second column.
    void showLine(const std::u16string &text, const TerminalPlay::Script &script) {
        show(
            {control(ControlKind::textBox, u"txt")},
            [&](Window &window) { window.get<TextBox>(u"txt").setText(text); }, script);
    }
    /// A box of several lines in the whole window: 16 lines of 37 cells.
    void showLines(const std::u16string &text, const TerminalPlay::Script &script) {
        show(
            {control(ControlKind::richTextBox, u"rt")},
            [&](Window &window) {
                window.get<RichTextBox>(u"rt").setText(text);
                window.get<RichTextBox>(u"rt").setFocus();
            },
            [&](TerminalUser &user) {
                user.press(Key::textStart);
                script(user);
            });
    }
    /// The beginning of a line of the box, with the frame before it.
    [[nodiscard]] std::u16string inFrame(int row) { return play.screen().line(row).substr(0, 8); }
    static std::u16string numbered(int lines) {
        std::u16string text;
        for (int line = 0; line < lines; ++line) {
            text += std::u16string(line > 0 ? u"\r\n" : u"") + u"line " +
                    static_cast<char16_t>(u'a' + line);
        }
        return text;
    }
    void wheel(bool down, Point at) {
        play.input("\x1b[<" + std::string(down ? "65" : "64") + ";" +
                   std::to_string(at.column + 1) + ";" + std::to_string(at.row + 1) + "M");
    }
};

TEST_F(TextLooks, ACaretBehindTheTextHasACellOfItsOwn) {
    const std::u16string fits(36, u'x');
    showLine(u"a" + fits, [&](TerminalUser &user) {
        user.press(Key::home);
        EXPECT_EQ(play.screen().line(1), u"[a" + fits + u"]");
        EXPECT_EQ(play.screen().cursor(), (Point{1, 1}));
        user.press(Key::end);
        EXPECT_EQ(play.screen().line(1), u"[" + fits + u" ]");
        EXPECT_EQ(play.screen().cursor(), (Point{37, 1}));
    });
}

TEST_F(TextLooks, ATextBoxMovesItsTextOnlyWhenTheCaretLeavesIt) {
    showLine(u"0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJ", [&](TerminalUser &user) {
        user.press(Key::end);
        EXPECT_EQ(play.screen().line(1), u"[abcdefghijklmnopqrstuvwxyzABCDEFGHIJ ]");
        for (int times = 0; times < 36; ++times) {
            user.press(Key::left);
        }
        EXPECT_EQ(play.screen().line(1), u"[abcdefghijklmnopqrstuvwxyzABCDEFGHIJ ]");
        EXPECT_EQ(play.screen().cursor(), (Point{1, 1}));
        user.press(Key::left);
        EXPECT_EQ(play.screen().line(1), u"[9abcdefghijklmnopqrstuvwxyzABCDEFGHIJ]");
        EXPECT_EQ(play.screen().cursor(), (Point{1, 1}));
        for (int times = 0; times < 36; ++times) {
            user.press(Key::right);
        }
        EXPECT_EQ(play.screen().line(1), u"[9abcdefghijklmnopqrstuvwxyzABCDEFGHIJ]");
        EXPECT_EQ(play.screen().cursor(), (Point{37, 1}));
    });
}

TEST_F(TextLooks, AWideCharacterThatDoesNotFitLeavesItsCellEmpty) {
    showLine(std::u16string(36, u'x') + u"漢y", [&](TerminalUser &user) {
        user.press(Key::home);
        EXPECT_EQ(play.screen().line(1), u"[" + std::u16string(36, u'x') + u" ]");
        user.press(Key::end);
        EXPECT_EQ(play.screen().line(1), u"[" + std::u16string(33, u'x') + u"漢y ]");
        EXPECT_EQ(play.screen().cursor(), (Point{37, 1}));
    });
}

TEST_F(TextLooks, ASelectionThatBeginsOutOfViewIsMarkedUpToItsEnd) {
    showLine(u"0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJ", [&](TerminalUser &user) {
        user.press(Key::home);
        user.press(Key::selectEnd);
        EXPECT_TRUE(has(u"abc", reverse));
        EXPECT_TRUE(has(u"J ]", reverse));
        EXPECT_FALSE(has(u" ]", reverse));
        EXPECT_FALSE(has(u"[a", reverse));
    });
}

TEST_F(TextLooks, AClickIntoATextThatHasMovedCountsFromWhatIsSeen) {
    showLine(u"0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJ", [&](TerminalUser &user) {
        user.press(Key::end);
        user.clickAt(find(u"c"));
        user.type(u"-");
        EXPECT_EQ(user.get<TextBox>(u"txt").text(),
                  u"0123456789ab-cdefghijklmnopqrstuvwxyzABCDEFGHIJ");
        user.clickAt({0, 1});
        EXPECT_EQ(play.screen().cursor(), (Point{1, 1}));
    });
}

TEST_F(TextLooks, ADoubleClickSelectsTheWholeText) {
    showLine(u"one two", [&](TerminalUser &user) {
        user.clickAt(find(u"two"), 2);
        EXPECT_TRUE(has(u"one two", reverse));
        EXPECT_TRUE(has(u"o ", reverse));
        user.type(u"x");
        EXPECT_EQ(user.get<TextBox>(u"txt").text(), u"x");
    });
}

TEST_F(TextLooks, ABoxThatTakesNoTextIsDim) {
    ControlDesign fixed = control(ControlKind::textBox, u"txtFixed", u"fixed");
    fixed.readOnly = true;
    show({control(ControlKind::textBox, u"txt", u"usual"), fixed,
          disabled(control(ControlKind::textBox, u"txtOff", u"off"))},
         [&](TerminalUser &) {
             EXPECT_FALSE(has(u"[usual", dim));
             EXPECT_TRUE(has(u"[fixed", dim));
             EXPECT_TRUE(has(u"fixed", dim));
             EXPECT_TRUE(has(u"off", dim));
         });
}

TEST_F(TextLooks, AFrameAndAScrollBarStandAroundLines) {
    showLines(numbered(17), [&](TerminalUser &user) {
        EXPECT_EQ(inFrame(1).front(), u'┌');
        EXPECT_EQ(inFrame(2), u"│line a ");
        EXPECT_EQ(inFrame(17), u"│line p ");
        EXPECT_EQ(inFrame(18).front(), u'└');
        EXPECT_EQ(play.screen().at(38, 2).text, u"█");
        EXPECT_EQ(play.screen().at(38, 17).text, u"│");
        EXPECT_EQ(play.screen().cursor(), (Point{1, 2}));
        user.press(Key::textEnd);
        EXPECT_EQ(inFrame(2), u"│line b ");
        EXPECT_EQ(inFrame(17), u"│line q ");
        EXPECT_EQ(play.screen().at(38, 2).text, u"│");
        EXPECT_EQ(play.screen().at(38, 17).text, u"█");
        EXPECT_EQ(play.screen().cursor(), (Point{7, 17}));
    });
}

TEST_F(TextLooks, ATextThatFitsHasNoScrollBar) {
    showLines(numbered(16), [&](TerminalUser &user) {
        EXPECT_FALSE(isOnScreen(u"█"));
        user.press(Key::textEnd);
        EXPECT_EQ(inFrame(2), u"│line a ");
        EXPECT_EQ(play.screen().cursor(), (Point{7, 17}));
    });
}

TEST_F(TextLooks, PageKeysGoAsManyLinesAsTheBoxShows) {
    showLines(numbered(26), [&](TerminalUser &user) {
        user.press(Key::pageDown);
        EXPECT_EQ(inFrame(17), u"│line q ");
        EXPECT_EQ(play.screen().cursor(), (Point{1, 17}));
        user.press(Key::up);
        EXPECT_EQ(inFrame(17), u"│line q ");
        EXPECT_EQ(play.screen().cursor(), (Point{1, 16}));
        user.press(Key::pageUp);
        EXPECT_EQ(inFrame(2), u"│line a ");
        EXPECT_EQ(play.screen().cursor(), (Point{1, 2}));
    });
}

TEST_F(TextLooks, TheWheelScrollsLinesAndTheNextKeyComesBackToTheCaret) {
    showLines(numbered(26), [&](TerminalUser &user) {
        const Point inside{5, 5};
        wheel(true, inside);
        EXPECT_EQ(inFrame(2), u"│line d ");
        for (int times = 0; times < 5; ++times) {
            wheel(true, inside);
        }
        EXPECT_EQ(inFrame(17), u"│line z ");
        wheel(false, inside);
        EXPECT_EQ(inFrame(17), u"│line w ");
        user.press(Key::right);
        EXPECT_EQ(inFrame(2), u"│line a ");
        EXPECT_EQ(play.screen().cursor(), (Point{2, 2}));
        wheel(false, inside);
        EXPECT_EQ(inFrame(2), u"│line a ");
    });
}

TEST_F(TextLooks, AClickBelowTheLastLineLeadsIntoIt) {
    showLines(u"one\r\ntwo", [&](TerminalUser &user) {
        user.clickAt({3, 10});
        EXPECT_EQ(play.screen().cursor(), (Point{3, 3}));
        user.clickAt({3, 1});
        EXPECT_EQ(play.screen().cursor(), (Point{3, 2}));
    });
}

TEST_F(TextLooks, AClickOnTheBorderLeadsIntoTheNearestLineInView) {
    showLines(numbered(26), [&](TerminalUser &user) {
        user.clickAt({3, 17});
        EXPECT_EQ(play.screen().cursor(), (Point{3, 17}));
        user.clickAt({3, 1});
        user.clickAt({3, 18});
        EXPECT_EQ(play.screen().cursor(), (Point{3, 17}));
        EXPECT_EQ(inFrame(17), u"│line p ");
    });
}

TEST_F(TextLooks, AShorterTextIsInViewHoweverFarTheLongerOneWasScrolled) {
    showLines(numbered(26), [&](TerminalUser &user) {
        user.get<RichTextBox>(u"rt").setText(numbered(26));
        user.press(Key::textStart);
        wheel(true, {5, 5});
        auto &box = dynamic_cast<lightweight::TextInput &>(*user.window().element(u"rt"));
        user.get<RichTextBox>(u"rt").setText(u"one\r\ntwo");
        box.setCaret(0);
        wheel(false, {0, 19});
        EXPECT_EQ(inFrame(2).substr(0, 4), u"│one");
        EXPECT_EQ(play.screen().cursor(), (Point{1, 2}));
    });
}

TEST_F(TextLooks, WithoutRoomForAFrameLinesStandBesideABar) {
    TerminalPlay low({40, 6});
    const auto window = low.toolkit().createWindow(
        {u"frmTest", u"Test", {control(ControlKind::richTextBox, u"rt")}, column({place(u"rt")})});
    window->get<RichTextBox>(u"rt").setText(numbered(9));
    low.whenShown(u"frmTest", [&](TerminalUser &user) {
        user.press(Key::textStart);
        EXPECT_EQ(low.screen().line(1).substr(0, 8), u"│line a ");
        EXPECT_EQ(low.screen().line(4).substr(0, 8), u"│line d ");
        EXPECT_EQ(low.screen().cursor(), (Point{1, 1}));
        user.clickAt({3, 2});
        EXPECT_EQ(low.screen().cursor(), (Point{3, 2}));
        user.press(Key::pageDown);
        EXPECT_EQ(low.screen().line(4).substr(0, 8), u"│line f ");
        EXPECT_EQ(low.screen().cursor(), (Point{3, 4}));
        user.closeByFrame();
    });
    window->showModal();
}

TEST_F(TextLooks, AClickIntoScrolledLinesCountsFromWhatIsSeen) {
    showLines(numbered(26), [&](TerminalUser &user) {
        wheel(true, {5, 5});
        user.clickAt(find(u"e e"));
        user.type(u"-");
        EXPECT_TRUE(isOnScreen(u"│lin-e e "));
        EXPECT_EQ(inFrame(2), u"│line d ");
    });
}

TEST_F(TextLooks, ASelectionOfSeveralLinesIsMarkedInEachOfThem) {
    showLines(u"one\r\ntwo\r\nsix", [&](TerminalUser &user) {
        user.press(Key::right);
        user.press(Key::selectDown);
        user.press(Key::selectDown);
        EXPECT_FALSE(has(u"one", reverse));
        EXPECT_TRUE(has(u"ne ", reverse));
        EXPECT_TRUE(has(u"two", reverse));
        EXPECT_TRUE(has(u"six", reverse));
        EXPECT_FALSE(has(u"ix ", reverse));
    });
}

TEST_F(TextLooks, EndGoesBehindTheLastCharacterOfAFullLine) {
    const std::u16string full(37, u'x');
    showLines(full + u"\r\nnext", [&](TerminalUser &user) {
        user.press(Key::end);
        EXPECT_EQ(play.screen().cursor(), (Point{37, 2}));
        user.type(u"y");
        EXPECT_EQ(user.get<RichTextBox>(u"rt").text(), full + u"y\r\nnext");
    });
}

TEST_F(TextLooks, EndStaysInALineThatIsWrapped) {
    const auto caretAfterEnd = [&](TerminalUser &user) {
        user.press(Key::end);
        EXPECT_EQ(play.screen().cursor().row, 2);
        const int column = play.screen().cursor().column;
        user.press(Key::right);
        EXPECT_EQ(play.screen().cursor(), (Point{1, 3}));
        user.press(Key::up);
        EXPECT_EQ(play.screen().cursor(), (Point{1, 2}));
        return column;
    };
    showLines(u"the first words of a text, and then others",
              [&](TerminalUser &user) { EXPECT_EQ(caretAfterEnd(user), 36); });
    showLines(std::u16string(40, u'x'),
              [&](TerminalUser &user) { EXPECT_EQ(caretAfterEnd(user), 37); });
}

TEST_F(TextLooks, LinesAreWrappedAnewInATerminalOfAnotherWidth) {
    showLines(u"these words stand in one line", [&](TerminalUser &) {
        EXPECT_TRUE(isOnScreen(u"│these words stand in one line "));
        play.device().resize({20, height});
        play.input("");
        const Emulator narrow = [&] {
            Emulator emulator({20, height});
            emulator.take(play.device().taken());
            return emulator;
        }();
        EXPECT_EQ(narrow.line(2).substr(0, 18), u"│these words stand");
        EXPECT_EQ(narrow.line(3).substr(0, 18), u"│in one line      ");
        play.device().resize({40, height});
        play.input("");
    });
}

TEST_F(TextLooks, LinesOfADisabledBoxAreDim) {
    show(
        {control(ControlKind::textBox, u"txt"), disabled(control(ControlKind::richTextBox, u"rt"))},
        [](Window &window) {
            window.get<RichTextBox>(u"rt").setRuns(
                {{u"black", colour::black}, {u"blue", colour::blue}});
        },
        [&](TerminalUser &user) {
            EXPECT_TRUE(has(u"black", dim));
            EXPECT_TRUE(has(u"blue", dim));
            user.get<RichTextBox>(u"rt").setEnabled(true);
            user.press(Key::home);
            EXPECT_FALSE(has(u"black", dim));
            EXPECT_FALSE(has(u"black", bold));
            EXPECT_TRUE(has(u"blue", bold));
        });
}

} // namespace
} // namespace kvex::test
