#include "adapters/terminal/io/CellGrid.h"

#include <gtest/gtest.h>

namespace {

using kvex::terminal::Cell;
using kvex::terminal::CellGrid;
using kvex::terminal::Characters;
using kvex::terminal::Cluster;
using kvex::terminal::Point;
using kvex::terminal::Rect;
using kvex::terminal::Style;

constexpr Rect everything{0, 0, 6, 2};

/// A line with "-" for the right half of a wide cluster.
std::u16string line(const CellGrid &grid, int row) {
    std::u16string text;
    for (int column = 0; column < grid.size().columns; ++column) {
        const Cell &cell = grid.at({column, row});
        text += cell.cluster.isNothing() ? u"-" : cell.cluster.text();
    }
    return text;
}

TEST(CellGrid, IsBlankAtFirst) {
    const CellGrid grid({3, 1});
    EXPECT_EQ(line(grid, 0), u"   ");
    EXPECT_EQ(grid.cursor, std::nullopt);
}

TEST(CellGrid, HoldsEachClusterInItsColumns) {
    CellGrid grid({6, 2});
    const Style bold{.bold = true};
    EXPECT_EQ(grid.put({0, 1}, u"aहिé", bold, everything), 4);
    EXPECT_EQ(line(grid, 0), u"      ");
    EXPECT_EQ(line(grid, 1), u"aहि-é  ");
    EXPECT_EQ(grid.at({1, 1}), (Cell{Cluster(u"हि"), bold}));
    EXPECT_EQ(grid.at({2, 1}), (Cell{Cluster(), bold}));
    EXPECT_EQ(grid.at({4, 1}), Cell());
}

TEST(CellGrid, CutsAtTheEdgesOfTheClip) {
    CellGrid grid({6, 2});
    EXPECT_EQ(grid.put({0, 0}, u"abcdef", {}, {1, 0, 3, 1}), 6);
    EXPECT_EQ(line(grid, 0), u" bcd  ");
    EXPECT_EQ(grid.put({-2, 1}, u"abcdefghij", {}, {-5, -5, 50, 50}), 10);
    EXPECT_EQ(line(grid, 1), u"cdefgh");
    EXPECT_EQ(grid.put({0, 7}, u"ab", {}, everything), 2);
    EXPECT_EQ(grid.put({0, -1}, u"ab", {}, {0, -1, 6, 3}), 2);
    EXPECT_EQ(line(grid, 0), u" bcd  ");
}

TEST(CellGrid, ShowsABlankForTheHalfOfAWideCluster) {
    CellGrid grid({6, 2});
    grid.fill(everything, {});
    grid.put({0, 0}, u"x中y", {.reverse = true}, {0, 0, 2, 1});
    EXPECT_EQ(line(grid, 0), u"x     ");
    EXPECT_TRUE(grid.at({1, 0}).style.reverse);
    EXPECT_FALSE(grid.at({2, 0}).style.reverse);
    grid.put({-1, 1}, u"中y", {}, everything);
    EXPECT_EQ(line(grid, 1), u" y    ");
}

TEST(CellGrid, LeavesNoHalfOfAWideClusterBehind) {
    CellGrid grid({6, 1});
    grid.put({0, 0}, u"中中中", {}, everything);
    grid.put({1, 0}, u"ab", {}, everything);
    EXPECT_EQ(line(grid, 0), u" ab 中-");
    grid.put({3, 0}, u"中", {}, everything);
    EXPECT_EQ(line(grid, 0), u" ab中- ");
    grid.fill({4, 0, 1, 1}, {});
    EXPECT_EQ(line(grid, 0), u" ab   ");
}

TEST(CellGrid, HoldsEscapesWithOneCharacterInEachCell) {
    CellGrid grid({6, 1}, Characters::ascii);
    EXPECT_EQ(grid.put({0, 0}, u"é!", {}, everything), 7);
    EXPECT_EQ(line(grid, 0), u"\\u{e9}");
    EXPECT_EQ(grid.at({1, 0}).cluster.text(), u"u");
}

TEST(CellGrid, OmitsMarksWithoutAForm) {
    CellGrid grid({6, 1});
    EXPECT_EQ(grid.put({0, 0}, u"\u200Ea\u200Fb", {}, everything), 2);
    EXPECT_EQ(line(grid, 0), u"ab    ");
}

TEST(CellGrid, CanHaveNoCells) {
    CellGrid grid({0, -3});
    EXPECT_EQ(grid.put({0, 0}, u"abc", {}, everything), 3);
    grid.fill(everything, {});
    EXPECT_EQ(grid.size(), (kvex::terminal::Size{0, 0}));
}

TEST(Rectangles, HaveTheirIntersection) {
    using kvex::terminal::intersection;
    EXPECT_EQ(intersection({0, 0, 5, 5}, {3, 4, 5, 5}), (Rect{3, 4, 2, 1}));
    EXPECT_EQ(intersection({0, 0, 2, 2}, {4, 0, 2, 2}).columns, 0);
    EXPECT_TRUE((Rect{1, 1, 2, 2}.contains(Point{2, 2})));
    EXPECT_FALSE((Rect{1, 1, 2, 2}.contains(Point{3, 2})));
}

} // namespace
