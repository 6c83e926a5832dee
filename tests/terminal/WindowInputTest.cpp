// What a window does with keys and clicks that no control takes, and what its status line says.
#include "platform/controls/Buttons.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "tests/terminal/Looks.h"

#include <gtest/gtest.h>

#include <string>

namespace kvex::test {
namespace {

using terminal::Point;

class WindowInput : public Looks {
protected:
    [[nodiscard]] std::u16string status() { return play.screen().line(height - 1); }
    void mouse(int buttons, Point at) {
        play.input("\x1b[<" + std::to_string(buttons) + ";" + std::to_string(at.column + 1) + ";" +
                   std::to_string(at.row + 1) + "M");
    }
    /// A button that waits for something.
    static ControlDesign waiting(std::u16string name, std::u16string caption, std::u16string hint) {
        ControlDesign design =
            disabled(control(ControlKind::commandButton, std::move(name), std::move(caption)));
        design.disabledHint = std::move(hint);
        return design;
    }
};

const ControlDesign text = control(ControlKind::textBox, u"txt");

TEST_F(WindowInput, ATryOfADisabledButtonIsExplainedUntilTheNextInput) {
    show({text, waiting(u"cmdFirst", u"&First", u"Type a word"),
          waiting(u"cmdOther", u"&Other", u"Tick a row")},
         [&](TerminalUser &user) {
             const std::u16string usual = u" First: Type a word            F1: help";
             EXPECT_EQ(status(), usual);
             const std::u16string tried = u" Other: Tick a row             F1: help";
             user.clickAt(find(u"Other"));
             EXPECT_EQ(status(), tried);
             EXPECT_EQ(user.focused(), u"txt");
             user.press(Key::end);
             EXPECT_EQ(status(), usual);
             user.pressAccessKey(u'o');
             EXPECT_EQ(status(), tried);
             user.pressAccessKey(u'q');
             EXPECT_EQ(status(), usual);
             user.pressAccessKey(u'o');
             user.type(u"x");
             EXPECT_EQ(status(), usual);
         });
}

TEST_F(WindowInput, AClickOnALabelChangesNothing) {
    show({text, control(ControlKind::label, u"lbl", u"Some words"),
          waiting(u"cmd", u"&Go", u"Type a word")},
         [&](TerminalUser &user) {
             user.clickAt(find(u"words"));
             EXPECT_EQ(user.focused(), u"txt");
             EXPECT_EQ(status(), u" Go: Type a word               F1: help");
         });
}

TEST_F(WindowInput, AMessageShowsItsSignsAsTheyAre) {
    show({text}, [&](TerminalUser &) {
        bool isShown = false;
        play.onMessageBox = [&](terminal::TerminalWindow &) {
            isShown = isOnScreen(u"a & b && c");
        };
        static_cast<void>(
            play.toolkit().showMessageBox(u"T", u"a & b && c", message_box::exclamation));
        EXPECT_TRUE(isShown);
    });
}

TEST_F(WindowInput, TheAccessKeyOfAHiddenControlExplainsNothing) {
    ControlDesign off = waiting(u"cmdOff", u"O&ff", u"Never");
    off.visible = false;
    show({text, waiting(u"cmd", u"&Go", u"Type a word"), off}, [&](TerminalUser &user) {
        user.pressAccessKey(u'f');
        EXPECT_EQ(status(), u" Go: Type a word               F1: help");
    });
}

TEST_F(WindowInput, ATextThatIsTooLongForTheStatusLineIsCutBetweenWords) {
    show({text, waiting(u"cmd", u"&Go", u"Type a word after the others")},
         [&](TerminalUser &) { EXPECT_EQ(status(), u" Type a word after the others  F1: help"); });
    show({text, waiting(u"cmd", u"&Go", u"Type one word after the other")},
         [&](TerminalUser &) { EXPECT_EQ(status(), u" Type one word after the...    F1: help"); });
    // The last word that fits ends where there is no more room.
    show({text, waiting(u"cmd", u"&Go", u"Type one word after a one or two")},
         [&](TerminalUser &) { EXPECT_EQ(status(), u" Type one word after a one...  F1: help"); });
    show({text, waiting(u"cmd", u"&Go", u"TypeOneWordAfterTheOthersOrTwo")},
         [&](TerminalUser &) { EXPECT_EQ(status(), u" TypeOneWordAfterTheOthers...  F1: help"); });
}

TEST_F(WindowInput, TheStatusLineNamesAsManyKeysAsFit) {
    const auto statusOf = [](int columns) {
        TerminalPlay wide({columns, 10});
        const auto window =
            wide.toolkit().createWindow({u"frmTest", u"Test", {text}, column({place(u"txt")})});
        std::u16string shown;
        wide.whenShown(u"frmTest", [&](TerminalUser &user) {
            shown = wide.screen().line(9);
            user.closeByFrame();
        });
        window->showModal();
        return shown;
    };
    EXPECT_EQ(statusOf(20), u"           F1: help");
    EXPECT_EQ(statusOf(21), u" Tab: next  F1: help");
    EXPECT_EQ(statusOf(40), u" Tab: next  Esc: cancel        F1: help");
    EXPECT_EQ(statusOf(78), u" Tab: next  Esc: cancel" + std::u16string(46, u' ') + u"F1: help");
    EXPECT_EQ(statusOf(80),
              u" Tab: next  Esc: cancel  Alt+letter or F2, letter: underlined letter   F1: help");
}

TEST_F(WindowInput, HelpBeginsWithWhatTheStatusLineSays) {
    show({text, waiting(u"cmd", u"&Go", u"Type one word after the others")},
         [&](TerminalUser &user) {
             play.onMessageBox = [&](terminal::TerminalWindow &) {
                 EXPECT_TRUE(isOnScreen(u"Go: Type one word after the others"));
                 EXPECT_TRUE(isOnScreen(u"Tab, Shift+Tab  next, previous one"));
                 EXPECT_EQ(find(u"Tab, Shift+Tab").column, find(u"Go: Type").column);
                 EXPECT_TRUE(isOnScreen(u"< OK >"));
                 EXPECT_TRUE(has(u"OK >", underlined));
             };
             user.press(Key::help);
             EXPECT_EQ(play.messageBoxes().size(), 1U);
             EXPECT_FALSE(isOnScreen(u"Tab, Shift+Tab"));
         });
}

TEST_F(WindowInput, AnyInputEndsTheWaitForAnUnderlinedLetter) {
    const std::u16string waits = u" Press an underlined letter    F1: help";
    show({text, control(ControlKind::commandButton, u"cmd", u"&Go")}, [&](TerminalUser &user) {
        int clicks = 0;
        user.get<CommandButton>(u"cmd").onClick = [&] { ++clicks; };
        const auto ends = [&](const std::string &input) {
            user.press(Key::accessKey);
            EXPECT_EQ(status(), waits);
            play.input(input);
            EXPECT_NE(status(), waits) << testing::PrintToString(input);
            user.focusOn(u"txt");
            user.type(u"g");
        };
        ends(TerminalUser::bytesOf(Key::accessKey));
        ends(TerminalUser::bytesOf(Key::escape));
        ends(TerminalUser::bytesOf(Key::left));
        ends("\x1b[200~\x1b[201~");
        ends("\x1b[<0;1;20M");
        EXPECT_EQ(user.get<TextBox>(u"txt").text().size(), 5U);
        EXPECT_EQ(clicks, 0);
    });
}

TEST_F(WindowInput, ALetterAloneIsNoAccessKeyOutsideBoxes) {
    show({control(ControlKind::checkBox, u"chk", u"&Check"),
          control(ControlKind::commandButton, u"cmd", u"&Go")},
         [&](TerminalUser &user) {
             int clicks = 0;
             user.get<CommandButton>(u"cmd").onClick = [&] { ++clicks; };
             user.type(u"g");
             EXPECT_EQ(clicks, 0);
             EXPECT_EQ(user.focused(), u"chk");
         });
}

TEST_F(WindowInput, TheWheelScrollsALongTextFirstAndThenTheWindow) {
    TerminalPlay low({40, 6});
    ControlDesign lines = control(ControlKind::richTextBox, u"rt");
    lines.lines = 2;
    const std::vector<ControlDesign> controls{lines, text,
                                              control(ControlKind::checkBox, u"chkA", u"First"),
                                              control(ControlKind::checkBox, u"chkB", u"Last")};
    const auto window =
        low.toolkit().createWindow({u"frmTest", u"Test", controls, below(controls)});
    window->get<RichTextBox>(u"rt").setText(u"a\r\nb\r\nc\r\nd");
    window->get<TextBox>(u"txt").setFocus();
    low.whenShown(u"frmTest", [&](TerminalUser &user) {
        const auto first = [&] { return low.screen().line(1).substr(0, 4); };
        const auto wheel = [&](const char *buttons) {
            low.input(std::string("\x1b[<") + buttons + ";3;2M");
        };
        EXPECT_EQ(first(), u"│c  ");
        wheel("64");
        EXPECT_EQ(first(), u"│a  ");
        wheel("65");
        EXPECT_EQ(first(), u"│c  ");
        wheel("65");
        EXPECT_EQ(first(), u"│d  ");
        wheel("65");
        EXPECT_EQ(first(), u"│d  ");
        user.closeByFrame();
    });
    window->showModal();
    EXPECT_EQ(low.problems(), std::vector<std::string>());
}

TEST_F(WindowInput, TheNextKeyOrPasteBringsTheFocusBackIntoView) {
    TerminalPlay low({40, 6});
    std::vector<ControlDesign> controls{text};
    for (const auto *name : {u"chkA", u"chkB", u"chkC", u"chkD", u"chkE", u"chkF"}) {
        controls.push_back(control(ControlKind::checkBox, name, name));
    }
    const auto window =
        low.toolkit().createWindow({u"frmTest", u"Test", controls, below(controls)});
    low.whenShown(u"frmTest", [&](TerminalUser &user) {
        for (const char *const input : {"x", "\x1b[D", "\x1b[200~y\x1b[201~"}) {
            EXPECT_EQ(low.screen().line(1).front(), u'[');
            low.input("\x1b[<65;3;3M");
            EXPECT_EQ(low.screen().line(1), u"[ ] chkC" + std::u16string(31, u' ') + u"│");
            low.input(input);
        }
        EXPECT_EQ(low.screen().line(1).substr(0, 5), u"[yx  ");
        user.closeByFrame();
    });
    window->showModal();
    EXPECT_EQ(low.problems(), std::vector<std::string>());
}

TEST_F(WindowInput, ABoxShowsNoHelpOfItsOwn) {
    show({text}, [&](TerminalUser &) {
        play.onMessageBox = [&](terminal::TerminalWindow &) {
            play.device().type(TerminalUser::bytesOf(Key::help));
        };
        static_cast<void>(play.toolkit().showMessageBox(u"T", u"Text", message_box::exclamation));
        EXPECT_EQ(play.messageBoxes().size(), 1U);
    });
}

TEST_F(WindowInput, WithoutAControlForTheFocusCanBeClosed) {
    show({control(ControlKind::label, u"lbl", u"Only words")}, [&](TerminalUser &user) {
        for (const char *const input :
             {"\x1b[6~", "\x1b[5~", "x", "\x1bx", "\t", "\r", "\x1b", "\x1b[200~x\x1b[201~"}) {
            play.input(input);
        }
        EXPECT_EQ(status(), u" Tab: next  Esc: cancel        F1: help");
        EXPECT_TRUE(isOnScreen(u"Only words"));
        EXPECT_TRUE(user.isOpen());
    });
}

TEST_F(WindowInput, ALetterAfterF2ThatNothingHasIsNotTyped) {
    show({text, control(ControlKind::commandButton, u"cmd", u"&Go")}, [&](TerminalUser &user) {
        user.press(Key::accessKey);
        user.type(u"x");
        user.type(u"y");
        EXPECT_EQ(user.get<TextBox>(u"txt").text(), u"y");
    });
}

TEST_F(WindowInput, OnlyAClickOnTheMarkClosesTheWindow) {
    show({text}, [&](TerminalUser &user) {
        const Point mark = find(u"[x]");
        EXPECT_EQ(mark, (Point{36, 0}));
        for (const int wheel : {64, 65}) {
            mouse(wheel, mark);
        }
        mouse(0, {mark.column - 1, mark.row});
        EXPECT_TRUE(user.isOpen());
        mouse(0, {mark.column + 2, mark.row});
        EXPECT_FALSE(user.isOpen());
    });
}

TEST_F(WindowInput, EscCancelsFromEveryControl) {
    ControlDesign cancel = control(ControlKind::commandButton, u"cmd", u"Cancel");
    cancel.isCancel = true;
    ControlDesign date = control(ControlKind::datePicker, u"dtp");
    date.format = u"dd/MM/yyyy";
    show({text, date, control(ControlKind::richTextBox, u"rt"),
          control(ControlKind::listView, u"lvw"), control(ControlKind::checkBox, u"chk", u"Check"),
          cancel},
         [&](TerminalUser &user) {
             int clicks = 0;
             user.get<CommandButton>(u"cmd").onClick = [&] { ++clicks; };
             for (const auto *name : {u"txt", u"dtp", u"rt", u"lvw", u"chk"}) {
                 user.focusOn(name);
                 user.press(Key::escape);
             }
             EXPECT_EQ(clicks, 5);
         });
}

} // namespace
} // namespace kvex::test
