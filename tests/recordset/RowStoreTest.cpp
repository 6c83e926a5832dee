#include "adapters/recordset/RowStore.h"

#include <gtest/gtest.h>

#include <string>

namespace kvex::test {
namespace {

using recordset::RowStore;

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
    rows.set(0, 0, ValueView(ValueView::Held(u"another")));
    EXPECT_EQ(first, std::u16string(1000, u'x'));
    EXPECT_EQ(rows.value(0, 0).textOrEmpty(), u"another");
}

} // namespace
} // namespace kvex::test
