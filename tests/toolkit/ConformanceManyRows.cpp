#include "tests/toolkit/ConformanceList.h"

namespace kvex::test {
namespace {

using Rows = std::vector<int>;

/// A list of six rows in which several can be selected, and the rows that its handlers learned of;
/// 0 when none was selected any more.
class Several {
public:
    explicit Several(Window &window) : view(filled(window, {u"a", u"b", u"c", u"d", u"e", u"f"})) {
        view.onItemClick = [this](int row) { told.push_back(row); };
        view.onDeselect = [this] { told.push_back(0); };
    }

    [[nodiscard]] Rows selected() const {
        Rows rows;
        for (int row = 1; row <= view.rowCount(); ++row) {
            if (view.selected(row)) {
                rows.push_back(row);
            }
        }
        return rows;
    }
    Rows takeTold() { return std::exchange(told, {}); }

    ListView &view;
    Rows told;
};

TEST_P(ToolkitConformance, ListOfSeveralExtendsItsSelectionByShiftedKeys) {
    const auto shown = window({list(false, true)});
    Several rows(*shown);
    rows.view.select(2);
    show(*shown, [&](Hands &user) {
        user.press(Key::selectDown);
        user.press(Key::selectDown);
        EXPECT_EQ(rows.selected(), (Rows{2, 3, 4}));
        EXPECT_EQ(rows.view.selectedRow(), 4);
        EXPECT_EQ(rows.takeTold(), (Rows{3, 4}));
        user.press(Key::selectUp);
        EXPECT_EQ(rows.selected(), (Rows{2, 3}));
        EXPECT_EQ(rows.view.selectedRow(), 3);
        user.press(Key::selectUp);
        user.press(Key::selectUp);
        EXPECT_EQ(rows.selected(), (Rows{1, 2}));
        EXPECT_EQ(rows.view.selectedRow(), 1);
        user.press(Key::selectEnd);
        EXPECT_EQ(rows.selected(), (Rows{2, 3, 4, 5, 6}));
        EXPECT_EQ(rows.view.selectedRow(), 6);
        user.press(Key::selectHome);
        EXPECT_EQ(rows.selected(), (Rows{1, 2}));
        user.press(Key::down);
        EXPECT_EQ(rows.selected(), Rows{2});
    });
}

TEST_P(ToolkitConformance, ListOfSeveralSelectsRowsApartByControl) {
    const auto shown = window({list(false, true)});
    Several rows(*shown);
    rows.view.select(2);
    show(*shown, [&](Hands &user) {
        user.press(Key::goDown);
        user.press(Key::goDown);
        EXPECT_EQ(rows.selected(), Rows{2});
        user.press(Key::toggleRow);
        EXPECT_EQ(rows.selected(), (Rows{2, 4}));
        EXPECT_EQ(rows.view.selectedRow(), 4);
        user.press(Key::goDown);
        user.press(Key::space);
        EXPECT_EQ(rows.selected(), (Rows{2, 4, 5}));
        EXPECT_EQ(rows.takeTold(), (Rows{4, 5}));
        user.press(Key::toggleRow);
        EXPECT_EQ(rows.selected(), (Rows{2, 4}));
        EXPECT_EQ(rows.takeTold(), Rows{});
    });
}

TEST_P(ToolkitConformance, ListOfSeveralSelectsAllAndKeepsItsPlace) {
    const auto shown = window({list(false, true)});
    Several rows(*shown);
    rows.view.select(3);
    show(*shown, [&](Hands &user) {
        user.press(Key::selectAll);
        EXPECT_EQ(rows.selected(), (Rows{1, 2, 3, 4, 5, 6}));
        EXPECT_EQ(rows.view.selectedRow(), 3);
        EXPECT_EQ(rows.takeTold(), Rows{3});
        user.press(Key::up);
        EXPECT_EQ(rows.selected(), Rows{2});
    });
}

TEST_P(ToolkitConformance, ListTellsThatItsOnlySelectedRowIsDeselected) {
    for (const bool several : {false, true}) {
        const auto shown = window({list(false, several)});
        Several rows(*shown);
        rows.view.select(3);
        show(*shown, [&](Hands &user) {
            user.press(Key::toggleRow);
            EXPECT_EQ(rows.selected(), Rows{});
            EXPECT_EQ(rows.takeTold(), Rows{0});
            user.press(Key::down);
            EXPECT_EQ(rows.takeTold(), Rows{1});
        });
    }
}

TEST_P(ToolkitConformance, ListOfOneChoiceSelectsOneRowByAnyKey) {
    const auto shown = window({list()});
    Several rows(*shown);
    rows.view.select(3);
    show(*shown, [&](Hands &user) {
        for (const Key key : {Key::selectAll, Key::selectDown, Key::goDown, Key::selectUp,
                              Key::selectEnd, Key::selectHome}) {
            user.press(key);
        }
        EXPECT_EQ(rows.takeTold(), (Rows{4, 5, 4, 6, 1}));
    });
}

} // namespace
} // namespace kvex::test
