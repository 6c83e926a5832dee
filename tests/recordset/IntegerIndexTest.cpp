// Finding rows by an integer.
#include "adapters/recordset/IntegerIndex.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace kvex::test {
namespace {

using recordset::IntegerIndex;
using recordset::RowStore;

constexpr std::optional<std::size_t> none;

ValueView integer(std::int64_t number) {
    return ValueView(number);
}

/// Nothing for Null.
RowStore rowsOf(const std::vector<std::optional<std::int64_t>> &numbers) {
    RowStore rows;
    rows.columns({{u"OTHER", {}, {}, 0}, {u"A", {}, {}, 0}});
    for (const auto &number : numbers) {
        rows.text(u"x");
        number ? rows.integer(*number) : rows.null();
    }
    return rows;
}

IntegerIndex indexOf(const std::vector<std::optional<std::int64_t>> &numbers) {
    return *IntegerIndex::of(rowsOf(numbers), 1, std::vector<bool>(numbers.size()));
}

} // namespace

TEST(IntegerIndex, FindsTheFirstRowOfANumberFromAPlaceOn) {
    const IntegerIndex index = indexOf({7, 3, std::nullopt, 7, -1, 7});
    EXPECT_EQ(index.find(7, 0), 0);
    EXPECT_EQ(index.find(7, 1), 3);
    EXPECT_EQ(index.find(7, 3), 3);
    EXPECT_EQ(index.find(7, 4), 5);
    EXPECT_EQ(index.find(7, 6), none);
    EXPECT_EQ(index.find(3, 2), none);
    EXPECT_EQ(index.find(-1, 0), 4);
    EXPECT_EQ(index.find(0, 0), none);
    EXPECT_EQ(index.find(8, 0), none);
}

TEST(IntegerIndex, LeavesRemovedRowsOut) {
    const auto index = IntegerIndex::of(rowsOf({7, 7, 8}), 1, {true, false, true});
    EXPECT_EQ(index->find(7, 0), 1);
    EXPECT_EQ(index->find(8, 0), none);
}

TEST(IntegerIndex, IsNotMadeForAColumnWithOtherValues) {
    RowStore rows = rowsOf({7, 8});
    EXPECT_FALSE(IntegerIndex::of(rows, 0, {false, false}));
    EXPECT_FALSE(IntegerIndex::of(rows, 0, {true, false}));
    EXPECT_TRUE(IntegerIndex::of(rows, 0, {true, true}));
    rows.set(1, 1, rows.prepared(ValueView(8.0)));
    EXPECT_FALSE(IntegerIndex::of(rows, 1, {false, false}));
    EXPECT_TRUE(IntegerIndex::of(rows, 1, {false, true}));
}

TEST(IntegerIndex, FindsAReplacedNumberAndNoLongerTheOldOne) {
    IntegerIndex index = indexOf({7, 7, 7});
    EXPECT_TRUE(index.replace(1, integer(7), integer(9)));
    EXPECT_EQ(index.find(9, 0), 1);
    EXPECT_EQ(index.find(7, 1), 2);
    EXPECT_TRUE(index.replace(1, integer(9), integer(9)));
    EXPECT_EQ(index.find(9, 0), 1);
    EXPECT_TRUE(index.replace(1, integer(9), integer(7)));
    EXPECT_EQ(index.find(9, 0), none);
    EXPECT_EQ(index.find(7, 1), 1);
}

TEST(IntegerIndex, ANullLeavesItAndANumberInPlaceOfNullEntersIt) {
    IntegerIndex index = indexOf({7, 8});
    EXPECT_TRUE(index.replace(0, integer(7), ValueView()));
    EXPECT_EQ(index.find(7, 0), none);
    EXPECT_TRUE(index.replace(0, ValueView(), ValueView()));
    EXPECT_TRUE(index.replace(0, ValueView(), integer(8)));
    EXPECT_EQ(index.find(8, 0), 0);
    EXPECT_EQ(index.find(8, 1), 1);
    // A row that came later.
    EXPECT_TRUE(index.replace(2, ValueView(), integer(7)));
    EXPECT_EQ(index.find(7, 0), 2);
}

TEST(IntegerIndex, RefusesAValueThatIsNoInteger) {
    EXPECT_FALSE(indexOf({7}).replace(0, integer(7), ValueView(7.0)));
    EXPECT_FALSE(indexOf({7}).replace(0, integer(7), ValueView(std::u16string_view(u"7"))));
    EXPECT_FALSE(indexOf({std::nullopt}).replace(0, ValueView(), ValueView(7.0)));
}

} // namespace kvex::test
