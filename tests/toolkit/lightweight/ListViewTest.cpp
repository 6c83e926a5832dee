#include "adapters/lightweight/LightListView.h"

#include "tests/toolkit/lightweight/TestWindow.h"

#include <gtest/gtest.h>

#include <functional>

namespace kvex::lightweight {
namespace {

using test::control;
using Rows = std::vector<int>;

/// A list of ten rows, and what its handlers learned: "3" a selected row, "+3" a ticked one, "-"
/// that none is selected any more.
class LightListViewTest : public testing::Test {
protected:
    LightListView &list(ControlDesign design) {
        window_ = std::make_unique<TestWindow>(std::vector{std::move(design)});
        auto &view = window_->the<LightListView>(u"lvw");
        for (const auto *text : {u"a", u"ab", u"b", u"c d", u"d", u"e", u"f", u"g", u"h", u"i"}) {
            view.addRow(text);
        }
        view.onItemClick = [this](int row) { deeds_ += std::to_string(row) + " "; };
        view.onItemCheck = [this](int row) { deeds_ += "+" + std::to_string(row) + " "; };
        view.onDeselect = [this] { deeds_ += "- "; };
        return view;
    }
    LightListView &single() { return list(control(ControlKind::listView, u"lvw")); }
    LightListView &multiple() {
        ControlDesign design = control(ControlKind::listView, u"lvw");
        design.multiSelect = true;
        return list(std::move(design));
    }
    static Rows selected(const LightListView &view) {
        Rows rows;
        for (int row = 1; row <= view.rowCount(); ++row) {
            if (view.selected(row)) {
                rows.push_back(row);
            }
        }
        return rows;
    }
    TestWindow &window() { return *window_; }
    std::string takeDeeds() { return std::exchange(deeds_, {}); }

private:
    std::unique_ptr<TestWindow> window_;
    std::string deeds_;
};

TEST_F(LightListViewTest, PageKeysGoAsManyRowsAsTheViewShows) {
    LightListView &view = single();
    view.setPage(4);
    view.select(2);
    window().press({Key::pageDown, Key::pageDown, Key::pageDown, Key::pageUp});
    EXPECT_EQ(takeDeeds(), "6 10 6 ");
    window().press({Key::textStart, Key::pageUp, Key::textEnd, Key::pageDown});
    EXPECT_EQ(takeDeeds(), "1 10 ");
}

TEST_F(LightListViewTest, WithoutASelectedRowEveryKeyButEndBeginsAtTheFirst) {
    LightListView &view = single();
    for (const Key key : {Key::up, Key::down, Key::pageUp, Key::pageDown, Key::home, Key::selectUp,
                          Key::selectDown, Key::goUp, Key::goDown, Key::end, Key::selectEnd}) {
        view.deselect(std::max(view.selectedRow(), 1));
        window().press(key);
    }
    EXPECT_EQ(takeDeeds(), "1 1 1 1 1 1 1 1 1 10 10 ");
    view.clearRows();
    for (const Key key : {Key::down, Key::end, Key::pageDown, Key::selectDown, Key::toggleRow,
                          Key::selectAll, Key::space}) {
        window().press(key);
    }
    EXPECT_EQ(takeDeeds(), "");
}

TEST_F(LightListViewTest, ShiftedKeysSelectARangeFromWhereItBegan) {
    LightListView &view = multiple();
    view.select(4);
    window().press({Key::selectDown, Key::selectDown});
    EXPECT_EQ(selected(view), (Rows{4, 5, 6}));
    EXPECT_EQ(view.selectedRow(), 6);
    window().press({Key::selectUp});
    EXPECT_EQ(selected(view), (Rows{4, 5}));
    EXPECT_EQ(view.selectedRow(), 5);
    window().press({Key::selectUp, Key::selectUp, Key::selectUp});
    EXPECT_EQ(selected(view), (Rows{2, 3, 4}));
    EXPECT_EQ(view.selectedRow(), 2);
    window().press(Key::selectEnd);
    EXPECT_EQ(selected(view), (Rows{4, 5, 6, 7, 8, 9, 10}));
    window().press(Key::selectHome);
    EXPECT_EQ(selected(view), (Rows{1, 2, 3, 4}));
    EXPECT_EQ(takeDeeds(), "5 6 5 4 3 2 10 1 ");
    window().press(Key::down);
    EXPECT_EQ(selected(view), Rows{2});
}

TEST_F(LightListViewTest, ARangeThatBeginsAtTheFirstRowIsGivenUpRowByRow) {
    LightListView &view = multiple();
    view.select(1);
    window().press({Key::selectDown, Key::selectDown, Key::selectDown, Key::selectUp});
    EXPECT_EQ(selected(view), (Rows{1, 2, 3}));
}

TEST_F(LightListViewTest, AListOfOneChoiceGoesByShiftedKeysToo) {
    LightListView &view = single();
    window().press(Key::selectAll);
    EXPECT_EQ(selected(view), Rows{});
    view.select(4);
    window().press({Key::selectDown, Key::selectUp, Key::goDown, Key::goDown, Key::selectAll});
    EXPECT_EQ(selected(view), Rows{6});
    EXPECT_EQ(takeDeeds(), "5 4 5 6 ");
}

TEST_F(LightListViewTest, RowsApartAreSelectedByGoingToThemWithoutSelecting) {
    LightListView &view = multiple();
    view.select(2);
    window().press({Key::goDown, Key::goDown});
    EXPECT_EQ(view.currentRow(), 4);
    EXPECT_EQ(selected(view), Rows{2});
    EXPECT_EQ(takeDeeds(), "");
    window().press(Key::toggleRow);
    EXPECT_EQ(selected(view), (Rows{2, 4}));
    window().press({Key::goUp, Key::goUp, Key::goUp, Key::space});
    EXPECT_EQ(selected(view), (Rows{1, 2, 4}));
    EXPECT_EQ(takeDeeds(), "4 1 ");
    window().press({Key::toggleRow, Key::goDown, Key::toggleRow});
    EXPECT_EQ(selected(view), Rows{4});
    EXPECT_EQ(view.currentRow(), 2);
    EXPECT_EQ(takeDeeds(), "");
    window().press(Key::selectDown);
    EXPECT_EQ(selected(view), (Rows{2, 3}));
}

TEST_F(LightListViewTest, TheLastRowDeselectedLeavesNoCurrentRow) {
    LightListView &view = multiple();
    view.select(2);
    window().press(Key::toggleRow);
    EXPECT_EQ(view.currentRow(), 0);
    EXPECT_EQ(takeDeeds(), "- ");
    window().press(Key::down);
    EXPECT_EQ(takeDeeds(), "1 ");
}

TEST_F(LightListViewTest, ABlankDeselectsNothing) {
    LightListView &view = multiple();
    view.select(2);
    window().press(Key::space);
    EXPECT_EQ(selected(view), Rows{2});
    EXPECT_EQ(takeDeeds(), "");
}

TEST_F(LightListViewTest, SelectingAllKeepsTheCurrentRow) {
    LightListView &view = multiple();
    view.select(3);
    window().press(Key::selectAll);
    EXPECT_EQ(selected(view), (Rows{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_EQ(view.currentRow(), 3);
    EXPECT_EQ(takeDeeds(), "3 ");
    window().press(Key::selectDown);
    EXPECT_EQ(selected(view), (Rows{3, 4}));
}

TEST_F(LightListViewTest, ClicksWithControlAndShiftSelectSeveralRows) {
    LightListView &view = multiple();
    view.clickRow(3);
    view.toggleRow(6);
    view.extendTo(8);
    EXPECT_EQ(selected(view), (Rows{6, 7, 8}));
    view.toggleRow(7);
    EXPECT_EQ(selected(view), (Rows{6, 8}));
    view.extendTo(5);
    EXPECT_EQ(selected(view), (Rows{5, 6, 7}));
    view.clickRow(2);
    EXPECT_EQ(selected(view), Rows{2});
    view.clickBesideRows();
    EXPECT_EQ(selected(view), Rows{});
    EXPECT_EQ(takeDeeds(), "3 6 8 5 2 - ");
}

TEST_F(LightListViewTest, ADoubleClickCountsOnTheRowThatTheFirstClickSelected) {
    LightListView &view = single();
    int doubleClicks = 0;
    view.onDoubleClick = [&] { ++doubleClicks; };
    view.doubleClickRow(3);
    EXPECT_EQ(doubleClicks, 1);
    for (const auto &change : std::vector<std::function<void()>>{
             [&] { view.deselect(3); },
             [&] { view.clearRows(); },
         }) {
        view.onItemClick = [&](int) { change(); };
        view.doubleClickRow(3);
        EXPECT_EQ(doubleClicks, 1);
        EXPECT_EQ(view.selectedRow(), 0);
    }
}

TEST_F(LightListViewTest, NoRowIsSelectedAnyMoreWhenTheHandlerLearnsOfIt) {
    LightListView &view = multiple();
    Rows seen{0};
    view.onDeselect = [&] { seen = selected(view); };
    view.clickRow(3);
    view.clickBesideRows();
    EXPECT_EQ(seen, Rows{});
}

TEST_F(LightListViewTest, ARowIsInViewWhenItsHandlerRuns) {
    LightListView &view = multiple();
    view.setPage(4);
    view.onItemClick = [&](int row) { EXPECT_TRUE(view.visibleRows().contains(row)) << row; };
    view.clickRow(10);
    view.extendTo(1);
    view.toggleRow(9);
    EXPECT_EQ(view.visibleRows().first(), 6);
}

TEST_F(LightListViewTest, TheSecondClickSelectsARowThatTheFirstOneLost) {
    LightListView &view = single();
    int doubleClicks = 0;
    view.onDoubleClick = [&] { ++doubleClicks; };
    view.onItemClick = [&](int row) {
        view.deselect(row);
        view.onItemClick = nullptr;
    };
    view.doubleClickRow(3);
    EXPECT_EQ(doubleClicks, 0);
    EXPECT_EQ(view.selectedRow(), 3);
}

TEST_F(LightListViewTest, AWindowThatTheFirstClickClosesGetsNoDoubleClick) {
    LightListView &view = single();
    int doubleClicks = 0;
    view.onDoubleClick = [&] { ++doubleClicks; };
    view.onItemClick = [&](int) { window().close(); };
    view.doubleClickRow(3);
    EXPECT_EQ(doubleClicks, 0);
    EXPECT_EQ(view.selectedRow(), 3);
}

TEST_F(LightListViewTest, ARangeThatShrinksShowsItsEnd) {
    LightListView &view = multiple();
    view.setPage(4);
    view.select(4);
    window().press(Key::selectEnd);
    view.scrollBy(-100);
    window().press(Key::selectUp);
    EXPECT_EQ(selected(view), (Rows{4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(view.visibleRows().first(), 6);
}

TEST_F(LightListViewTest, TheFirstRowIsARowLikeAnyOther) {
    LightListView &view = multiple();
    view.select(2);
    window().press(Key::goUp);
    EXPECT_EQ(view.currentRow(), 1);
    view.select(1);
    window().press(Key::selectAll);
    EXPECT_EQ(view.currentRow(), 1);
    EXPECT_EQ(takeDeeds(), "1 ");
}

TEST_F(LightListViewTest, ARangeBeginsAnewAfterTheRowsHaveChanged) {
    LightListView &view = multiple();
    view.select(4);
    window().press({Key::selectDown, Key::goDown});
    EXPECT_EQ(view.currentRow(), 6);
    view.removeRow(1);
    EXPECT_EQ(view.currentRow(), 4);
    window().press(Key::selectDown);
    EXPECT_EQ(selected(view), (Rows{4, 5}));
}

TEST_F(LightListViewTest, APauseEndsTheSearch) {
    ControlDesign design = control(ControlKind::listView, u"lvw");
    design.checkBoxes = true;
    list(design);
    window().type(u"c");
    window().wait(std::chrono::milliseconds(999));
    window().type(u" ");
    window().wait(std::chrono::milliseconds(999));
    window().type(u"d");
    EXPECT_EQ(takeDeeds(), "4 ");
    window().wait(std::chrono::milliseconds(1000));
    window().type(u"d");
    EXPECT_EQ(takeDeeds(), "5 ");
    window().wait(std::chrono::milliseconds(1000));
    window().type(u" ");
    EXPECT_EQ(takeDeeds(), "+5 ");
}

TEST_F(LightListViewTest, EveryClickEndsTheSearch) {
    LightListView &view = multiple();
    for (const auto &click : std::vector<std::function<void()>>{
             [&] { view.clickRow(1); },
             [&] { view.clickBesideRows(); },
             [&] { view.toggleRow(1); },
             [&] { view.extendTo(1); },
             [&] { view.tickRow(1); },
         }) {
        window().type(u"c");
        click();
        window().type(u"d");
        EXPECT_EQ(selected(view), Rows{5});
    }
}

TEST_F(LightListViewTest, WhereNothingIsSelectedNothingIsTold) {
    LightListView &view = multiple();
    view.clickBesideRows();
    view.clearRows();
    window().press(Key::selectAll);
    EXPECT_EQ(takeDeeds(), "");
}

TEST_F(LightListViewTest, ARangeBeginsAnewWhereTheUserWent) {
    LightListView &view = multiple();
    view.select(4);
    window().press({Key::selectDown, Key::selectDown, Key::goDown, Key::selectDown});
    EXPECT_EQ(selected(view), (Rows{7, 8}));
}

TEST_F(LightListViewTest, WithoutASelectedRowARangeIsOneRow) {
    LightListView &view = multiple();
    window().press(Key::goDown);
    EXPECT_EQ(selected(view), Rows{1});
    view.clickBesideRows();
    view.extendTo(5);
    EXPECT_EQ(selected(view), Rows{5});
}

TEST_F(LightListViewTest, TheViewFollowsTheUserAndTheRowsThatCodeSelects) {
    LightListView &view = single();
    view.setPage(4);
    const auto firstAfter = [&](Key key) {
        window().press(key);
        return view.visibleRows().first();
    };
    EXPECT_EQ(view.visibleRows().first(), 1);
    EXPECT_EQ(firstAfter(Key::end), 7);
    EXPECT_EQ(firstAfter(Key::up), 7);
    EXPECT_EQ(firstAfter(Key::pageUp), 5);
    view.select(1);
    EXPECT_EQ(view.visibleRows().first(), 1);
    view.select(6);
    EXPECT_EQ(view.visibleRows().first(), 3);
    view.select(4);
    EXPECT_EQ(view.visibleRows().first(), 3);
}

TEST_F(LightListViewTest, TheWheelScrollsWithinTheRows) {
    LightListView &view = single();
    view.setPage(4);
    view.select(1);
    view.scrollBy(3);
    EXPECT_EQ(view.visibleRows().first(), 4);
    EXPECT_EQ(view.selectedRow(), 1);
    view.scrollBy(100);
    view.addRow(u"last");
    EXPECT_EQ(view.visibleRows().first(), 7);
    view.removeRow(11);
    view.scrollBy(-1);
    EXPECT_EQ(view.visibleRows().first(), 6);
    view.removeRow(10);
    view.removeRow(9);
    EXPECT_EQ(view.visibleRows().first(), 5);
    view.clearRows();
    for (int row = 1; row <= 10; ++row) {
        view.addRow(u"new");
    }
    EXPECT_EQ(view.visibleRows().first(), 1);
}

TEST_F(LightListViewTest, ASmallerViewKeepsTheCurrentRowThatItShowed) {
    LightListView &view = single();
    view.setPage(6);
    view.select(6);
    view.setPage(3);
    EXPECT_EQ(view.visibleRows().first(), 4);
    view.scrollBy(-3);
    view.setPage(2);
    EXPECT_EQ(view.visibleRows().first(), 1);
}

TEST_F(LightListViewTest, AGreyedCurrentRowSaysWhatThatMeans) {
    ControlDesign design = control(ControlKind::listView, u"lvw");
    design.greyedRowHint = u"Locked by another choice";
    design.disabledHint = u"Add a rule first";
    LightListView &view = list(design);
    view.setRowColour(2, RowColour::greyText);
    EXPECT_EQ(view.status(), u"");
    view.select(2);
    EXPECT_EQ(view.status(), u"Locked by another choice");
    EXPECT_EQ(view.namedStatus(), u"Locked by another choice");
    view.select(3);
    EXPECT_EQ(view.status(), u"");
    view.select(2);
    view.setEnabled(false);
    EXPECT_EQ(view.status(), u"Add a rule first");
}

} // namespace
} // namespace kvex::lightweight
