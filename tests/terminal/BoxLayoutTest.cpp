#include "adapters/terminal/BoxLayout.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace kvex::terminal {

std::ostream &operator<<(std::ostream &out, const Rect &rect) {
    return out << rect.columns << 'x' << rect.rows << " at " << rect.column << ',' << rect.row;
}

namespace {

/// A control of some size. A list grows and loses its frame.
class Fake final : public Placeable {
public:
    Extent across{10, 10};
    Extent down{1, 1};
    bool isList = false;
    bool shown = true;
    bool isLabel = false;
    /// A text of so many cells that wraps.
    int cells = 0;

    [[nodiscard]] bool isShown() const override { return shown; }
    [[nodiscard]] Extent columns() const override { return across; }
    [[nodiscard]] Extent rows(int columns, Economy economy) const override {
        if (cells > 0) {
            const int rows = (cells + columns - 1) / std::max(columns, 1);
            return {rows, rows};
        }
        const int frame = isList && economy < Economy::noListFrames ? 2 : 0;
        return {down.least + frame, down.natural + frame};
    }
    [[nodiscard]] bool growsAcross() const override { return isList; }
    [[nodiscard]] bool growsDown() const override { return isList; }
    [[nodiscard]] bool startsSection() const override { return isLabel; }
};

class BoxLayoutTest : public testing::Test {
protected:
    Fake &control(const std::u16string &name) {
        auto &fake = controls_[name];
        fake = fake == nullptr ? std::make_unique<Fake>() : std::move(fake);
        return *fake;
    }
    Fake &list(const std::u16string &name, Extent rows) {
        Fake &fake = control(name);
        fake.isList = true;
        fake.down = rows;
        return fake;
    }
    Arrangement arrange(Layout layout, Size size) {
        return boxes(std::move(layout)).arrange({0, 0, size.columns, size.rows});
    }
    [[nodiscard]] BoxLayout boxes(Layout layout) {
        return {std::move(layout), [this](std::u16string_view name) -> Placeable * {
                    const auto found = controls_.find(std::u16string(name));
                    return found == controls_.end() ? nullptr : found->second.get();
                }};
    }
    std::optional<Rect> at(const Arrangement &arrangement, const std::u16string &name) {
        for (const Placed &placed : arrangement.placed) {
            if (placed.control == controls_.at(name).get()) {
                return placed.at;
            }
        }
        return std::nullopt;
    }

private:
    std::map<std::u16string, std::unique_ptr<Fake>> controls_;
};

using Place = std::optional<Rect>;

TEST_F(BoxLayoutTest, PiecesOfARowShareTheSpareColumnsByTheirStretch) {
    control(u"a");
    control(u"b");
    control(u"c");
    const auto found = arrange(row({place(u"a", 1), place(u"b", 3), place(u"c")}), {52, 5});
    EXPECT_EQ(at(found, u"a"), (Place{{0, 0, 15, 1}}));
    EXPECT_EQ(at(found, u"b"), (Place{{16, 0, 25, 1}}));
    EXPECT_EQ(at(found, u"c"), (Place{{42, 0, 10, 1}}));
}

TEST_F(BoxLayoutTest, ASpringPushesWhatFollowsToTheEnd) {
    control(u"a");
    control(u"b");
    const auto found = arrange(row({spring(), place(u"a"), place(u"b")}), {40, 5});
    EXPECT_EQ(at(found, u"a"), (Place{{19, 0, 10, 1}}));
    EXPECT_EQ(at(found, u"b"), (Place{{30, 0, 10, 1}}));
    const Layout between = row({place(u"a"), spring(), place(u"b")});
    EXPECT_EQ(at(arrange(between, {21, 5}), u"b"), (Place{{11, 0, 10, 1}}));
    EXPECT_EQ(at(arrange(between, {20, 5}), u"b"), (Place{{0, 1, 20, 1}}));
}

TEST_F(BoxLayoutTest, WithoutAnyStretchListsTakeTheSpareRows) {
    control(u"a");
    list(u"list", {2, 5});
    control(u"b");
    const auto found = arrange(column({place(u"a"), place(u"list"), place(u"b")}), {20, 20});
    EXPECT_EQ(at(found, u"a"), (Place{{0, 0, 20, 1}}));
    EXPECT_EQ(at(found, u"list"), (Place{{0, 1, 20, 18}}));
    EXPECT_EQ(at(found, u"b"), (Place{{0, 19, 20, 1}}));
}

TEST_F(BoxLayoutTest, PiecesOfARowThatIsTooWideStandBelowEachOther) {
    control(u"a");
    control(u"b");
    const Layout layout = row({place(u"a"), place(u"b")});
    EXPECT_EQ(at(arrange(layout, {21, 5}), u"b"), (Place{{11, 0, 10, 1}}));
    const auto narrow = arrange(layout, {20, 5});
    EXPECT_EQ(at(narrow, u"a"), (Place{{0, 0, 20, 1}}));
    EXPECT_EQ(at(narrow, u"b"), (Place{{0, 1, 20, 1}}));
}

TEST_F(BoxLayoutTest, AHiddenControlTakesNoRoom) {
    control(u"a").shown = false;
    control(u"b");
    const auto found =
        arrange(column({place(u"a"), row({place(u"a"), spring()}), place(u"b")}), {20, 5});
    EXPECT_EQ(at(found, u"a"), std::nullopt);
    EXPECT_EQ(at(found, u"b"), (Place{{0, 0, 20, 1}}));
}

TEST_F(BoxLayoutTest, AWrappedTextIsAsHighAsItsWidthAsks) {
    control(u"text").cells = 50;
    control(u"b");
    const Layout layout = column({place(u"text"), place(u"b")});
    EXPECT_EQ(at(arrange(layout, {50, 9}), u"b")->row, 1);
    EXPECT_EQ(at(arrange(layout, {20, 9}), u"b")->row, 3);
    // Beside another control it has one column less, for the gap.
    control(u"a");
    const Layout beside = column({row({place(u"a"), place(u"text", 1)}), place(u"b")});
    EXPECT_EQ(at(arrange(beside, {36, 9}), u"text"), (Place{{11, 0, 25, 2}}));
    EXPECT_EQ(at(arrange(beside, {36, 9}), u"b")->row, 2);
    EXPECT_EQ(at(arrange(beside, {35, 9}), u"text"), (Place{{11, 0, 24, 3}}));
    EXPECT_EQ(at(arrange(beside, {35, 9}), u"b")->row, 3);
}

TEST_F(BoxLayoutTest, GapsGoFirstThenTheFramesOfListsThenAllFramesThenListsShrink) {
    control(u"label").isLabel = true;
    control(u"head");
    control(u"frame");
    control(u"inside");
    list(u"list", {2, 6});
    const Layout layout = column({scrolling({place(u"head"), place(u"label"), place(u"list"),
                                             placeFrame(u"frame", {place(u"inside")})}),
                                  place(u"ok")});
    control(u"ok");
    const auto economyAt = [&](int rows) { return arrange(layout, {30, rows}).economy; };
    // head, gap, label, list of 6 + 2, frame of 1 + 2, ok
    EXPECT_EQ(economyAt(15), Economy::none);
    EXPECT_EQ(economyAt(14), Economy::noGaps);
    EXPECT_EQ(economyAt(13), Economy::noListFrames);
    EXPECT_EQ(economyAt(12), Economy::noListFrames);
    EXPECT_EQ(economyAt(11), Economy::noFrames);
    const auto small = arrange(layout, {30, 8});
    EXPECT_EQ(small.economy, Economy::noFrames);
    EXPECT_EQ(at(small, u"list")->rows, 4);
    EXPECT_EQ(small.contentRows, small.pane.rows);
}

TEST_F(BoxLayoutTest, AGapIsBeforeALabelAlsoOneInARowButNotInABoxOfItsOwn) {
    control(u"a");
    control(u"label").isLabel = true;
    control(u"b");
    const auto rowOfLabel = [&](Layout second) {
        return at(arrange(column({scrolling({place(u"a"), std::move(second)})}), {30, 9}), u"label")
            ->row;
    };
    EXPECT_EQ(rowOfLabel(place(u"label")), 2);
    EXPECT_EQ(rowOfLabel(row({place(u"label"), place(u"b")})), 2);
    EXPECT_EQ(rowOfLabel(row({place(u"b"), place(u"label")})), 1);
    EXPECT_EQ(rowOfLabel(column({place(u"label"), place(u"b")})), 1);
}

TEST_F(BoxLayoutTest, WhatDoesNotFitScrollsAboveTheButtons) {
    control(u"a");
    control(u"ok");
    list(u"list", {3, 6});
    const Layout layout = column({scrolling({place(u"a"), place(u"list")}), place(u"ok")});
    EXPECT_EQ(at(arrange(layout, {20, 1}), u"ok"), (Place{{0, 0, 20, 1}}));
    const auto found = arrange(layout, {20, 3});
    EXPECT_EQ(found.pane, (Rect{0, 0, 20, 2}));
    EXPECT_EQ(found.contentRows, 4);
    EXPECT_EQ(at(found, u"list"), (Place{{0, 1, 20, 3}}));
    EXPECT_EQ(at(found, u"ok"), (Place{{0, 2, 20, 1}}));
    ASSERT_EQ(found.placed.size(), 3U);
    EXPECT_TRUE(found.placed[0].inPane);
    EXPECT_TRUE(found.placed[1].inPane);
    EXPECT_FALSE(found.placed[2].inPane);
}

TEST_F(BoxLayoutTest, WithoutABoxThatScrollsTheWholeLayoutDoes) {
    control(u"a");
    list(u"list", {3, 6});
    const auto found = arrange(column({place(u"a"), place(u"list")}), {20, 3});
    EXPECT_EQ(found.pane, (Rect{0, 0, 20, 3}));
    EXPECT_EQ(found.contentRows, 4);
}

TEST_F(BoxLayoutTest, AFrameSurroundsItsPiecesUntilItIsGivenUp) {
    control(u"frame");
    control(u"a");
    const Layout layout = column({placeFrame(u"frame", {place(u"a")})});
    const auto wide = arrange(layout, {20, 5});
    EXPECT_EQ(at(wide, u"frame"), (Place{{0, 0, 20, 3}}));
    EXPECT_EQ(at(wide, u"a"), (Place{{2, 1, 16, 1}}));
    EXPECT_EQ(at(arrange(layout, {20, 1}), u"a"), (Place{{0, 0, 20, 1}}));
    control(u"b");
    const Layout beside = row({placeFrame(u"frame", {place(u"a")}), place(u"b")});
    EXPECT_EQ(at(arrange(beside, {25, 5}), u"b"), (Place{{15, 0, 10, 1}}));
    EXPECT_EQ(at(arrange(beside, {24, 5}), u"b"), (Place{{0, 3, 24, 1}}));
}

TEST_F(BoxLayoutTest, AListInAFrameGrowsUpToItsBorders) {
    control(u"frame");
    control(u"a");
    list(u"list", {2, 4});
    const auto found =
        arrange(column({placeFrame(u"frame", {place(u"a"), place(u"list")})}), {30, 20});
    EXPECT_EQ(at(found, u"frame"), (Place{{0, 0, 30, 20}}));
    EXPECT_EQ(at(found, u"a"), (Place{{2, 1, 26, 1}}));
    EXPECT_EQ(at(found, u"list"), (Place{{2, 2, 26, 17}}));
}

TEST_F(BoxLayoutTest, ARowInsideARowIsTakenApartFirst) {
    for (const auto *name : {u"a", u"b", u"c"}) {
        control(name);
    }
    const Layout layout = row({row({place(u"a"), place(u"b")}), place(u"c")});
    EXPECT_EQ(at(arrange(layout, {32, 5}), u"c"), (Place{{22, 0, 10, 1}}));
    const auto narrow = arrange(layout, {31, 5});
    EXPECT_EQ(at(narrow, u"a"), (Place{{0, 0, 20, 1}}));
    EXPECT_EQ(at(narrow, u"b"), (Place{{0, 1, 20, 1}}));
    EXPECT_EQ(at(narrow, u"c"), (Place{{21, 0, 10, 1}}));
    EXPECT_EQ(at(arrange(layout, {22, 5}), u"c"), (Place{{12, 0, 10, 1}}));
    EXPECT_EQ(at(arrange(layout, {21, 5}), u"c"), (Place{{0, 1, 21, 1}}));
}

TEST_F(BoxLayoutTest, SpareRoomGoesToWishesBeforeItIsShared) {
    control(u"a").across = {5, 11};
    control(u"b").across = {5, 8};
    const Layout layout = row({place(u"a", 1), place(u"b")});
    EXPECT_EQ(at(arrange(layout, {14, 1}), u"a"), (Place{{0, 0, 7, 1}}));
    EXPECT_EQ(at(arrange(layout, {14, 1}), u"b"), (Place{{8, 0, 6, 1}}));
    EXPECT_EQ(at(arrange(layout, {20, 1}), u"b"), (Place{{12, 0, 8, 1}}));
    EXPECT_EQ(at(arrange(layout, {30, 1}), u"a"), (Place{{0, 0, 21, 1}}));
    EXPECT_EQ(at(arrange(layout, {30, 1}), u"b"), (Place{{22, 0, 8, 1}}));
}

TEST_F(BoxLayoutTest, ARoomWithoutCellsIsNoError) {
    control(u"a");
    list(u"list", {2, 4});
    const Layout layout = column({row({place(u"a"), place(u"list")}), place(u"a")});
    for (const Size size : {Size{0, 0}, Size{1, 1}, Size{-3, -2}}) {
        EXPECT_EQ(arrange(layout, size).placed.size(), 3U);
    }
}

TEST_F(BoxLayoutTest, TheNaturalSizeIsThatOfTheContentWithinALimit) {
    control(u"text").cells = 100;
    control(u"text").across = {10, 100};
    control(u"ok");
    const BoxLayout layout = boxes(column({scrolling({place(u"text")}), place(u"ok")}));
    EXPECT_EQ(layout.naturalSize(200), (Size{100, 2}));
    EXPECT_EQ(layout.naturalSize(40), (Size{40, 4}));
    control(u"frame");
    const BoxLayout framed = boxes(column({placeFrame(u"frame", {place(u"text")}), place(u"ok")}));
    EXPECT_EQ(framed.naturalSize(200), (Size{104, 4}));
    EXPECT_EQ(framed.naturalSize(54), (Size{54, 5}));
    EXPECT_EQ(framed.naturalSize(53), (Size{53, 6}));
}

} // namespace
} // namespace kvex::terminal
