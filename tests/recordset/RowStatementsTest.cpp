// The text of the statements that read and write one row.
#include "adapters/recordset/RowStatements.h"
#include "tests/recordset/ScriptedSession.h"

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

using recordset::Assignment;
using recordset::RowKey;

Assignment set(std::u16string_view column, ValueView::Held value) {
    return {column, ValueView(value)};
}

const RowKey oneKey{set(u"ID", std::int64_t{7})};
const RowKey twoKeys{set(u"ID", std::int64_t{7}), set(u"PART", u"x")};

class RowStatements : public testing::Test {
protected:
    [[nodiscard]] std::shared_ptr<recordset::Driver> driver() {
        return session_.connection().driver().lock();
    }

private:
    ScriptedSession session_{{}};
};

} // namespace

TEST_F(RowStatements, ARowIsSelectedByEveryPartOfItsKey) {
    EXPECT_EQ(shown(recordset::selectRow(u"T", {u"A"}, oneKey)),
              u"SELECT A FROM T WHERE ID = ? [7]");
    EXPECT_EQ(shown(recordset::selectRow(u"T", {u"A", u"B", u"C"}, twoKeys)),
              u"SELECT A, B, C FROM T WHERE ID = ? AND PART = ? [7, 'x']");
}

TEST_F(RowStatements, ARowIsSelectedIfWhatWasReadStillHolds) {
    EXPECT_EQ(shown(recordset::selectRow(*driver(), u"T", {u"A"}, oneKey, {set(u"A", u"old")})),
              u"SELECT A FROM T WHERE ID = ? AND HOLDS(A, ?) [7, 'old']");
}

TEST_F(RowStatements, AChangeIsMadeWhereTheKeyAndWhatWasReadStillHold) {
    EXPECT_EQ(shown(recordset::updateRow(*driver(), u"T", {set(u"A", u"new")}, oneKey,
                                         {set(u"A", u"old")})),
              u"UPDATE T SET A = ? WHERE ID = ? AND HOLDS(A, ?) ['new', 7, 'old']");
    EXPECT_EQ(
        shown(recordset::updateRow(*driver(), u"T", {set(u"A", Null()), set(u"B", std::int64_t{2})},
                                   twoKeys, {set(u"A", 1.5), set(u"B", Null()), set(u"C", u"c")})),
        u"UPDATE T SET A = ?, B = ? WHERE ID = ? AND PART = ? AND HOLDS(A, ?) AND B IS NULL "
        u"AND HOLDS(C, ?) [Null, 2, 7, 'x', 1.5, 'c']");
}

TEST_F(RowStatements, ARowIsRemovedWhereTheKeyAndWhatWasReadStillHold) {
    EXPECT_EQ(shown(recordset::deleteRow(*driver(), u"T", oneKey, {})),
              u"DELETE FROM T WHERE ID = ? [7]");
    EXPECT_EQ(
        shown(recordset::deleteRow(*driver(), u"T", twoKeys, {set(u"A", Null()), set(u"B", u"b")})),
        u"DELETE FROM T WHERE ID = ? AND PART = ? AND A IS NULL AND HOLDS(B, ?) [7, 'x', "
        u"'b']");
}

TEST_F(RowStatements, ARowIsInsertedWithItsValuesOrAsTheDatabaseWritesAnEmptyOne) {
    EXPECT_EQ(shown(recordset::insertRow(u"T", {}, u"DEFAULT VALUES")),
              u"INSERT INTO T DEFAULT VALUES []");
    EXPECT_EQ(shown(recordset::insertRow(u"T", {set(u"A", u"a")}, u"DEFAULT VALUES")),
              u"INSERT INTO T (A) VALUES (?) ['a']");
    EXPECT_EQ(shown(recordset::insertRow(u"T", {set(u"A", u"a"), set(u"B", Null())}, u"")),
              u"INSERT INTO T (A, B) VALUES (?, ?) ['a', Null]");
}

TEST_F(RowStatements, NamesAreListedWithACommaAndABlankBetweenThem) {
    EXPECT_EQ(recordset::listed({}), u"");
    EXPECT_EQ(recordset::listed({u"A"}), u"A");
    EXPECT_EQ(recordset::listed({u"A", u"B", u"C"}), u"A, B, C");
}

} // namespace kvex::test
