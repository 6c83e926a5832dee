#include "tests/toolkit/ConformanceList.h"

namespace kvex::test {
namespace {

TEST_P(ToolkitConformance, ListHasNoSelectedRowUntilOneIsSelected) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"a", u"b"});
    show(*shown, [&](Hands &user) {
        EXPECT_EQ(user.focused(), u"lvw");
        EXPECT_EQ(view.selectedRow(), 0);
        EXPECT_FALSE(view.selected(1));
    });
    EXPECT_EQ(view.selectedRow(), 0);
}

TEST_P(ToolkitConformance, ListSelectedByCodeRunsNoHandler) {
    const auto shown = window({list(true)});
    auto &view = filled(*shown, {u"a", u"b"});
    int events = 0;
    view.onItemClick = [&](int) { ++events; };
    view.onItemCheck = [&](int) { ++events; };
    const auto setAll = [&] {
        view.select(2);
        EXPECT_EQ(view.selectedRow(), 2);
        view.select(1);
        EXPECT_EQ(view.selectedRow(), 1);
        EXPECT_FALSE(view.selected(2));
        view.setChecked(2, true);
        view.setChecked(2, false);
        view.removeRow(1);
        view.addRow(u"c");
        view.setSorted(true);
        view.setSorted(false);
        view.deselect(1);
        EXPECT_EQ(view.selectedRow(), 0);
    };
    setAll();
    show(*shown, [&](Hands &) { setAll(); });
    EXPECT_EQ(events, 0);
}

TEST_P(ToolkitConformance, ListRowClickedIsSelectedAndReportedAlsoWhenItWasSelected) {
    const auto shown = window({control(ControlKind::textBox, u"txt"), list()});
    auto &view = filled(*shown, {u"a", u"b", u"c"});
    std::vector<int> clicked;
    view.onItemClick = [&](int row) {
        EXPECT_EQ(view.selectedRow(), row);
        clicked.push_back(row);
    };
    show(*shown, [&](Hands &user) {
        user.clickRow(u"lvw", 2);
        EXPECT_EQ(user.focused(), u"lvw");
        user.clickRow(u"lvw", 2);
        user.clickRow(u"lvw", 1);
        EXPECT_TRUE(view.selected(1));
        EXPECT_FALSE(view.selected(2));
    });
    EXPECT_EQ(clicked, (std::vector<int>{2, 2, 1}));
}

TEST_P(ToolkitConformance, ListIsWalkedByKeys) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"a", u"b", u"c"});
    std::vector<int> clicked;
    view.onItemClick = [&](int row) { clicked.push_back(row); };
    view.select(2);
    show(*shown, [&](Hands &user) {
        user.press(Key::down);
        EXPECT_EQ(view.selectedRow(), 3);
        user.press(Key::up);
        EXPECT_EQ(view.selectedRow(), 2);
        user.press(Key::end);
        EXPECT_EQ(view.selectedRow(), 3);
        user.press(Key::home);
        EXPECT_EQ(view.selectedRow(), 1);
    });
    EXPECT_EQ(clicked, (std::vector<int>{3, 2, 3, 1}));
}

TEST_P(ToolkitConformance, ListWithoutASelectedRowIsEnteredByKeys) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"a", u"b"});
    show(*shown, [&](Hands &user) {
        user.press(Key::down);
        EXPECT_EQ(view.selectedRow(), 1);
    });
}

TEST_P(ToolkitConformance, ListRowTickedByTheUserIsReportedAndNotSelected) {
    const auto shown = window({list(true)});
    auto &view = filled(*shown, {u"a", u"b", u"c"});
    std::vector<int> ticked;
    int clicks = 0;
    view.onItemClick = [&](int) { ++clicks; };
    view.onItemCheck = [&](int row) { ticked.push_back(view.checked(row) ? row : -row); };
    view.select(3);
    show(*shown, [&](Hands &user) {
        user.tickRow(u"lvw", 2);
        EXPECT_TRUE(view.checked(2));
        EXPECT_EQ(view.selectedRow(), 3);
        user.tickRow(u"lvw", 2);
        EXPECT_FALSE(view.checked(2));
    });
    EXPECT_EQ(ticked, (std::vector<int>{2, -2}));
    EXPECT_EQ(clicks, 0);
}

TEST_P(ToolkitConformance, ListRowSelectedIsTickedBySpace) {
    const auto shown = window({list(true)});
    auto &view = filled(*shown, {u"a", u"b"});
    std::vector<int> ticked;
    view.onItemCheck = [&](int row) { ticked.push_back(row); };
    view.select(2);
    show(*shown, [&](Hands &user) {
        user.press(Key::space);
        EXPECT_TRUE(view.checked(2));
    });
    EXPECT_EQ(ticked, std::vector<int>{2});
}

TEST_P(ToolkitConformance, ListTickHandlerMayTickRowsItself) {
    const auto shown = window({list(true)});
    auto &view = filled(*shown, {u"a", u"b", u"c"});
    view.setChecked(1, true);
    int events = 0;
    view.onItemCheck = [&](int row) {
        ++events;
        for (int other = 1; other <= view.rowCount(); ++other) {
            view.setChecked(other, false);
        }
        view.setChecked(row, true);
        view.select(row);
    };
    show(*shown, [&](Hands &user) { user.tickRow(u"lvw", 3); });
    EXPECT_EQ(events, 1);
    EXPECT_FALSE(view.checked(1));
    EXPECT_TRUE(view.checked(3));
    EXPECT_EQ(view.selectedRow(), 3);
}

TEST_P(ToolkitConformance, ListRowDoubleClickedIsSelectedFirst) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"a", u"b"});
    std::vector<int> selectedThen;
    view.onDoubleClick = [&] { selectedThen.push_back(view.selectedRow()); };
    show(*shown, [&](Hands &user) {
        user.clickRow(u"lvw", 1);
        EXPECT_TRUE(selectedThen.empty());
        user.doubleClickRow(u"lvw", 2);
    });
    EXPECT_EQ(selectedThen, std::vector<int>{2});
}

TEST_P(ToolkitConformance, ListSelectsTheRowThatTakesTheRemovedOnesPlace) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"a", u"b", u"c"});
    view.select(2);
    view.removeRow(2);
    EXPECT_EQ(view.selectedRow(), 2);
    EXPECT_EQ(view.text(2), u"c");
    EXPECT_TRUE(view.selected(2));
    view.removeRow(2);
    EXPECT_EQ(view.selectedRow(), 0);
    EXPECT_FALSE(view.selected(1));
}

TEST_P(ToolkitConformance, ListRemovalKeepsTheSelectionOfARowThatStays) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"a", u"b", u"c", u"d"});
    int clicks = 0;
    view.onItemClick = [&](int) { ++clicks; };
    show(*shown, [&](Hands &user) {
        user.clickRow(u"lvw", 3);
        view.removeRow(1);
        EXPECT_EQ(view.selectedRow(), 2);
        view.removeRow(3);
        EXPECT_EQ(view.selectedRow(), 2);
        view.removeRow(2);
        EXPECT_EQ(view.selectedRow(), 0);
        EXPECT_EQ(texts(view), std::vector<std::u16string>{u"b"});
        user.clickRow(u"lvw", 1);
        EXPECT_EQ(view.selectedRow(), 1);
    });
    EXPECT_EQ(clicks, 2);
}

TEST_P(ToolkitConformance, ListRemovalOfAnUnselectedRowSelectsNone) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"a", u"b"});
    show(*shown, [&](Hands &) {
        view.removeRow(1);
        EXPECT_EQ(view.selectedRow(), 0);
        view.clearRows();
        EXPECT_EQ(view.selectedRow(), 0);
        view.addRow(u"new");
        EXPECT_EQ(view.selectedRow(), 0);
    });
}

TEST_P(ToolkitConformance, ListHandlerMayRemoveTheRowClicked) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"a", u"b"});
    view.onItemClick = [&](int row) { view.removeRow(row); };
    show(*shown, [&](Hands &user) {
        user.clickRow(u"lvw", 1);
        EXPECT_EQ(texts(view), std::vector<std::u16string>{u"b"});
        EXPECT_EQ(view.selectedRow(), 1);
    });
}

TEST_P(ToolkitConformance, ListOfMultipleSelectionKeepsTheOthersSelected) {
    const auto shown = window({list(false, true)});
    auto &view = filled(*shown, {u"a", u"b", u"c"});
    EXPECT_TRUE(view.multiSelect());
    view.select(1);
    view.select(3);
    EXPECT_TRUE(view.selected(1));
    EXPECT_FALSE(view.selected(2));
    EXPECT_TRUE(view.selected(3));
    EXPECT_EQ(view.selectedRow(), 3);
    view.select(1);
    EXPECT_EQ(view.selectedRow(), 1);
    view.deselect(1);
    EXPECT_EQ(view.selectedRow(), 3);
    EXPECT_FALSE(view.selected(1));
}

TEST_P(ToolkitConformance, ListSwitchedToSingleSelectionKeepsTheCurrentItemOnly) {
    const auto shown = window({list(false, true)});
    auto &view = filled(*shown, {u"a", u"b", u"c"});
    view.select(2);
    view.select(1);
    view.setMultiSelect(false);
    EXPECT_FALSE(view.multiSelect());
    EXPECT_TRUE(view.selected(1));
    EXPECT_FALSE(view.selected(2));
    view.select(3);
    EXPECT_FALSE(view.selected(1));
    view.setMultiSelect(true);
    EXPECT_TRUE(view.selected(3));
    view.select(1);
    EXPECT_TRUE(view.selected(3));
}

TEST_P(ToolkitConformance, ListOfMultipleSelectionIsLeftWithTheRowClicked) {
    const auto shown = window({list(false, true)});
    auto &view = filled(*shown, {u"a", u"b", u"c"});
    view.select(1);
    view.select(3);
    show(*shown, [&](Hands &user) {
        EXPECT_TRUE(view.selected(1));
        EXPECT_TRUE(view.selected(3));
        user.clickRow(u"lvw", 2);
        EXPECT_FALSE(view.selected(1));
        EXPECT_TRUE(view.selected(2));
        EXPECT_FALSE(view.selected(3));
        EXPECT_EQ(view.selectedRow(), 2);
    });
}

} // namespace
} // namespace kvex::test
