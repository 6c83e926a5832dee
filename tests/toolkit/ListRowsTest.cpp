#include "adapters/controls/ListRows.h"

#include "platform/Error.h"
#include "platform/Text.h"
#include "tests/support/RaisedError.h"
#include "tests/toolkit/BareList.h"
#include "tests/toolkit/Designs.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace kvex::controls {
namespace {

using test::BareList;
using test::errorNumber;

/// Records each notification and the number of rows at that time.
class Log final : public ListRowsListener {
public:
    explicit Log(const ListRows &rows) : rows_(rows) {}

    void aboutToInsertRow(int row) override { add("inserting " + std::to_string(row)); }
    void rowInserted() override { add("inserted"); }
    void aboutToRemoveRow(int row) override { add("removing " + std::to_string(row)); }
    void rowRemoved() override { add("removed"); }
    void aboutToReorder() override { add("reordering"); }
    void reordered() override { add("reordered"); }
    void aboutToReset() override { add("resetting"); }
    void reset() override { add("reset"); }
    void rowChanged(int row) override { add("changed " + std::to_string(row)); }
    void columnIconChanged(int column) override { add("icon " + std::to_string(column)); }
    void selectionChanged() override { add("selected " + std::to_string(rows_.selectedRow())); }
    void rowSelectedByCode(int row) override { add("to be seen " + std::to_string(row)); }

    /// The notifications since the last call.
    [[nodiscard]] std::string take() { return std::exchange(text_, {}); }

private:
    void add(const std::string &what) {
        text_ += what + " of " + std::to_string(rows_.rowCount()) + "; ";
    }

    const ListRows &rows_;
    std::string text_;
};

class ListRowsTest : public testing::Test {
protected:
    ListRowsTest() {
        rows_.addColumn(u"Text", 0.95);
        rows_.addColumn(u"Hidden", 0);
        rows_.setListener(&log_);
    }

    BareList rows_;
    Log log_{rows_};
};

TEST_F(ListRowsTest, NotifiesBeforeAndAfterRowsAreAddedAndRemoved) {
    rows_.addRow(u"b");
    EXPECT_EQ(log_.take(), "inserting 1 of 0; inserted of 1; ");
    rows_.setSorted(true);
    EXPECT_EQ(log_.take(), "reordering of 1; reordered of 1; ");
    rows_.addRow(u"a");
    EXPECT_EQ(log_.take(), "inserting 1 of 1; inserted of 2; ");
    rows_.removeRow(2);
    EXPECT_EQ(log_.take(), "removing 2 of 2; removed of 1; ");
    rows_.clearRows();
    EXPECT_EQ(log_.take(), "resetting of 1; reset of 0; ");
}

TEST_F(ListRowsTest, NotifiesOfTheMovedSelectionAfterTheRemoval) {
    rows_.addRow(u"a");
    rows_.addRow(u"b");
    static_cast<void>(log_.take());
    rows_.select(1);
    EXPECT_EQ(log_.take(), "selected 1 of 2; to be seen 1 of 2; ");
    rows_.removeRow(1);
    EXPECT_EQ(log_.take(), "removing 1 of 2; removed of 1; selected 1 of 1; ");
    rows_.clearRows();
    EXPECT_EQ(log_.take(), "resetting of 1; reset of 0; selected 0 of 0; ");
}

TEST_F(ListRowsTest, NotifiesOfChangedRowsAndColumns) {
    rows_.addRow(u"a");
    static_cast<void>(log_.take());
    rows_.setText(1, u"b");
    rows_.setSubItem(1, 1, u"c");
    rows_.setChecked(1, true);
    rows_.setRowColour(1, RowColour::greyText);
    EXPECT_EQ(log_.take(), "changed 1 of 1; changed 1 of 1; changed 1 of 1; changed 1 of 1; ");
    rows_.setColumnIcon(2, 1);
    EXPECT_EQ(log_.take(), "icon 2 of 1; ");
    rows_.addColumn(u"New", 1);
    rows_.clearColumns();
    EXPECT_EQ(log_.take(), "resetting of 1; reset of 1; resetting of 1; reset of 1; ");
}

TEST_F(ListRowsTest, DoesNotNotifyOfAFailedCall) {
    rows_.addRow(u"a", u"key");
    static_cast<void>(log_.take());
    EXPECT_EQ(errorNumber([&] { rows_.addRow(u"b", u"key"); }), error_number::keyNotUnique);
    EXPECT_EQ(errorNumber([&] { rows_.removeRow(2); }), error_number::indexOutOfBounds);
    EXPECT_EQ(errorNumber([&] { rows_.select(2); }), error_number::indexOutOfBounds);
    EXPECT_EQ(errorNumber([&] { rows_.addColumn(u"Wide", 1.5); }),
              error_number::invalidPropertyValue);
    EXPECT_EQ(errorNumber([&] { rows_.setSortKey(-1); }), error_number::invalidPropertyValue);
    EXPECT_EQ(log_.take(), "");
}

TEST_F(ListRowsTest, GivesItsCellsAndColumnsWithoutACopy) {
    rows_.addRow(u"text");
    rows_.setSubItem(1, 1, u"sub");
    EXPECT_EQ(rows_.cell(1, 1), u"text");
    EXPECT_EQ(rows_.cell(1, 2), u"sub");
    EXPECT_EQ(rows_.column(1).header, u"Text");
    EXPECT_EQ(rows_.column(1).width, 0.95);
    rows_.setColumnIcon(1, 2);
    EXPECT_EQ(rows_.column(1).icon, 2);
    for (const int column : {0, 3}) {
        EXPECT_EQ(errorNumber([&] { static_cast<void>(rows_.cell(1, column)); }),
                  error_number::indexOutOfBounds);
        EXPECT_EQ(errorNumber([&] { static_cast<void>(rows_.column(column)); }),
                  error_number::indexOutOfBounds);
    }
}

TEST_F(ListRowsTest, FindsKeysAfterRowsCameBetweenAndWent) {
    rows_.setSorted(true);
    for (const auto *key : {u"d", u"b", u"a", u"e", u"c"}) {
        rows_.addRow(key, key);
        EXPECT_EQ(rows_.text(rows_.rowOfKey(key)), key);
    }
    rows_.removeRow(2);
    EXPECT_EQ(rows_.rowOfKey(u"a"), 1);
    EXPECT_EQ(rows_.rowOfKey(u"e"), 4);
    rows_.addRow(u"0", u"0");
    EXPECT_EQ(rows_.rowOfKey(u"0"), 1);
    EXPECT_EQ(rows_.rowOfKey(u"c"), 3);
    EXPECT_EQ(rows_.rowOfKey(u"e"), 5);
}

TEST_F(ListRowsTest, ManyRowsThatSortAlikeStayAsTheyStood) {
    constexpr int count = 200;
    for (int row = 1; row <= count; ++row) {
        rows_.addRow(row % 2 == 0 ? u"even" : u"odd",
                     std::u16string(1, static_cast<char16_t>(row)));
    }
    rows_.setSorted(true);
    for (int row = 1; row <= count; ++row) {
        const int original = row <= count / 2 ? 2 * row : 2 * (row - count / 2) - 1;
        EXPECT_EQ(rows_.key(row), std::u16string(1, static_cast<char16_t>(original)));
    }
}

TEST(ListRowsSelection, OfSeveralFallsBackToTheOneSelectedBefore) {
    BareList rows(true);
    for (const auto *text : {u"a", u"b", u"c"}) {
        rows.addRow(text);
    }
    rows.select(1);
    rows.select(2);
    rows.select(3);
    rows.removeRow(3);
    EXPECT_EQ(rows.selectedRow(), 2);
    rows.removeRow(1);
    EXPECT_EQ(rows.selectedRow(), 1);
    EXPECT_EQ(rows.text(1), u"b");
    rows.selectOnly(0);
    EXPECT_EQ(rows.selectedRow(), 0);
    EXPECT_FALSE(rows.selected(1));
}

/// Records what a view reads in each notification.
class View final : public ListRowsListener {
public:
    explicit View(const ListRows &rows) : rows_(rows) {}

    void aboutToInsertRow(int /*row*/) override {}
    void rowInserted() override {}
    void aboutToRemoveRow(int /*row*/) override {}
    void rowRemoved() override {}
    void aboutToReorder() override { add("from " + order()); }
    void reordered() override {
        add("to " + order() + ", selected " + std::to_string(rows_.selectedRow()));
    }
    void aboutToReset() override {}
    void reset() override {}
    void rowChanged(int row) override {
        add(toUtf8(rows_.text(row)) + toUtf8(rows_.subItem(row, 1)) +
            (rows_.checked(row) ? " ticked" : "") +
            (rows_.rowColour(row) == RowColour::greyText ? " grey" : ""));
    }
    void columnIconChanged(int column) override {
        add("icon " + std::to_string(rows_.column(column).icon));
    }
    void selectionChanged() override {
        std::string selected = "selected";
        for (int row = 1; row <= rows_.rowCount(); ++row) {
            selected += rows_.selected(row) ? " " + std::to_string(row) : "";
        }
        add(selected + ", last " + std::to_string(rows_.selectedRow()));
    }
    void rowSelectedByCode(int row) override { add("to be seen " + std::to_string(row)); }

    /// What was read since the last call.
    [[nodiscard]] std::vector<std::string> take() { return std::exchange(read_, {}); }

private:
    void add(std::string what) { read_.push_back(std::move(what)); }
    [[nodiscard]] std::string order() const {
        std::string texts;
        for (int row = 1; row <= rows_.rowCount(); ++row) {
            texts += toUtf8(rows_.text(row));
        }
        return texts;
    }

    const ListRows &rows_;
    std::vector<std::string> read_;
};

TEST(ListRowsView, ReadsInEachNotificationWhatHolds) {
    using Read = std::vector<std::string>;
    BareList rows(true);
    View view(rows);
    rows.addColumn(u"Text", 0.5);
    rows.addColumn(u"Item", 0.5);
    for (const auto *text : {u"c", u"a", u"b"}) {
        rows.addRow(text);
    }
    rows.setListener(&view);
    rows.setText(1, u"d");
    rows.setSubItem(1, 1, u"!");
    rows.setChecked(1, true);
    rows.setRowColour(1, RowColour::greyText);
    EXPECT_EQ(view.take(), (Read{"d", "d!", "d! ticked", "d! ticked grey"}));
    rows.setColumnIcon(1, 2);
    EXPECT_EQ(view.take(), Read{"icon 2"});
    rows.select(3);
    rows.select(1);
    EXPECT_EQ(view.take(),
              (Read{"selected 3, last 3", "to be seen 3", "selected 1 3, last 1", "to be seen 1"}));
    rows.setSorted(true);
    EXPECT_EQ(view.take(), (Read{"from dab", "to abd, selected 3"}));
    rows.deselect(3);
    EXPECT_EQ(view.take(), Read{"selected 2, last 2"});
}

TEST(ListRowsColumns, AWidthIsAShareOfTheListFromNoneToAll) {
    BareList rows;
    for (const double width : {-0.01, 1.01}) {
        EXPECT_EQ(errorNumber([&] { rows.addColumn(u"Text", width); }),
                  error_number::invalidPropertyValue);
    }
    rows.addColumn(u"None", 0);
    rows.addColumn(u"All", 1);
    EXPECT_EQ(rows.columnCount(), 2);
}

} // namespace
} // namespace kvex::controls
