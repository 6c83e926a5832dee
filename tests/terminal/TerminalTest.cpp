#include "adapters/terminal/io/Terminal.h"
#include "tests/terminal/Emulator.h"
#include "tests/terminal/FakeDevice.h"

#include <gtest/gtest.h>

namespace {

using namespace kvex;
using namespace kvex::terminal;
using controls::Key;
using kvex::test::Emulator;
using kvex::test::FakeDevice;

constexpr Rect everything{0, 0, 80, 24};

class TerminalTest : public testing::Test {
protected:
    FakeDevice device;
    Terminal terminal{device, {"xterm-256color", Characters::unicode, true}};
};

TEST_F(TerminalTest, TakesTheScreenOnceForWindowsOverEachOther) {
    terminal.open();
    EXPECT_EQ(device.taken(), "\x1b[?1049h\x1b[22;0;0t\x1b[?1h\x1b=\x1b[?7l"
                              "\x1b[?1000h\x1b[?1006h\x1b[?2004h");
    terminal.open();
    terminal.close();
    EXPECT_TRUE(device.isAcquired());
    EXPECT_EQ(device.taken(), "");
    terminal.close();
    EXPECT_FALSE(device.isAcquired());
    EXPECT_EQ(device.taken(),
              "\x1b(B\x1b[m\x1b[r\x1b[?2004l\x1b[?1006l\x1b[?1000l\x1b[?7h\x1b[?1l\x1b>"
              "\x1b[?25h\x1b[?1049l\x1b[23;0;0t");
}

TEST_F(TerminalTest, GivesTheScreenBackWhenItIsDestroyedOpen) {
    {
        Terminal other{device, {"xterm-256color", Characters::unicode, true}};
        other.open();
        EXPECT_TRUE(device.isAcquired());
    }
    EXPECT_FALSE(device.isAcquired());
}

TEST_F(TerminalTest, ClearsTheScreenAtTheEndWithoutAnAlternateOne) {
    Terminal vt100{device, {"vt100", Characters::unicode, true}};
    vt100.open();
    EXPECT_EQ(device.taken(), "\x1b[?1h\x1b=\x1b[?7l");
    vt100.close();
    EXPECT_EQ(device.taken(), "\x1b[m\x0f\x1b[r\x1b[?7h\x1b[?1l\x1b>\x1b[H\x1b[J");
}

TEST_F(TerminalTest, TellsWhatTheUserDoesInOrder) {
    terminal.open();
    device.type("a\x1b[A");
    device.resize({100, 30});
    device.type("\x1b");
    device.hangUp();
    EXPECT_EQ(terminal.next(), Input(Typed{u"a"}));
    EXPECT_EQ(terminal.next(), Input(Stroke{Key::up}));
    EXPECT_EQ(terminal.next(), Input(Resized{}));
    EXPECT_EQ(terminal.size(), (Size{100, 30}));
    // The hang-up ends the wait for the rest of the sequence, too.
    EXPECT_EQ(terminal.next(), Input(HungUp{}));
    EXPECT_EQ(terminal.next(), Input(HungUp{}));
}

TEST_F(TerminalTest, TakesEscForAKeyWhenNothingFollows) {
    terminal.open();
    device.type("\x1b");
    EXPECT_FALSE(terminal.hasInput());
    EXPECT_EQ(terminal.next(), Input(Stroke{Key::escape}));
    device.type("\x1b");
    device.type("[A");
    EXPECT_EQ(terminal.next(), Input(Stroke{Key::up}));
}

TEST_F(TerminalTest, WritesEverythingAgainAfterASuspend) {
    terminal.open();
    CellGrid grid({80, 24});
    grid.put({0, 0}, u"Rules", {}, everything);
    terminal.show(grid);
    (void)device.taken();
    terminal.show(grid);
    EXPECT_EQ(device.taken(), "");
    terminal.suspend();
    EXPECT_EQ(device.suspensions(), 1);
    EXPECT_EQ(terminal.next(), Input(Repaint{}));
    terminal.show(grid);
    Emulator screen({80, 24});
    screen.take(device.taken());
    EXPECT_EQ(screen.line(0), u"Rules");
}

TEST_F(TerminalTest, WritesEverythingAgainWhenTheUserAsksForIt) {
    terminal.open();
    terminal.show(CellGrid({80, 24}));
    (void)device.taken();
    device.type("\f");
    EXPECT_EQ(terminal.next(), Input(Repaint{}));
    terminal.show(CellGrid({80, 24}));
    EXPECT_EQ(device.taken(), "\x1b(B\x1b[m\x1b[H\x1b[2J\x1b[?25l");
}

TEST_F(TerminalTest, HasTheUsualSizeWhereTheLineKnowsNone) {
    device.resize({0, 0});
    EXPECT_EQ(terminal.size(), (Size{80, 24}));
}

TEST_F(TerminalTest, HasNoColoursWhenTheUserWantsNone) {
    EXPECT_TRUE(terminal.hasColours());
    Terminal plain{device, {"xterm-256color", Characters::unicode, false}};
    EXPECT_FALSE(plain.hasColours());
    EXPECT_FALSE(Terminal(device, {"vt100", Characters::unicode, true}).hasColours());
}

TEST_F(TerminalTest, KnowsWhetherItHasAMouse) {
    EXPECT_TRUE(terminal.hasMouse());
    EXPECT_FALSE(Terminal(device, {"vt100", Characters::unicode, true}).hasMouse());
}

} // namespace
