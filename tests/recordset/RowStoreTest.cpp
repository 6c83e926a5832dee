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

/// The rows that can hold `text`, in the order in which a search meets them.
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

TEST(RowStore, ATextInUtf8IsFoundByItsUnitsWhateverItsBytes) {
    RowStore rows;
    rows.columns({{u"A", {}, {}, 0}});
    rows.utf8("abc");
    rows.utf8("€€€");
    rows.utf8("📱");
    rows.utf8("abcd");
    rows.utf8("ab");
    rows.utf8("");
    rows.utf8("€€€a");
    EXPECT_EQ(like(rows, u"ABC"), (Rows{0, 1, 2, 3}));
    EXPECT_EQ(like(rows, u"€€€"), (Rows{0, 1, 2, 3}));
    EXPECT_EQ(like(rows, u"📱"), (Rows{0, 2, 3, 4}));
    EXPECT_EQ(like(rows, u""), (Rows{5}));
    // Reading a text converts it. Afterwards the search tells the texts apart.
    for (std::size_t row = 0; row < rows.rowCount(); ++row) {
        static_cast<void>(rows.value(row, 0));
    }
    EXPECT_EQ(like(rows, u"ABC"), Rows{0});
    EXPECT_EQ(like(rows, u"€€€"), Rows{1});
    EXPECT_EQ(like(rows, u"📱"), Rows{2});
    EXPECT_EQ(like(rows, u""), Rows{5});
}

TEST(RowStore, TextsOfEveryLengthStayWhole) {
    RowStore rows;
    rows.columns({{u"UTF-16", {}, {}, 0}, {u"UTF-8", {}, {}, 0}});
    std::vector<std::size_t> lengths;
    // The lengths include those around the ends of chunks.
    for (const std::size_t from : {0U, 1010U, 2030U, 4080U, 32750U}) {
        for (std::size_t length = from; length < from + 30; ++length) {
            lengths.push_back(length);
        }
    }
    for (const std::size_t length : lengths) {
        rows.text(std::u16string(length, static_cast<char16_t>(u'a' + length % 26)));
        rows.utf8(std::string(length, static_cast<char>('A' + length % 26)));
    }
    ASSERT_EQ(rows.rowCount(), lengths.size());
    for (std::size_t row = 0; row < lengths.size(); ++row) {
        const std::size_t length = lengths[row];
        ASSERT_EQ(rows.value(row, 0).textOrEmpty(),
                  std::u16string(length, static_cast<char16_t>(u'a' + length % 26)));
        ASSERT_EQ(rows.value(row, 1).textOrEmpty(),
                  std::u16string(length, static_cast<char16_t>(u'A' + length % 26)));
    }
}

TEST(RowStore, ManyShortTextsStayWhole) {
    RowStore rows;
    rows.columns({{u"A", {}, {}, 0}, {u"B", {}, {}, 0}, {u"C", {}, {}, 0}});
    constexpr std::size_t count = 3000;
    for (std::size_t row = 0; row < count; ++row) {
        rows.utf8("ab");
        rows.utf8("c");
        rows.text(u"d");
    }
    for (std::size_t row = 0; row < count; ++row) {
        ASSERT_EQ(rows.value(row, 0).textOrEmpty(), u"ab");
        ASSERT_EQ(rows.value(row, 1).textOrEmpty(), u"c");
        ASSERT_EQ(rows.value(row, 2).textOrEmpty(), u"d");
    }
}

TEST(RowStore, ATextThatFillsAChunkLeavesTheNextOneWhole) {
    for (std::size_t length = 1000; length < 1100; ++length) {
        RowStore rows;
        rows.columns({{u"A", {}, {}, 0}});
        for (int row = 0; row < 3; ++row) {
            rows.utf8(std::string(2 * length + 1, 'x'));
            rows.utf8("odd");
            rows.text(std::u16string(length, u'y'));
        }
        for (std::size_t row = 0; row < 9; row += 3) {
            ASSERT_EQ(rows.value(row, 0).textOrEmpty(), std::u16string(2 * length + 1, u'x'));
            ASSERT_EQ(rows.value(row + 1, 0).textOrEmpty(), u"odd");
            ASSERT_EQ(rows.value(row + 2, 0).textOrEmpty(), std::u16string(length, u'y'));
        }
    }
}

TEST(RowStore, ValuesKeepTheirKindsAndPlacesInManyRows) {
    RowStore rows;
    rows.columns({{u"A", {}, {}, 0}, {u"B", {}, {}, 0}, {u"C", {}, {}, 0}});
    for (std::int64_t row = 0; row < 200; ++row) {
        EXPECT_EQ(rows.rowCount(), static_cast<std::size_t>(row));
        rows.integer(row);
        EXPECT_EQ(rows.rowCount(), static_cast<std::size_t>(row));
        rows.number(static_cast<double>(row) + 0.5);
        rows.null();
    }
    rows.appendRow();
    ASSERT_EQ(rows.rowCount(), 201U);
    for (std::size_t row = 0; row < 200; ++row) {
        EXPECT_EQ(rows.value(row, 0).owned(), Value(static_cast<std::int64_t>(row)));
        EXPECT_EQ(rows.value(row, 1).owned(), Value(static_cast<double>(row) + 0.5));
        EXPECT_EQ(rows.value(row, 2).owned(), Value(Null()));
        EXPECT_TRUE(rows.isKnown(row, 2));
    }
    for (std::size_t column = 0; column < 3; ++column) {
        EXPECT_FALSE(rows.isKnown(200, column));
        EXPECT_TRUE(rows.value(200, column).isNull());
        rows.set(200, column, rows.prepared(ValueView()));
        EXPECT_TRUE(rows.isKnown(200, column));
    }
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
