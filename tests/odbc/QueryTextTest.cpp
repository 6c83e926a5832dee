// What the adapter learns from a query's text, without asking the server.
#include "adapters/odbc/QueryText.h"

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

using odbc::isPlainQuery;
using odbc::originsIn;
using Names = std::vector<std::u16string>;

TEST(QueryText, AListedColumnIsItsOwnOrigin) {
    EXPECT_EQ(originsIn(u"SELECT ID, Name FROM T WHERE ID = 1 ORDER BY ID", {u"ID", u"Name"}),
              (Names{u"ID", u"Name"}));
    EXPECT_EQ(originsIn(u"select ID as NUMBER from T", {u"NUMBER"}), (Names{u"ID"}));
}

TEST(QueryText, AnAsteriskIsAllColumns) {
    EXPECT_EQ(originsIn(u"SELECT * FROM T", {u"A", u"B"}), (Names{u"A", u"B"}));
    EXPECT_EQ(originsIn(u"SELECT 1, *, A AS C FROM T", {u"1", u"A", u"B", u"C"}),
              (Names{u"", u"A", u"B", u"A"}));
}

TEST(QueryText, AnExpressionHasNoOrigin) {
    EXPECT_EQ(originsIn(u"SELECT COALESCE(A, B), 'a, b' AS C, A + 1 FROM T", {u"1", u"C", u"2"}),
              (Names{u"", u"", u""}));
}

TEST(QueryText, OtherQueriesAreNotRead) {
    for (const std::u16string_view query :
         {u"SELECT A FROM T, U", u"SELECT A FROM T JOIN U ON 1", u"SELECT A FROM T X",
          u"SELECT A FROM \"T\"", u"SELECT A FROM (SELECT 1 AS A)", u"SELECT A FROM T GROUP BY A",
          u"SELECT A FROM T WHERE 1 UNION SELECT 2", u"SELECT A", u"DELETE FROM T", u"",
          u"SELECT *, * FROM T", u"SELECT DISTINCT A, B FROM T"}) {
        EXPECT_EQ(originsIn(query, {u"A"}), Names{});
    }
}

TEST(QueryText, APlainQueryIsOneSelectThatMakesNothing) {
    EXPECT_TRUE(isPlainQuery(u"SELECT * FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY"));
    EXPECT_TRUE(isPlainQuery(u"select max(ID) from SMS_RULES"));
    EXPECT_FALSE(isPlainQuery(u""));
    EXPECT_FALSE(isPlainQuery(u"DELETE FROM SMS_RULES"));
    EXPECT_FALSE(isPlainQuery(u"SELECT * INTO copy FROM SMS_RULES"));
    EXPECT_FALSE(isPlainQuery(u"SELECT 1; DELETE FROM SMS_RULES"));
    EXPECT_FALSE(isPlainQuery(u"SELECT '; into '"));
    EXPECT_FALSE(isPlainQuery(u"WITH gone AS (DELETE FROM SMS_RULES) SELECT 1"));
}

} // namespace
} // namespace kvex::test
