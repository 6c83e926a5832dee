#include "tests/toolkit/ConformanceList.h"

#include "platform/Error.h"
#include "platform/Text.h"

namespace kvex::test {
namespace {

using Texts = std::vector<std::u16string>;

TEST_P(ToolkitConformance, ListSortsByCodeUnitOnTheRowTexts) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"b", u"a", u"ä", u"B", u"10", u"9", u"\uFF41", u"\U0001F600"});
    EXPECT_FALSE(view.sorted());
    view.setSorted(true);
    EXPECT_TRUE(view.sorted());
    EXPECT_EQ(texts(view), (Texts{u"10", u"9", u"B", u"a", u"b", u"ä", u"\U0001F600", u"\uFF41"}));
}

TEST_P(ToolkitConformance, ListSortsOnASubItemAndLeavesEqualRowsAsTheyStood) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"d", u"c", u"b", u"a"});
    view.setSubItem(1, 1, u"2");
    view.setSubItem(2, 1, u"1");
    view.setSubItem(3, 1, u"2");
    view.setSubItem(4, 1, u"1");
    view.setSorted(true);
    EXPECT_EQ(texts(view), (Texts{u"a", u"b", u"c", u"d"}));
    view.setSorted(false);
    view.setSortKey(1);
    EXPECT_EQ(view.sortKey(), 1);
    EXPECT_EQ(texts(view), (Texts{u"a", u"b", u"c", u"d"}));
    view.setSorted(true);
    EXPECT_EQ(texts(view), (Texts{u"a", u"c", u"b", u"d"}));
}

TEST_P(ToolkitConformance, ListSortedTakesAnotherSortKeyAtOnce) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"b", u"a"});
    view.setSubItem(1, 1, u"1");
    view.setSubItem(2, 1, u"2");
    view.setSorted(true);
    EXPECT_EQ(texts(view), (Texts{u"a", u"b"}));
    view.setSortKey(1);
    EXPECT_EQ(texts(view), (Texts{u"b", u"a"}));
    view.setSortKey(0);
    EXPECT_EQ(texts(view), (Texts{u"a", u"b"}));
}

TEST_P(ToolkitConformance, ListSortedPutsANewRowAtItsPlace) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"c", u"a"});
    view.setSorted(true);
    EXPECT_EQ(view.addRow(u"b", u"first"), 2);
    EXPECT_EQ(view.addRow(u"b", u"second"), 3);
    EXPECT_EQ(view.addRow(u"d"), 5);
    EXPECT_EQ(view.addRow(u""), 1);
    EXPECT_EQ(texts(view), (Texts{u"", u"a", u"b", u"b", u"c", u"d"}));
    EXPECT_EQ(view.key(3), u"first");
    EXPECT_EQ(view.rowOfKey(u"second"), 4);
}

TEST_P(ToolkitConformance, ListSortedMovesARowOfAChangedKeyOnlyWhenSortedAgain) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"a", u"b", u"c"});
    view.setSorted(true);
    show(*shown, [&](Hands &) {
        view.setText(1, u"z");
        EXPECT_EQ(texts(view), (Texts{u"z", u"b", u"c"}));
        view.setSorted(false);
        EXPECT_EQ(texts(view), (Texts{u"z", u"b", u"c"}));
        view.setSorted(true);
        EXPECT_EQ(texts(view), (Texts{u"b", u"c", u"z"}));
    });
}

TEST_P(ToolkitConformance, ListSortedMovesRowsWhole) {
    const auto shown = window({list(true)});
    auto &view = filled(*shown, {u"b", u"c"});
    view.addRow(u"a", u"key");
    view.setSubItem(3, 1, u"sub");
    view.setChecked(3, true);
    view.setRowColour(3, RowColour::greyText);
    view.select(3);
    show(*shown, [&](Hands &) {
        view.setSorted(true);
        EXPECT_EQ(view.key(1), u"key");
        EXPECT_EQ(view.rowOfKey(u"key"), 1);
        EXPECT_EQ(view.subItem(1, 1), u"sub");
        EXPECT_TRUE(view.checked(1));
        EXPECT_EQ(view.rowColour(1), RowColour::greyText);
        EXPECT_EQ(view.selectedRow(), 1);
        EXPECT_TRUE(view.selected(1));
        EXPECT_FALSE(view.selected(3));
    });
}

TEST_P(ToolkitConformance, ListUserActsOnTheRowsAsTheyStandAfterSorting) {
    const auto shown = window({list(true)});
    auto &view = filled(*shown, {u"b", u"a"});
    std::u16string clicked;
    view.onItemClick = [&](int row) { clicked += view.text(row); };
    show(*shown, [&](Hands &user) {
        view.setSorted(true);
        user.clickRow(u"lvw", 1);
        user.tickRow(u"lvw", 2);
        EXPECT_EQ(view.checked(2), true);
        EXPECT_EQ(view.text(2), u"b");
    });
    EXPECT_EQ(clicked, u"a");
}

TEST_P(ToolkitConformance, ListOfManyRowsStaysRight) {
    constexpr int count = 100000;
    const auto shown = window({list(true)});
    auto &view = filled(*shown, {});
    view.addColumn(u"Key", 0);
    const auto number = [](int value) { return toText(std::int64_t{value}); };
    for (int i = 1; i <= count; ++i) {
        ASSERT_EQ(view.addRow(u"Row " + number(i), u"RU" + number(i)), i);
        view.setSubItem(i, 2, number(1000000 - i));
    }
    view.select(10);
    for (const int i : {1, 50000, count}) {
        EXPECT_EQ(view.rowOfKey(u"RU" + number(i)), i);
    }
    show(*shown, [&](Hands &user) {
        view.setSortKey(2);
        view.setSorted(true);
        for (int i = 1; i <= count; ++i) {
            ASSERT_EQ(view.rowOfKey(u"RU" + number(i)), count + 1 - i);
        }
        EXPECT_EQ(view.selectedRow(), count - 9);
        user.press(Key::end);
        EXPECT_EQ(view.selectedRow(), count);
        EXPECT_EQ(view.text(count), u"Row 1");
        EXPECT_EQ(view.findItem(u"row 1", FindMatch::wholeText), count);
        view.removeRow(1);
        EXPECT_EQ(view.selectedRow(), count - 1);
        EXPECT_EQ(view.rowOfKey(u"RU2"), count - 2);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(view.rowOfKey(u"RU" + number(count))); }),
                  error_number::elementNotFound);
    });
    for (int row = view.rowCount(); row > 1; --row) {
        view.removeRow(row);
    }
    EXPECT_EQ(texts(view), Texts{u"Row 99999"});
}

} // namespace
} // namespace kvex::test
