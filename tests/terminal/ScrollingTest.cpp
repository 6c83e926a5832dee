#include "adapters/terminal/io/Scrolling.h"

#include <gtest/gtest.h>

namespace {

using namespace kvex::terminal;

constexpr Size size{40, 12};
constexpr Rect everything{0, 0, 40, 12};

/// A title, a list of eight rows from the row `first` on, and a status. Rows differ in many cells.
CellGrid list(int first, std::u16string_view title = u"Rules") {
    CellGrid grid(size);
    grid.put({0, 0}, title, {}, everything);
    for (int line = 0; line < 8; ++line) {
        const auto letter = static_cast<char16_t>(u'a' + first + line);
        grid.put({0, 2 + line}, std::u16string(30, letter), {}, everything);
    }
    grid.put({0, 11}, u"Tab: next", {}, everything);
    return grid;
}

std::optional<Scrolling> between(const CellGrid &shown, const CellGrid &wanted) {
    return scrollingBetween(shown.cells(), wanted.cells(), size);
}

TEST(ScrollingBetween, FindsTheRegionOfAList) {
    EXPECT_EQ(between(list(0), list(1)), (Scrolling{2, 9, 1}));
    EXPECT_EQ(between(list(0), list(3)), (Scrolling{2, 9, 3}));
    EXPECT_EQ(between(list(1), list(0)), (Scrolling{2, 9, -1}));
    EXPECT_EQ(between(list(3), list(0)), (Scrolling{2, 9, -3}));
}

TEST(ScrollingBetween, FindsNothingInTheSameScreen) {
    EXPECT_EQ(between(list(0), list(0)), std::nullopt);
    EXPECT_EQ(between(list(0), list(0, u"Rules for another user")), std::nullopt);
}

TEST(ScrollingBetween, FindsNothingInAnotherPage) {
    EXPECT_EQ(between(list(0), list(8)), std::nullopt);
    EXPECT_EQ(between(list(0), list(4)), std::nullopt);
}

/// A screen whose rows from `from` on have these letters.
CellGrid rows(int from, std::u16string_view letters, int columns = 30) {
    CellGrid grid(size);
    for (const char16_t letter : letters) {
        grid.put({0, from++}, std::u16string(static_cast<std::size_t>(columns), letter), {},
                 everything);
    }
    return grid;
}

TEST(ScrollingBetween, LeavesTheFirstRow) {
    EXPECT_EQ(between(rows(0, u"abcdef"), rows(0, u"bcdef")), (Scrolling{1, 6, 1}));
    EXPECT_EQ(between(rows(0, u"abcdef"), rows(0, u"xabcdef")), (Scrolling{1, 6, -1}));
}

TEST(ScrollingBetween, LeavesFewChangedCellsToBeWritten) {
    EXPECT_EQ(between(rows(3, u"abcd", 20), rows(3, u"bcd", 20)), (Scrolling{3, 7, 1}));
    EXPECT_EQ(between(rows(3, u"abcd", 7), rows(3, u"bcd", 7)), std::nullopt);
    EXPECT_EQ(between(rows(3, u"ab"), rows(3, u"b")), std::nullopt);
}

TEST(ScrollingBetween, CountsTheLinesThatItLeavesBlank) {
    // Three rows are saved, and the row that stays must be written again.
    EXPECT_EQ(between(rows(3, u"abcd", 15), rows(3, u"bcdd", 15)), std::nullopt);
    EXPECT_EQ(between(rows(3, u"abcd", 15), rows(3, u"aabc", 15)), std::nullopt);
    EXPECT_EQ(between(rows(3, u"abcd", 16), rows(3, u"bcdd", 16)), (Scrolling{3, 6, 1}));
    EXPECT_EQ(between(rows(3, u"abcd", 16), rows(3, u"aabc", 16)), (Scrolling{3, 6, -1}));
}

} // namespace
