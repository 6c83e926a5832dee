#include "adapters/recordset/RowStore.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kvex::test {
namespace {

using recordset::RowStore;

void set(RowStore &rows, std::size_t row, const ValueView &value) {
    rows.set(row, 0, rows.prepared(value));
}

TEST(RowStore, ATextIsTheSameInWhateverFormItCame) {
    RowStore rows;
    rows.columns({{u"A", {}, {}, 0}, {u"B", {}, {}, 0}});
    rows.text(u"Zürich, दिल्ली 📱\r\n");
    rows.utf8("Zürich, दिल्ली 📱\r\n");
    rows.text(u"");
    rows.utf8("");
    rows.text(u"a\uFFFDb");
    rows.utf8("a\x80"
              "b");
    for (std::size_t row = 0; row < 3; ++row) {
        EXPECT_EQ(rows.value(row, 0).held(), rows.value(row, 1).held());
        EXPECT_EQ(rows.value(row, 0).held(), rows.value(row, 1).held());
    }
}

TEST(RowStore, ATextStaysWhereItIs) {
    RowStore rows;
    rows.columns({{u"A", {}, {}, 0}});
    for (int row = 0; row < 1000; ++row) {
        rows.utf8(std::string(1000, 'x'));
    }
    const std::u16string_view first = rows.value(0, 0).textOrEmpty();
    for (std::size_t row = 1; row < rows.rowCount(); ++row) {
        EXPECT_EQ(rows.value(row, 0).textOrEmpty().size(), 1000U);
    }
    set(rows, 0, ValueView(ValueView::Held(u"another")));
    EXPECT_EQ(first, std::u16string(1000, u'x'));
    EXPECT_EQ(rows.value(0, 0).textOrEmpty(), u"another");
}

/// The rows that can be `text`, as a search comes by them.
std::vector<std::size_t> like(const RowStore &rows, std::u16string_view text) {
    std::vector<std::size_t> found;
    for (std::size_t row = rows.nextLike(text, 0, 0); row < rows.rowCount();
         row = rows.nextLike(text, 0, row + 1)) {
        found.push_back(row);
    }
    return found;
}

using Rows = std::vector<std::size_t>;

TEST(RowStore, RowsThatCanBeATextAreFoundInWhateverFormTheyCame) {
    RowStore rows;
    rows.columns({{u"A", {}, {}, 0}});
    rows.text(u"Zürich");
    rows.utf8("ZÜRICH");
    rows.utf8("zürich");
    rows.null();
    rows.integer(6);
    rows.number(6.5);
    rows.appendRow();
    rows.text(u"Zurich!");
    static_cast<void>(rows.value(2, 0));
    EXPECT_EQ(like(rows, u"züRICH"), (Rows{0, 1, 2}));
    EXPECT_EQ(like(rows, u""), Rows{});
}

TEST(RowStore, ARowThatChangesIsFoundAsWhatItHoldsNow) {
    RowStore rows;
    rows.columns({{u"A", {}, {}, 0}});
    for (int row = 0; row < 200; ++row) {
        rows.text(u"old");
    }
    for (const std::size_t row : {0U, 63U, 64U, 199U}) {
        set(rows, row, ValueView(ValueView::Held(u"new")));
    }
    EXPECT_EQ(like(rows, u"NEW"), (Rows{0, 63, 64, 199}));
    EXPECT_EQ(like(rows, u"old").size(), 196U);
    set(rows, 64, ValueView());
    set(rows, 199, ValueView(ValueView::Held(std::int64_t{1})));
    EXPECT_EQ(like(rows, u"new"), (Rows{0, 63}));
    rows.appendRow();
    set(rows, 200, ValueView(ValueView::Held(u"new")));
    EXPECT_EQ(like(rows, u"new"), (Rows{0, 63, 200}));
    EXPECT_GE(rows.nextLike(u"new", 0, 201), rows.rowCount());
}

} // namespace
} // namespace kvex::test
