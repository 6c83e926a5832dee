#include "adapters/terminal/io/Screen.h"

#include "platform/Text.h"
#include "platform/Unicode.h"
#include "platform/Utf16.h"
#include "tests/terminal/Emulator.h"

#include <gtest/gtest.h>
#include <random>

namespace {

using namespace kvex::terminal;
using kvex::test::Emulator;

constexpr Size size{20, 4};
constexpr Rect everything{0, 0, 20, 4};

/// A terminal of one type, and what it shows.
class Shown {
public:
    explicit Shown(const std::string &type, Emulator::Opinion opinion = {})
        : capabilities(Capabilities::ofType(type)), screen(capabilities, capabilities.colours),
          emulator(opinion ? Emulator(size, std::move(opinion)) : Emulator(size)) {
        screen.forget(size);
        emulator.take(capabilities.leaveWrapping);
    }
    /// The bytes of the update.
    std::string show(const CellGrid &grid) {
        std::string bytes = screen.update(grid);
        emulator.take(bytes);
        return bytes;
    }

    Capabilities capabilities;
    Screen screen;
    Emulator emulator;
};

CellGrid gridWith(std::u16string_view first, const Style &style = {}) {
    CellGrid grid(size);
    grid.put({0, 0}, first, style, everything);
    return grid;
}

/// Compares every cell.
void expectShown(const Shown &shown, const CellGrid &grid) {
    for (int row = 0; row < size.rows; ++row) {
        for (int column = 0; column < size.columns; ++column) {
            const Cell &cell = grid.at({column, row});
            // The terminal gives a vowel sign at a letter's side a cell of its own.
            const std::u16string &is = shown.emulator.at(column, row).text;
            EXPECT_TRUE(cell.cluster.isNothing() ||
                        (!is.empty() && cell.cluster.text().starts_with(is)))
                << column << "," << row;
            EXPECT_EQ(shown.emulator.at(column, row).attributes.find('7') != std::string::npos,
                      cell.style.reverse)
                << column << "," << row;
        }
    }
    EXPECT_EQ(shown.emulator.scrolled(), 0);
}

TEST(Screen, WritesNothingForTheSameGrid) {
    Shown shown("xterm-256color");
    EXPECT_EQ(shown.show(gridWith(u"Rules")), "\x1b(B\x1b[m\x1b[H\x1b[2J\x1b[?25l\x1b[1;1HRules");
    EXPECT_EQ(shown.show(gridWith(u"Rules")), "");
}

TEST(Screen, WritesEverythingAgainToATerminalThatShowsAnything) {
    Shown shown("xterm-256color");
    const CellGrid grid = gridWith(u"Rules", {.bold = true});
    const std::string first = shown.show(grid);
    EXPECT_EQ(first, "\x1b(B\x1b[m\x1b[H\x1b[2J\x1b[?25l\x1b[1;1H\x1b[1mRules");
    shown.screen.forget(size);
    EXPECT_EQ(shown.show(grid), first);
}

TEST(Screen, WritesOnlyWhatDiffers) {
    Shown shown("xterm-256color");
    shown.show(gridWith(u"one two three"));
    EXPECT_EQ(shown.show(gridWith(u"one six three")), "\x1b[5Gsix");
    // The blank moves the cursor.
    EXPECT_EQ(shown.show(gridWith(u"one six")), " \x1b[K");
}

TEST(Screen, SetsAttributesOnlyWhenTheyChange) {
    Shown shown("xterm-256color");
    shown.show(CellGrid(size));
    EXPECT_EQ(shown.show(gridWith(u"ab cd", {.bold = true, .colour = 0x0000FF})),
              "\x1b[1;1H\x1b[1m\x1b[31mab cd");
    EXPECT_EQ(shown.show(gridWith(u"ab cd", {.bold = true, .colour = 0xFF0000})),
              "\r\x1b[34mab cd");
    EXPECT_EQ(shown.show(gridWith(u"ab cd", {.reverse = true})), "\r\x1b(B\x1b[m\x1b[7mab cd");
    EXPECT_EQ(shown.show(gridWith(u"ab cd", {.bold = true, .reverse = true})), "\r\x1b[1mab cd");
    EXPECT_EQ(shown.show(gridWith(u"ab cd")), "\r\x1b(B\x1b[mab cd");
    EXPECT_EQ(shown.show(gridWith(u"ab cd", {.reverse = true})), "\r\x1b[7mab cd");
}

TEST(Screen, EndsEachAttribute) {
    Shown shown("xterm-256color");
    for (const Style &style : {Style{.bold = true}, Style{.dim = true}, Style{.reverse = true},
                               Style{.underline = true}, Style{.colour = 0x0000FF}}) {
        shown.show(gridWith(u"a", style));
        EXPECT_NE(shown.emulator.at(0, 0).attributes, "");
        shown.show(gridWith(u"a"));
        EXPECT_EQ(shown.emulator.at(0, 0).attributes, "");
    }
}

TEST(Screen, ShowsColoursOnlyWhereTheUserHasThem) {
    const Capabilities capabilities = Capabilities::ofType("xterm-256color");
    Screen screen(capabilities, 0);
    screen.forget(size);
    (void)screen.update(CellGrid(size));
    EXPECT_EQ(screen.update(gridWith(u"a", {.bold = true, .colour = 0x0000FF})),
              "\x1b[1;1H\x1b[1ma");
}

TEST(Screen, PlacesTheCursorAnewAfterEachClusterThatIsNotAscii) {
    Shown shown("xterm-256color");
    shown.show(CellGrid(size));
    EXPECT_EQ(shown.show(gridWith(u"aé中b")), "\x1b[1;1Haé\x1b[3G中\x1b[5Gb");
}

TEST(Screen, PlacesTheCursorWithTheRowWhereALineCanWrap) {
    Shown shown("screen");
    shown.show(CellGrid(size));
    EXPECT_EQ(shown.show(gridWith(u"aéb")), "\x1b[1;1Haé\x1b[1;3Hb");
}

TEST(Screen, ErasesWhatATerminalMayHaveWrittenAfterACluster) {
    Shown shown("xterm-256color");
    shown.show(gridWith(u"|     |"));
    EXPECT_EQ(shown.show(gridWith(u"|हि   |")), "\x1b[2Gहि\x1b[4G\x1b[K   |");
}

TEST(Screen, LeavesNothingUnderAClusterThatATerminalMakesNarrow) {
    for (const std::string type : {"xterm-256color", "screen"}) {
        Shown shown(type, [](char32_t character) { return character == 0x93F ? 0 : 1; });
        shown.show(gridWith(u"|abcd|"));
        shown.show(gridWith(u"|हिहि|"));
        EXPECT_EQ(shown.emulator.line(0), u"|हि हि |");
    }
}

TEST(Screen, LeavesNothingOfAClusterThatATerminalMakesWideUnderTheNext) {
    // This terminal shows two people beside each other, and a vowel sign over its letter.
    Shown shown("xterm-256color", [](char32_t character) {
        return character == 0x93F || character == 0x200D ? 0 : character > 0xFFFF ? 2 : 1;
    });
    shown.show(CellGrid(size));
    shown.show(gridWith(u"👩‍👧हि|"));
    EXPECT_EQ(shown.emulator.at(2, 0).text, u"हि");
    EXPECT_EQ(shown.emulator.at(3, 0).text, u" ");
    EXPECT_EQ(shown.emulator.at(4, 0).text, u"|");
}

TEST(Screen, ShowsTheSameWhateverColumnsATerminalTakes) {
    const auto opinions = {
        Emulator::Opinion([](char32_t character) { return character < 0x80 ? 1 : 0; }),
        Emulator::Opinion([](char32_t) { return 1; }),
        Emulator::Opinion([](char32_t character) { return character < 0x80 ? 1 : 2; }),
    };
    // Texts that a terminal of another opinion would shift.
    const std::u16string texts[] = {u"|हिन्दी नियम|", u"|👩‍👩‍👧‍👦 ok  |",
                                    u"|हिन्दी      |", u"|plain text|", u"|é e\u0301 🇩🇪 |"};
    for (const std::string type : {"xterm-256color", "screen", "linux", "vt100"}) {
        for (const auto &opinion : opinions) {
            Shown shown(type, opinion);
            for (const std::u16string &before : texts) {
                for (const std::u16string &after : texts) {
                    for (const bool reverse : {false, true}) {
                        shown.show(gridWith(before, {.reverse = reverse}));
                        shown.show(gridWith(after, {.reverse = !reverse}));
                        // ASCII stands where it belongs, and nothing else is left.
                        const CellGrid grid = gridWith(after);
                        for (int column = 0; column < size.columns; ++column) {
                            const std::u16string text = grid.at({column, 0}).cluster.text();
                            const std::u16string &is = shown.emulator.at(column, 0).text;
                            if (text.size() == 1 && text.front() < 0x80 && text != u" ") {
                                EXPECT_EQ(is.substr(0, 1), text) << column;
                            } else if (text == u" ") {
                                EXPECT_TRUE(is.empty() || is.front() == u' ') << column;
                            }
                        }
                    }
                }
            }
        }
    }
}

TEST(Screen, NeverScrollsTheTerminal) {
    for (const std::string type : {"xterm-256color", "screen", "tmux", "linux", "vt100"}) {
        Shown shown(type);
        CellGrid grid(size);
        for (int row = 0; row < size.rows; ++row) {
            grid.put({0, row}, u"abcdefghijklmnopqrst", {}, everything);
        }
        shown.show(grid);
        expectShown(shown, grid);
        grid.put({19, 3}, u"X", {.reverse = true}, everything);
        shown.show(grid);
        expectShown(shown, grid);
    }
}

/// Four rows of one letter each.
CellGrid rowsOf(std::u16string_view letters) {
    CellGrid grid(size);
    int row = 0;
    for (const char16_t letter : letters) {
        grid.put({0, row++}, std::u16string(20, letter), {}, everything);
    }
    return grid;
}

TEST(Screen, LeavesTheLastCellOutWhereItWouldScroll) {
    Capabilities simple = Capabilities::ofType("vt100");
    simple.wrapsAtOnce = true;
    simple.leaveWrapping.clear();
    Screen screen(simple, 0);
    screen.forget({2, 1});
    CellGrid grid({2, 1});
    grid.put({0, 0}, u"ab", {}, everything);
    EXPECT_EQ(screen.update(grid), "\x1b[m\x0f\x1b[H\x1b[J\x1b[1;1Ha");
    EXPECT_EQ(screen.update(grid), "");
}

TEST(Screen, WritesTheLastCellWhenItsLineHasMovedUp) {
    Capabilities simple = Capabilities::ofType("vt100");
    simple.wrapsAtOnce = true;
    simple.leaveWrapping.clear();
    Screen screen(simple, 0);
    screen.forget(size);
    (void)screen.update(rowsOf(u"tabc"));
    EXPECT_EQ(screen.update(rowsOf(u"tbcd")),
              "\x1b[2;4r\x1b[4;1H\n\x1b[r\x1b[3;20Hc\x1b[4;1Hddddddddddddddddddd");
}

TEST(Screen, PlacesAndHidesTheCursor) {
    Shown shown("xterm-256color");
    CellGrid grid(size);
    shown.show(grid);
    EXPECT_FALSE(shown.emulator.showsCursor());
    grid.cursor = Point{3, 2};
    EXPECT_EQ(shown.show(grid), "\x1b[3;4H\x1b[?25h");
    EXPECT_EQ(shown.show(grid), "");
    grid.cursor = Point{2, 2};
    EXPECT_EQ(shown.show(grid), "\b");
    grid.cursor = Point{20, 2};
    EXPECT_EQ(shown.show(grid), "\x1b[?25l");
}

TEST(Screen, CutsAGridOfAnotherSizeOrPutsBlanksAroundIt) {
    Shown shown("xterm-256color");
    CellGrid large({30, 9});
    large.put({0, 0}, u"abcdefghijklmnopqrs中uvw", {}, {0, 0, 30, 9});
    shown.show(large);
    EXPECT_EQ(shown.emulator.line(0), u"abcdefghijklmnopqrs");
    CellGrid small({2, 1});
    small.put({0, 0}, u"xy", {}, everything);
    shown.show(small);
    EXPECT_EQ(shown.emulator.line(0), u"xy");
    shown.show(rowsOf(u"tabc"));
    shown.show(small);
    EXPECT_EQ(shown.emulator.line(0), u"xy");
    EXPECT_EQ(shown.emulator.line(3), u"");
    EXPECT_EQ(shown.emulator.scrolled(), 0);
}

TEST(Screen, MovesAHighlightInAListWithFewBytes) {
    const Size usual{80, 24};
    const Rect whole{0, 0, 80, 24};
    const auto list = [&](int highlighted) {
        CellGrid grid(usual);
        for (int row = 0; row < 20; ++row) {
            grid.put({1, row}, u"│", {}, whole);
            const Style style{.reverse = row == highlighted};
            grid.fill({2, row, 60, 1}, style);
            grid.put({2, row}, u"[ ] Spam of rule " + kvex::toText(std::int64_t{row}), style,
                     whole);
            grid.put({62, row}, u"│ [  Modify   ]", {}, whole);
        }
        return grid;
    };
    for (const std::string type : {"xterm-256color", "screen", "linux", "vt100"}) {
        const Capabilities capabilities = Capabilities::ofType(type);
        Screen screen(capabilities, capabilities.colours);
        screen.forget(usual);
        (void)screen.update(list(3));
        EXPECT_LE(screen.update(list(4)).size(), 400U) << type;
    }
}

TEST(Screen, ScrollsLinesThatMoved) {
    for (const std::string type : {"xterm-256color", "screen", "tmux", "linux", "vt100"}) {
        Shown shown(type);
        // A cluster of which terminals hold several opinions moves with its line.
        for (const std::u16string_view letters : {u"tabcde", u"tbcdef", u"tabcde"}) {
            CellGrid grid = rowsOf(letters.substr(0, 4));
            const int first = letters[1] == u'a' ? 2 : 1;
            grid.put({3, first}, u"हि", {}, everything);
            shown.show(grid);
            expectShown(shown, grid);
        }
    }
    Shown shown("xterm-256color");
    shown.show(rowsOf(u"tabc"));
    EXPECT_EQ(shown.show(rowsOf(u"tbcd")),
              "\x1b[2;4r\x1b[4;1H\n\x1b[r\x1b[4;1Hdddddddddddddddddddd");
    EXPECT_EQ(shown.show(rowsOf(u"tabc")),
              "\x1b[2;4r\x1b[2;1H\x1bM\x1b[r\x1b[2;1Haaaaaaaaaaaaaaaaaaaa");
}

TEST(Screen, ScrollsWithoutAttributes) {
    Shown shown("xterm-256color");
    CellGrid before = rowsOf(u"tabc");
    before.put({0, 3}, u"last", {.reverse = true}, everything);
    shown.show(before);
    CellGrid after = rowsOf(u"tbcd");
    after.put({0, 2}, u"last", {.reverse = true}, everything);
    shown.show(after);
    expectShown(shown, after);
}

TEST(Screen, WritesLinesThatMovedWhereATerminalCannotScrollThem) {
    Capabilities simple = Capabilities::ofType("vt100");
    simple.scrollRegion.clear();
    Screen screen(simple, 0);
    screen.forget(size);
    (void)screen.update(rowsOf(u"tabc"));
    EXPECT_GE(screen.update(rowsOf(u"tbcd")).size(), 60U);
}

/// As the grid counts them: the second of two people who are joined takes none.
int usualColumns(char32_t character) {
    std::u16string text;
    kvex::appendCharacter(text, character);
    return text == u"👧" ? 0 : kvex::columnsOf(text);
}

TEST(Screen, ShowsAnyGridAfterAnyOther) {
    std::mt19937 random(7); // NOLINT: the same grids in each run.
    const std::u16string pieces[] = {u"a",  u"b ", u" ",           u"é",  u"中",
                                     u"हि", u"न्",  u"👩‍👧", u"   "};
    for (const std::string type : {"xterm-256color", "screen", "linux", "vt100"}) {
        Shown shown(type, usualColumns);
        for (int frame = 0; frame < 300; ++frame) {
            CellGrid grid(size);
            for (int row = 0; row < size.rows; ++row) {
                int column = static_cast<int>(random() % 4);
                for (int piece = 0; piece < 9; ++piece) {
                    const Style style{.reverse = random() % 3 == 0};
                    column += grid.put({column, row}, pieces[random() % std::size(pieces)], style,
                                       everything);
                }
            }
            shown.show(grid);
            expectShown(shown, grid);
            if (testing::Test::HasFailure()) {
                FAIL() << type << ", frame " << frame;
            }
        }
    }
}

} // namespace
