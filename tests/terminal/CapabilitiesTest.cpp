#include "adapters/terminal/io/Capabilities.h"

#include "adapters/terminal/io/Colours.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <gtest/gtest.h>
#include <thread>

namespace {

using kvex::controls::Key;
using kvex::terminal::Capabilities;
using kvex::terminal::filled;
using kvex::terminal::nearestColour;

std::string refusalOf(const std::string &type) {
    try {
        (void)Capabilities::ofType(type);
        return "accepted";
    } catch (const kvex::Error &error) {
        return kvex::toUtf8(error.description());
    }
}

TEST(Capabilities, AreKnownForAllCommonTypes) {
    for (const char *const type : {"xterm-256color", "xterm", "screen", "screen-256color", "tmux",
                                   "tmux-256color", "linux", "vt100", "vt220", "rxvt"}) {
        EXPECT_EQ(refusalOf(type), "accepted") << type;
        EXPECT_EQ(filled(Capabilities::ofType(type).placeCursor, 4, 9), "\x1b[5;10H") << type;
    }
}

TEST(Capabilities, AreRefusedInOneSentenceWithoutACursorToPlace) {
    EXPECT_EQ(refusalOf("dumb"),
              "This terminal cannot place its cursor (TERM=dumb); set TERM to the type that your "
              "terminal has, or use a display.");
}

TEST(Capabilities, AreRefusedForATypeThatNobodyKnows) {
    for (const std::string type : {"unknown", "hardcopy", "no-such-type", "../etc/passwd"}) {
        EXPECT_EQ(refusalOf(type),
                  "The type of this terminal is not known (TERM=" + type +
                      "); set TERM to the type that your terminal has, or use a display.");
    }
    EXPECT_EQ(refusalOf(""), "TERM does not say what type your terminal has; set TERM to the type "
                             "that your terminal has, or use a display.");
}

TEST(Capabilities, ShowAnUnknownTypeWithoutItsControlCharacters) {
    EXPECT_EQ(refusalOf("x\x1b[2J"), "The type of this terminal is not known (TERM=x\\u{1b}[2J); "
                                     "set TERM to the type that your terminal has, or use a "
                                     "display.");
}

TEST(Capabilities, HoldNoDelays) {
    const Capabilities vt100 = Capabilities::ofType("vt100");
    EXPECT_EQ(vt100.eraseToEndOfLine, "\x1b[K");
    EXPECT_EQ(vt100.clear, "\x1b[H\x1b[J");
    EXPECT_EQ(vt100.colours, 0);
}

TEST(Capabilities, LeaveTheBlinkingOfTheCursorToTheUser) {
    EXPECT_EQ(Capabilities::ofType("xterm-256color").showCursor, "\x1b[?25h");
}

TEST(Capabilities, HoldTheKeysOfTheTerminal) {
    const Capabilities linux = Capabilities::ofType("linux");
    EXPECT_EQ(linux.keys.at("\x1b[[A"), Key::help);
    EXPECT_EQ(linux.keys.at("\x1b[1~"), Key::home);
    EXPECT_EQ(Capabilities::ofType("xterm-256color").keys.at("\x1b[1;5D"), Key::wordLeft);
}

TEST(Capabilities, AreReadByManyThreadsAtOnce) {
    std::vector<std::thread> threads;
    std::array<int, 4> colours{};
    for (std::size_t at = 0; at < colours.size(); ++at) {
        threads.emplace_back([&colours, at] {
            for (int time = 0; time < 50; ++time) {
                const Capabilities read = Capabilities::ofType(at % 2 == 0 ? "linux" : "vt100");
                colours[at] += read.colours;
                if (filled(read.placeCursor, time, 1) !=
                    "\x1b[" + std::to_string(time + 1) + ";2H") {
                    colours[at] = -1000;
                }
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(colours, (std::array<int, 4>{400, 0, 400, 0}));
}

TEST(NearestColour, OfAPureColourIsTheOneThatTheUserChose) {
    EXPECT_EQ(nearestColour(0x0000FF, 256), 1); // red
    EXPECT_EQ(nearestColour(0xFF0000, 256), 4); // blue
    EXPECT_EQ(nearestColour(0xFF0000, 8), 4);
    EXPECT_EQ(nearestColour(0xFFFFFF, 8), 7);
}

TEST(NearestColour, OfAMixedColourIsExactWhereTheTerminalHasIt) {
    EXPECT_EQ(nearestColour(0x0087FF, 256), 16 + 5 * 36 + 2 * 6); // orange
    EXPECT_EQ(nearestColour(0x0087FF, 8), 3);                     // yellow
    EXPECT_EQ(nearestColour(0x800000, 16), 4);
}

TEST(NearestColour, OfBlackIsTheTerminalsOwn) {
    EXPECT_EQ(nearestColour(0x000000, 256), std::nullopt);
    EXPECT_EQ(nearestColour(0x0000FF, 0), std::nullopt);
    EXPECT_EQ(nearestColour(0x0000FF, -1), std::nullopt);
}

} // namespace
