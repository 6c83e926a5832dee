// Reading connection strings.
#include "adapters/recordset/ConnectionString.h"
#include "platform/Error.h"
#include "tests/recordset/ErrorNumber.h"

#include <gtest/gtest.h>

namespace kvex::test {

using recordset::ConnectionString;

TEST(ConnectionString, KeysIgnoreCaseAndSurroundingBlanks) {
    const ConnectionString text(u" provider = SQLite ; DATA source= /data/rules.db ");
    EXPECT_FALSE(text.isPath());
    EXPECT_EQ(text.value(u"Provider"), u"SQLite");
    EXPECT_EQ(text.value(u"Data Source"), u"/data/rules.db");
}

TEST(ConnectionString, AKeyThatItHasNotIsEmpty) {
    const ConnectionString text(u"Provider=SQLite;Password=");
    EXPECT_EQ(text.value(u"DSN"), u"");
    EXPECT_FALSE(text.has(u"DSN"));
    EXPECT_TRUE(text.has(u"Password"));
}

TEST(ConnectionString, EntriesKeepTheirOrder) {
    const ConnectionString text(u"Driver={X};;Server=h;UID=u;");
    ASSERT_EQ(text.entries().size(), 3U);
    EXPECT_EQ(text.entries()[0].key, u"Driver");
    EXPECT_EQ(text.entries()[1].value, u"h");
    EXPECT_EQ(text.entries()[2].key, u"UID");
}

TEST(ConnectionString, OfAKeyGivenTwiceTheFirstCounts) {
    EXPECT_EQ(ConnectionString(u"UID=a;uid=b").value(u"UID"), u"a");
}

TEST(ConnectionString, BracesHoldAnyCharacter) {
    EXPECT_EQ(ConnectionString(u"PWD={a;b=c}").value(u"PWD"), u"a;b=c");
    EXPECT_EQ(ConnectionString(u"PWD={a}}b}").value(u"PWD"), u"a}b");
    EXPECT_EQ(ConnectionString(u"PWD={{}").value(u"PWD"), u"{");
    EXPECT_EQ(ConnectionString(u"PWD={ a } ; UID = u").value(u"PWD"), u" a ");
    EXPECT_EQ(ConnectionString(u"PWD={}").value(u"PWD"), u"");
}

TEST(ConnectionString, QuotesHoldAnyCharacter) {
    EXPECT_EQ(ConnectionString(u"PWD=\"a;\"\"b\"\"\"").value(u"PWD"), u"a;\"b\"");
    EXPECT_EQ(ConnectionString(u"PWD='it''s';UID=u").value(u"PWD"), u"it's");
    EXPECT_EQ(ConnectionString(u"PWD=a'b\"c{d").value(u"PWD"), u"a'b\"c{d");
}

TEST(ConnectionString, AValueMayHoldEqualsSigns) {
    EXPECT_EQ(
        ConnectionString(u"Data Source=file:a?mode=memory;Provider=SQLite").value(u"Data Source"),
        u"file:a?mode=memory");
}

TEST(ConnectionString, ABarePathIsTheDataSource) {
    for (const std::u16string_view path :
         {u"/data/rules.db", u"rules.db", u"/data/a=b.db", u"./a=b.db", u"/data/a;b.db",
          u"file:rules?mode=memory&cache=shared", u":memory:", u"ग्राहक.db"}) {
        const ConnectionString text(path);
        EXPECT_TRUE(text.isPath());
        EXPECT_EQ(text.value(u"Data Source"), path);
    }
    EXPECT_EQ(ConnectionString(u"  rules.db ").value(u"Data Source"), u"rules.db");
}

TEST(ConnectionString, ATextWithAPasswordIsNeverAPath) {
    EXPECT_EQ(errorNumber([] { ConnectionString(u"rules;PWD=hidden"); }),
              error_number::badArgument);
}

TEST(ConnectionString, AnUnreadableTextFailsWithoutRepeatingIt) {
    for (const std::u16string_view text :
         {u"UID=u;PWD={hidden", u"UID=u;PWD=\"hidden", u"UID=u;PWD={hidden}hidden", u"PWD=x;hidden",
          u"UID=u;=hidden", u"hidden;PWD=x"}) {
        try {
            const ConnectionString read(text);
            FAIL() << "it was read";
        } catch (const Error &error) {
            EXPECT_EQ(error.number(), error_number::badArgument);
            EXPECT_EQ(error.description().find(u"hidden"), std::u16string::npos);
            EXPECT_NE(error.description().find(u"at character "), std::u16string::npos);
        }
    }
}

} // namespace kvex::test
