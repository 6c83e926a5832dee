#include "adapters/terminal/TerminalToolkit.h"
#include "platform/Error.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/DTPicker.h"
#include "platform/controls/ListView.h"
#include "platform/controls/TextBox.h"
#include "tests/support/RaisedError.h"
#include "tests/terminal/TerminalPlay.h"
#include "tests/toolkit/Designs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <thread>

namespace kvex::test {
namespace {

using terminal::Characters;
using terminal::TerminalKind;

constexpr auto button = ControlKind::commandButton;
constexpr auto text = ControlKind::textBox;

std::unique_ptr<Window> window(TerminalPlay &play, std::vector<ControlDesign> controls,
                               std::u16string name = u"frmTest") {
    Layout layout = below(controls);
    return play.toolkit().createWindow(
        {std::move(name), u"Test", std::move(controls), std::move(layout)});
}

void show(TerminalPlay &play, Window &shown, TerminalPlay::Script script) {
    play.whenShown(u"", [script = std::move(script)](TerminalUser &user) {
        script(user);
        user.closeByFrame();
    });
    shown.showModal();
    EXPECT_EQ(play.problems(), std::vector<std::string>());
}

/// The lines of the screen that hold `part`.
int linesWith(const Emulator &screen, std::u16string_view part, int rows) {
    int found = 0;
    for (int row = 0; row < rows; ++row) {
        found += screen.line(row).find(part) != std::u16string::npos ? 1 : 0;
    }
    return found;
}

TEST(TerminalToolkit, TakesTheTerminalForItsWindowsOnly) {
    TerminalPlay play;
    const auto shown = window(play, {control(text, u"txt")});
    EXPECT_FALSE(play.device().isAcquired());
    show(play, *shown, [&](TerminalUser &) { EXPECT_TRUE(play.device().isAcquired()); });
    EXPECT_FALSE(play.device().isAcquired());
}

TEST(TerminalToolkit, KeepsTheTerminalForAWindowThatWillBeShown) {
    TerminalPlay play;
    const auto next = window(play, {control(text, u"txt")});
    const auto first = window(play, {control(text, u"txt")});
    show(play, *first, [](TerminalUser &) {});
    EXPECT_TRUE(play.device().isAcquired());
    show(play, *next, [](TerminalUser &) {});
    EXPECT_FALSE(play.device().isAcquired());
}

TEST(TerminalToolkit, GivesTheTerminalBackWhenTheNextWindowIsNeverShown) {
    TerminalPlay play;
    auto never = window(play, {control(text, u"txt")});
    const auto first = window(play, {control(text, u"txt")});
    show(play, *first, [](TerminalUser &) {});
    never.reset();
    EXPECT_FALSE(play.device().isAcquired());
}

TEST(TerminalToolkit, RefusesATerminalThatCannotShowWindows) {
    FakeDevice device;
    terminal::TerminalToolkit toolkit(device, {"dumb", Characters::unicode, true});
    EXPECT_EQ(errorNumber([&] {
                  static_cast<void>(toolkit.createWindow({u"frm", u"Test", {}, column({})}));
              }),
              error_number::cannotCreateObject);
    EXPECT_EQ(errorNumber([&] { toolkit.showMessageBox(u"T", u"Text", message_box::exclamation); }),
              error_number::cannotCreateObject);
}

TEST(TerminalToolkit, ItsWindowsBelongToOneThreadAsLongAsThereAreAny) {
    TerminalPlay play;
    std::int32_t number = 0;
    const auto create = [&] {
        number = errorNumber([&] { static_cast<void>(window(play, {control(text, u"txt")})); });
    };
    auto own = window(play, {control(text, u"txt")});
    std::thread(create).join();
    EXPECT_EQ(number, error_number::invalidCall);
    own.reset();
    std::thread(create).join();
    EXPECT_EQ(number, 0);
}

TEST(TerminalToolkit, TwoThreadsWithAToolkitEachShowWindowsAtTheSameTime) {
    const auto session = [](const std::u16string &typed, std::u16string &result) {
        TerminalPlay play;
        const auto shown = window(play, {control(text, u"txt")});
        show(play, *shown, [&](TerminalUser &user) {
            for (int time = 0; time < 50; ++time) {
                user.type(typed);
            }
        });
        result = shown->get<TextBox>(u"txt").text();
    };
    std::u16string one;
    std::u16string other;
    std::thread first([&] { session(u"a", one); });
    std::thread second([&] { session(u"é", other); });
    first.join();
    second.join();
    EXPECT_EQ(one, std::u16string(50, u'a'));
    EXPECT_EQ(other, std::u16string(50, u'é'));
}

TEST(TerminalToolkit, AHangUpClosesAllWindowsAsTheirFramesDo) {
    TerminalPlay play;
    ControlDesign cancel = control(button, u"cmdCancel", u"Cancel");
    cancel.isCancel = true;
    const auto outer = window(play, {control(button, u"cmdOpen", u"Open")}, u"frmOuter");
    int clicks = 0;
    std::int32_t answer = 0;
    outer->get<CommandButton>(u"cmdOpen").onClick = [&] {
        const auto inner = window(play, {cancel}, u"frmInner");
        inner->get<CommandButton>(u"cmdCancel").onClick = [&] { ++clicks; };
        play.whenShown(u"frmInner", [&](TerminalUser &user) {
            play.hangUp();
            EXPECT_FALSE(user.isOpen());
        });
        inner->showModal();
        answer = play.toolkit().showMessageBox(u"T", u"Sure?", message_box::yesNo);
    };
    play.whenShown(u"frmOuter", [&](TerminalUser &user) {
        user.press(Key::enter);
        EXPECT_FALSE(user.isOpen());
    });
    outer->showModal();
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(answer, message_box::no);
    EXPECT_EQ(play.problems(), std::vector<std::string>());
}

TEST(TerminalToolkit, AResizeLosesNothing) {
    TerminalPlay play;
    ControlDesign list = control(ControlKind::listView, u"lvw");
    const auto shown = window(play, {control(text, u"txt"), list});
    auto &rows = shown->get<ListView>(u"lvw");
    for (int row = 1; row <= 40; ++row) {
        rows.addRow(u"Row " + std::u16string(1, static_cast<char16_t>(u'A' + row % 26)));
    }
    show(play, *shown, [&](TerminalUser &user) {
        user.type(u"abc");
        user.clickRow(u"lvw", 30);
        for (const terminal::Size size : {terminal::Size{40, 12}, terminal::Size{1, 1},
                                          terminal::Size{3, 2}, terminal::Size{100, 30}}) {
            play.device().resize(size);
            play.input("");
        }
        EXPECT_EQ(shown->get<TextBox>(u"txt").text(), u"abc");
        EXPECT_EQ(rows.selectedRow(), 30);
        EXPECT_EQ(user.focused(), u"lvw");
        user.press(Key::down);
        EXPECT_EQ(rows.selectedRow(), 31);
    });
}

TEST(TerminalToolkit, AnErrorOfAHandlerThatConcernsTheUserIsShownOverTheWindow) {
    TerminalPlay play;
    const auto shown = window(play, {control(button, u"cmd", u"Go")});
    constexpr std::int32_t ofDatabase = -2147217864;
    std::int32_t number = ofDatabase;
    shown->get<CommandButton>(u"cmd").onClick = [&] { throw Error(number, u"Not stored."); };
    const std::ostringstream diagnostics;
    std::streambuf *const before = std::cerr.rdbuf(diagnostics.rdbuf());
    show(play, *shown, [&](TerminalUser &user) {
        user.click(u"cmd");
        number = error_number::overflow;
        user.click(u"cmd");
        EXPECT_TRUE(user.isOpen());
    });
    std::cerr.rdbuf(before);
    ASSERT_EQ(play.messageBoxes().size(), 1U);
    EXPECT_EQ(play.messageBoxes()[0].title, u"Test");
    EXPECT_EQ(play.messageBoxes()[0].text, u"Not stored.");
}

TEST(TerminalToolkit, AfterABoxTheWindowBelowIsWholeAgain) {
    TerminalPlay play;
    const auto shown =
        window(play, {control(ControlKind::label, u"lbl", u"Some label"), control(text, u"txt")});
    show(play, *shown, [&](TerminalUser &user) {
        play.onMessageBox = [&](terminal::TerminalWindow &) {
            EXPECT_EQ(linesWith(play.screen(), u"Is it so?", 24), 1);
        };
        static_cast<void>(play.toolkit().showMessageBox(u"T", u"Is it so?", message_box::yesNo));
        user.press(Key::end);
        EXPECT_EQ(linesWith(play.screen(), u"Is it so?", 24), 0);
        EXPECT_EQ(linesWith(play.screen(), u"Some label", 24), 1);
    });
}

TEST(TerminalToolkit, AnAccessKeyWorksAfterF2AndAfterEscape) {
    TerminalPlay play;
    const auto shown = window(play, {control(text, u"txt"), control(button, u"cmd", u"&Go")});
    int clicks = 0;
    shown->get<CommandButton>(u"cmd").onClick = [&] { ++clicks; };
    show(play, *shown, [&](TerminalUser &user) {
        user.press(Key::accessKey);
        EXPECT_EQ(linesWith(play.screen(), u"Press an underlined letter", 24), 1);
        user.type(u"g");
        EXPECT_EQ(clicks, 1);
        user.focusOn(u"txt");
        user.pressAccessKey(u'G');
        EXPECT_EQ(clicks, 2);
        user.focusOn(u"txt");
        user.press(Key::accessKey);
        user.press(Key::escape);
        user.type(u"g");
        EXPECT_EQ(clicks, 2);
        EXPECT_EQ(shown->get<TextBox>(u"txt").text(), u"g");
    });
}

TEST(TerminalToolkit, TheStatusLineSaysWhatADisabledButtonWaitsFor) {
    TerminalPlay play;
    ControlDesign waiting = disabled(control(button, u"cmd", u"&Go"));
    waiting.disabledHint = u"Type something first";
    const auto shown = window(play, {control(text, u"txt"), waiting});
    show(play, *shown, [&](TerminalUser &user) {
        EXPECT_EQ(play.screen().line(23).substr(0, 25), u" Go: Type something first");
        shown->get<CommandButton>(u"cmd").setEnabled(true);
        user.press(Key::end);
        EXPECT_EQ(play.screen().line(23).substr(0, 10), u" Tab: next");
    });
}

TEST(TerminalToolkit, ANarrowStatusLineLeavesOutTheNameOfTheDisabledButton) {
    TerminalPlay play({40, 12});
    ControlDesign waiting = disabled(control(button, u"cmd", u"&Go to the other side"));
    waiting.disabledHint = u"Type something first";
    const auto shown = window(play, {control(text, u"txt"), waiting});
    show(play, *shown, [&](TerminalUser &) {
        EXPECT_EQ(play.screen().line(11), u" Type something first          F1: help");
    });
}

TEST(TerminalToolkit, APastedTextGoesThroughTheFilterOfTyping) {
    TerminalPlay play;
    ControlDesign box = control(text, u"txt");
    box.maxLength = 5;
    const auto shown = window(play, {box});
    std::u16string codes;
    shown->get<TextBox>(u"txt").onKeyPress = [&](std::int16_t &code) {
        codes += static_cast<char16_t>(code);
    };
    show(play, *shown, [&](TerminalUser &) { play.input("\x1b[200~one two\nthree\x1b[201~"); });
    EXPECT_EQ(shown->get<TextBox>(u"txt").text(), u"one t");
    EXPECT_EQ(codes, u"\x16");
}

TEST(TerminalToolkit, APickerTakesAPastedDate) {
    TerminalPlay play;
    ControlDesign date = control(ControlKind::datePicker, u"dtp");
    date.format = u"dd/MM/yyyy";
    const auto shown = window(play, {date});
    auto &picker = shown->get<DTPicker>(u"dtp");
    picker.setDate(2001, 2, 3);
    show(play, *shown, [&](TerminalUser &) {
        for (const auto *refused : {"31.02.2024", "no date", "1/2", "99999999999/1/1"}) {
            play.input(std::string("\x1b[200~") + refused + "\x1b[201~");
            EXPECT_EQ(picker.year(), 2001);
        }
        play.input("\x1b[200~24.12.2030\x1b[201~");
    });
    EXPECT_EQ(picker.year(), 2030);
    EXPECT_EQ(picker.month(), 12);
    EXPECT_EQ(picker.day(), 24);
}

TEST(TerminalToolkit, AWindowInATerminalOfOneCellCanBeUsedAndLeft) {
    TerminalPlay play({1, 1});
    ControlDesign cancel = control(button, u"cmdCancel", u"Cancel");
    cancel.isCancel = true;
    const auto shown =
        window(play, {control(text, u"txt"), control(ControlKind::richTextBox, u"rt"),
                      control(ControlKind::listView, u"lvw"), cancel});
    shown->get<CommandButton>(u"cmdCancel").onClick = [&] { shown->close(); };
    play.whenShown(u"frmTest", [&](TerminalUser &user) {
        user.type(u"a");
        user.press(Key::tab);
        user.type(u"b\rc");
        EXPECT_EQ(play.toolkit().showMessageBox(u"T", u"Sure?", message_box::yesNo),
                  message_box::no);
        user.press(Key::help);
        user.press(Key::escape);
        EXPECT_FALSE(user.isOpen());
    });
    shown->showModal();
    EXPECT_EQ(shown->get<TextBox>(u"txt").text(), u"a");
    EXPECT_EQ(play.messageBoxes().size(), 2U);
    EXPECT_EQ(play.problems(), std::vector<std::string>());
}

TEST(TerminalToolkit, RandomInputIsNoDanger) {
    TerminalPlay play({20, 6});
    ControlDesign date = control(ControlKind::datePicker, u"dtp");
    date.format = u"dd/MM/yyyy";
    const auto shown = window(
        play, {control(text, u"txt"), control(ControlKind::richTextBox, u"rt"),
               control(ControlKind::listView, u"lvw"), date, control(button, u"cmd", u"&A")});
    shown->get<ListView>(u"lvw").addRow(u"one");
    std::string bytes;
    std::uint32_t seed = 7;
    for (int count = 0; count < 20000; ++count) {
        seed = seed * 1664525U + 1013904223U;
        bytes += static_cast<char>(seed >> 24U);
    }
    play.whenShown(u"", [&](TerminalUser &user) {
        play.input(bytes);
        user.closeByFrame();
    });
    shown->showModal();
}

} // namespace
} // namespace kvex::test
