#include "tests/toolkit/ConformanceList.h"

#include "platform/Error.h"

namespace kvex::test {

ControlDesign list(bool checkBoxes, bool multiSelect) {
    ControlDesign design = control(ControlKind::listView, u"lvw");
    design.checkBoxes = checkBoxes;
    design.multiSelect = multiSelect;
    return design;
}

ListView &filled(Window &window, const std::vector<std::u16string> &texts) {
    auto &view = window.get<ListView>(u"lvw");
    view.addColumn(u"Text", 0.95);
    view.addColumn(u"Hidden", 0);
    for (const auto &text : texts) {
        view.addRow(text);
    }
    return view;
}

std::vector<std::u16string> texts(const ListView &view) {
    std::vector<std::u16string> result;
    for (int row = 1; row <= view.rowCount(); ++row) {
        result.push_back(view.text(row));
    }
    return result;
}

namespace {

using Texts = std::vector<std::u16string>;

TEST_P(ToolkitConformance, ListAddsRowsAtTheEndAndGivesTheirPositions) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {});
    EXPECT_EQ(view.rowCount(), 0);
    EXPECT_EQ(view.addRow(u"b"), 1);
    EXPECT_EQ(view.addRow(u"a"), 2);
    EXPECT_EQ(view.addRow(u"b"), 3);
    EXPECT_EQ(view.rowCount(), 3);
    EXPECT_EQ(texts(view), (Texts{u"b", u"a", u"b"}));
}

TEST_P(ToolkitConformance, ListGivesTextsAsSet) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"    four blanks ", u"<b>&amp;", u"\U0001F600"});
    EXPECT_EQ(texts(view), (Texts{u"    four blanks ", u"<b>&amp;", u"\U0001F600"}));
    view.setText(2, u"two\tlines\n");
    EXPECT_EQ(view.text(2), u"two\tlines\n");
}

TEST_P(ToolkitConformance, ListFindsARowByItsKey) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {});
    view.addRow(u"a", u"RU17");
    view.addRow(u"b", u"RU4");
    EXPECT_EQ(view.rowOfKey(u"RU17"), 1);
    EXPECT_EQ(view.rowOfKey(u"RU4"), 2);
    EXPECT_EQ(view.key(2), u"RU4");
    view.removeRow(1);
    EXPECT_EQ(view.rowOfKey(u"RU4"), 1);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(view.rowOfKey(u"RU17")); }),
              error_number::elementNotFound);
}

TEST_P(ToolkitConformance, ListFailsToFindAKeyThatNoRowHas) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"no key"});
    for (const auto *key : {u"RU1", u"", u"no key"}) {
        EXPECT_EQ(errorNumber([&] { static_cast<void>(view.rowOfKey(key)); }),
                  error_number::elementNotFound);
    }
}

TEST_P(ToolkitConformance, ListRefusesAKeyTwiceAndAddsNoRow) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {});
    view.addRow(u"a", u"AC1");
    EXPECT_EQ(errorNumber([&] { view.addRow(u"b", u"AC1"); }), error_number::keyNotUnique);
    EXPECT_EQ(texts(view), Texts{u"a"});
    view.removeRow(1);
    EXPECT_EQ(view.addRow(u"b", u"AC1"), 1);
    view.clearRows();
    EXPECT_EQ(view.addRow(u"c", u"AC1"), 1);
}

TEST_P(ToolkitConformance, ListRefusesAPositionThatIsNoRows) {
    const auto shown = window({list(true)});
    auto &view = filled(*shown, {u"a", u"b"});
    for (const int row : {0, 3, -1}) {
        const std::vector<std::function<void()>> calls{
            [&] { static_cast<void>(view.text(row)); },
            [&] { view.setText(row, u"x"); },
            [&] { static_cast<void>(view.key(row)); },
            [&] { static_cast<void>(view.subItem(row, 1)); },
            [&] { view.setSubItem(row, 1, u"x"); },
            [&] { static_cast<void>(view.checked(row)); },
            [&] { view.setChecked(row, true); },
            [&] { static_cast<void>(view.rowColour(row)); },
            [&] { view.setRowColour(row, RowColour::greyText); },
            [&] { static_cast<void>(view.selected(row)); },
            [&] { view.select(row); },
            [&] { view.deselect(row); },
            [&] { view.removeRow(row); },
        };
        for (std::size_t call = 0; call < calls.size(); ++call) {
            EXPECT_EQ(errorNumber(calls[call]), error_number::indexOutOfBounds)
                << "call " << call << " row " << row;
        }
    }
    EXPECT_EQ(texts(view), (Texts{u"a", u"b"}));
    EXPECT_EQ(view.selectedRow(), 0);
}

TEST_P(ToolkitConformance, ListHoldsSubItemsForItsColumns) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"a", u"b"});
    view.addColumn(u"Third", 0);
    EXPECT_EQ(view.columnCount(), 3);
    EXPECT_EQ(view.subItem(1, 2), u"");
    view.setSubItem(1, 2, u"x");
    EXPECT_EQ(view.subItem(1, 2), u"x");
    EXPECT_EQ(view.subItem(1, 1), u"");
    EXPECT_EQ(view.subItem(2, 2), u"");
    view.removeRow(1);
    EXPECT_EQ(view.subItem(1, 2), u"");
}

TEST_P(ToolkitConformance, ListRefusesASubItemWithoutAColumn) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"a"});
    for (const int index : {0, 2, -1}) {
        EXPECT_EQ(errorNumber([&] { static_cast<void>(view.subItem(1, index)); }),
                  error_number::invalidPropertyValue);
        EXPECT_EQ(errorNumber([&] { view.setSubItem(1, index, u"x"); }),
                  error_number::invalidPropertyValue);
    }
}

TEST_P(ToolkitConformance, ListColumnsAreClearedApartFromTheRows) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"a", u"b"});
    view.setColumnIcon(1, 0);
    view.clearColumns();
    EXPECT_EQ(view.columnCount(), 0);
    EXPECT_EQ(texts(view), (Texts{u"a", u"b"}));
    view.addColumn(u"New", 1);
    EXPECT_EQ(view.columnCount(), 1);
    view.clearRows();
    EXPECT_EQ(view.rowCount(), 0);
    EXPECT_EQ(view.columnCount(), 1);
}

TEST_P(ToolkitConformance, ListColumnsTakePicturesOfTheImageList) {
    ControlDesign pictures = control(ControlKind::imageList, u"img");
    pictures.pictures = {Picture::inOrder, Picture::account};
    ControlDesign design = list();
    design.imageList = u"img";
    design.rowPicture = 2;
    const auto shown = window({design, pictures});
    auto &view = filled(*shown, {u"a"});
    show(*shown, [&](Hands &) {
        view.setColumnIcon(1, 1);
        view.setColumnIcon(1, 0);
    });
    EXPECT_EQ(errorNumber([&] { view.setColumnIcon(3, 1); }), error_number::indexOutOfBounds);
    EXPECT_EQ(errorNumber([&] { view.setColumnIcon(0, 1); }), error_number::indexOutOfBounds);
}

TEST_P(ToolkitConformance, ListRowsKeepTheirTicksAndColours) {
    const auto shown = window({list(true)});
    auto &view = filled(*shown, {u"a", u"b", u"c"});
    EXPECT_FALSE(view.checked(2));
    EXPECT_EQ(view.rowColour(2), RowColour::windowText);
    view.setChecked(2, true);
    view.setRowColour(2, RowColour::greyText);
    view.removeRow(1);
    show(*shown, [&](Hands &) {
        EXPECT_TRUE(view.checked(1));
        EXPECT_FALSE(view.checked(2));
        EXPECT_EQ(view.rowColour(1), RowColour::greyText);
        EXPECT_EQ(view.rowColour(2), RowColour::windowText);
        view.setChecked(1, false);
        EXPECT_FALSE(view.checked(1));
    });
}

TEST_P(ToolkitConformance, ListFindsWholeWordsAtTheStartWithoutRegardToCase) {
    const auto shown = window({list()});
    auto &view =
        filled(*shown, {u"    Main line", u"    Main", u"    mainline", u"    ÄRZTE-Nord", u"x9"});
    EXPECT_EQ(view.findItem(u"    main"), 1);
    EXPECT_EQ(view.findItem(u"    MAIN LINE TWO"), 1);
    EXPECT_EQ(view.findItem(u"    main-two"), 2);
    EXPECT_EQ(view.findItem(u"    mai"), 0);
    EXPECT_EQ(view.findItem(u"    mainlin"), 0);
    EXPECT_EQ(view.findItem(u"    Mainline"), 3);
    EXPECT_EQ(view.findItem(u"    ärzte"), 4);
    EXPECT_EQ(view.findItem(u"    ärzte-nordost"), 0);
    EXPECT_EQ(view.findItem(u"x"), 0);
    EXPECT_EQ(view.findItem(u"x9 and more"), 5);
    EXPECT_EQ(view.findItem(u"x98"), 0);
    EXPECT_EQ(view.findItem(u"x9\u00E9"), 0);
    EXPECT_EQ(view.findItem(u"x9\U0001D400"), 0);
    EXPECT_EQ(view.findItem(u"x9\U0001F600"), 5);
    EXPECT_EQ(view.findItem(u"Main line"), 0);
}

TEST_P(ToolkitConformance, ListFindsAWholeTextWithoutRegardToCase) {
    const auto shown = window({list()});
    auto &view = filled(*shown, {u"Anna B", u"anna", u"ANNA"});
    EXPECT_EQ(view.findItem(u"Anna", FindMatch::wholeText), 2);
    EXPECT_EQ(view.findItem(u"anna b", FindMatch::wholeText), 1);
    EXPECT_EQ(view.findItem(u"Anna ", FindMatch::wholeText), 0);
    EXPECT_EQ(view.findItem(u"Ann", FindMatch::wholeText), 0);
    EXPECT_EQ(view.findItem(u"", FindMatch::wholeText), 0);
}

} // namespace
} // namespace kvex::test
