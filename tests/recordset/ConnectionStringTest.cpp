// Reading connection strings.
#include "adapters/recordset/ConnectionString.h"
#include "platform/Error.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

namespace kvex::test {

using recordset::ConnectionString;

TEST(ConnectionString, KeysIgnoreCaseAndSurroundingBlanks) {
    const ConnectionString text(u" provider = SQLite ; DATA source= /data/rules.db ");
    EXPECT_FALSE(text.isPath());
    EXPECT_EQ(text.value(u"Provider"), u"SQLite");
    EXPECT_EQ(text.value(u"Data Source"), u"/data/rules.db");
}

TEST(ConnectionString, AMissingKeyHasAnEmptyValue) {
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

TEST(ConnectionString, EmptyEntriesAreIgnored) {
    for (const std::u16string_view text : {u"A=1; ;B=2", u";A=1;B=2; ; ", u" ; A = 1 ;; B = 2"}) {
        const ConnectionString read(text);
        ASSERT_EQ(read.entries().size(), 2U);
        EXPECT_EQ(read.value(u"A"), u"1");
        EXPECT_EQ(read.value(u"B"), u"2");
    }
}

TEST(ConnectionString, AValueMayBeEmpty) {
    for (const std::u16string_view text : {u"UID=;PWD=", u"UID= ; PWD= ", u"UID={};PWD=''"}) {
        const ConnectionString read(text);
        ASSERT_EQ(read.entries().size(), 2U);
        EXPECT_TRUE(read.has(u"UID"));
        EXPECT_EQ(read.value(u"UID"), u"");
        EXPECT_EQ(read.value(u"PWD"), u"");
    }
}

TEST(ConnectionString, AnAddedEntryStandsBehindThoseOfTheText) {
    ConnectionString text(u"UID=a");
    text.add(u"UID", u"b");
    text.add(u"PWD", u"c;d");
    ASSERT_EQ(text.entries().size(), 3U);
    EXPECT_EQ(text.value(u"uid"), u"a");
    EXPECT_EQ(text.value(u"PWD"), u"c;d");
}

TEST(ConnectionString, AKeywordMakesAPairOfATextWithoutSemicolons) {
    for (const std::u16string_view key :
         {u"az", u"AZ", u"09", u"a z", u"a_z", u"a-z", u"Az-_ 09"}) {
        const ConnectionString text(std::u16string(key) + u"=b");
        EXPECT_FALSE(text.isPath());
        EXPECT_EQ(text.value(key), u"b");
    }
    // A keyword is not empty and has none of these characters, which stand next to allowed ones.
    for (const std::u16string_view path :
         {u"a/b=c", u"a:=c", u"@=c", u"[=c", u"`=c", u"{=c", u"\u00E4=c", u"!=c", u"^=c", u",=c",
          u".=c", u"=c", u" =c", u"", u" "}) {
        EXPECT_TRUE(ConnectionString(path).isPath());
    }
}

TEST(ConnectionString, TheFirstValueOfARepeatedKeyCounts) {
    EXPECT_EQ(ConnectionString(u"UID=a;uid=b").value(u"UID"), u"a");
}

TEST(ConnectionString, BracesHoldAnyCharacter) {
    EXPECT_EQ(ConnectionString(u"PWD={a;b=c}").value(u"PWD"), u"a;b=c");
    EXPECT_EQ(ConnectionString(u"PWD={a}}b}").value(u"PWD"), u"a}b");
    EXPECT_EQ(ConnectionString(u"PWD={{}").value(u"PWD"), u"{");
    EXPECT_EQ(ConnectionString(u"PWD={ a } ; UID = u").value(u"PWD"), u" a ");
    EXPECT_EQ(ConnectionString(u"PWD={}").value(u"PWD"), u"");
    EXPECT_EQ(ConnectionString(u"PWD= {a;b}").value(u"PWD"), u"a;b");
    EXPECT_EQ(ConnectionString(u"PWD={}}}").value(u"PWD"), u"}");
    EXPECT_EQ(ConnectionString(u"PWD={a{b}").value(u"PWD"), u"a{b");
    EXPECT_EQ(ConnectionString(u"PWD={a\"b'c}").value(u"PWD"), u"a\"b'c");
}

TEST(ConnectionString, QuotesHoldAnyCharacter) {
    EXPECT_EQ(ConnectionString(u"PWD=\"a;\"\"b\"\"\"").value(u"PWD"), u"a;\"b\"");
    EXPECT_EQ(ConnectionString(u"PWD='it''s';UID=u").value(u"PWD"), u"it's");
    EXPECT_EQ(ConnectionString(u"PWD=''").value(u"PWD"), u"");
    EXPECT_EQ(ConnectionString(u"PWD=\"a'b\"").value(u"PWD"), u"a'b");
    EXPECT_EQ(ConnectionString(u"PWD='a\"b'").value(u"PWD"), u"a\"b");
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

TEST(ConnectionString, AnUnreadableTextFailsWithItsPlaceAndReasonAndWithoutRepeatingIt) {
    const std::u16string noPair = u"KEY=VALUE is expected there";
    const std::u16string notDoubled = u"a closing brace or quote inside a value must be doubled";
    const std::u16string notClosed = u"the brace or quote that opens there is not closed";
    const struct {
        std::u16string_view text;
        std::u16string_view place;
        std::u16string reason;
    } cases[] = {{u"UID=u;PWD={hidden", u"11", notClosed},
                 {u"UID=u;PWD=\"hidden", u"11", notClosed},
                 {u"PWD='", u"5", notClosed},
                 {u"PWD={hidden}}", u"5", notClosed},
                 {u"UID=u;PWD={hidden}hidden", u"19", notDoubled},
                 {u"UID=u;PWD={hidden}  hidden=x", u"21", notDoubled},
                 {u"PWD='a'b'", u"8", notDoubled},
                 {u"PWD=x;hidden", u"7", noPair},
                 {u"hidden;PWD=x", u"1", noPair},
                 {u"UID=u;=hidden", u"7", noPair},
                 {u"UID=u;  =hidden", u"9", noPair}};
    for (const auto &one : cases) {
        expectError(error_number::badArgument,
                    u"The connection string cannot be read at character " +
                        std::u16string(one.place) + u": " + one.reason + u".",
                    [&] { return ConnectionString(one.text); });
    }
}

} // namespace kvex::test
