#include "platform/VisibleText.h"

#include <gtest/gtest.h>

namespace kvex {
namespace {

TEST(VisibleText, KeepsWhatIsReadable) {
    const std::u16string text = u"Asha, \"प्रिया\" \x2019 🌙";
    EXPECT_EQ(visible(text), text);
    EXPECT_EQ(harmless(text), text);
}

TEST(VisibleText, WritesLineBreaksAndTabsOut) {
    EXPECT_EQ(visible(u"a\r\nb\tc"), u"a\\r\\nb\\tc");
}

TEST(VisibleText, TellsABackslashFromAnEscape) {
    EXPECT_EQ(visible(u"a\\nb"), u"a\\\\nb");
    EXPECT_NE(visible(u"a\\nb"), visible(u"a\nb"));
}

TEST(VisibleText, WritesOutWhatControlsATerminal) {
    EXPECT_EQ(visible(u"\x1b[2J\x9b"), u"\\u{1b}[2J\\u{9b}");
    EXPECT_EQ(visible(std::u16string(1, u'\0')), u"\\u{0}");
}

TEST(VisibleText, WritesOutSeparatorsAndDirectionOverrides) {
    EXPECT_EQ(visible(u"a\x2028"
                      u"b\x202E"
                      u"c\x2066"),
              u"a\\u{2028}b\\u{202e}c\\u{2066}");
}

TEST(VisibleText, ReplacesTheSameCharactersForReading) {
    EXPECT_EQ(harmless(u"a\x1b"
                       u"b\\c\x202E"),
              u"a\xFFFD"
              u"b\\c\xFFFD");
}

TEST(VisibleText, KeepsLinesApartForReading) {
    EXPECT_EQ(harmlessLines(u"a\r\nb\n\n\x1b[2Jc\t\n"), u"a\nb\n\n\xFFFD[2Jc\xFFFD\n");
    EXPECT_EQ(harmlessLines(u"a\r"), u"a\xFFFD");
    EXPECT_EQ(harmlessLines(u""), u"");
}

TEST(VisibleText, HidesTheFirstAndTheLastOfEachRange) {
    for (const char16_t unit : std::u16string(u"\x1f\x7f\x9f\x2028\x2029\x202a\x202e\x2066\x2069"
                                              u"\xfffe\xffff")) {
        EXPECT_EQ(harmless(std::u16string(1, unit)), u"\xFFFD") << static_cast<int>(unit);
        EXPECT_TRUE(visible(std::u16string(1, unit)).starts_with(u"\\u{"));
    }
    for (const char16_t unit : std::u16string(u"\x20\x7e\xa0\x2027\x202f\x2065\x206a\xfffd")) {
        EXPECT_EQ(visible(std::u16string(1, unit)), std::u16string(1, unit))
            << static_cast<int>(unit);
    }
}

TEST(VisibleText, QuotesATextOfTheLongestLengthWhole) {
    EXPECT_EQ(quoted(u"123456", 6), u"\"123456\"");
    EXPECT_EQ(quoted(u"", 6), u"\"\"");
}

TEST(VisibleText, QuotesALongTextWithoutItsMiddle) {
    EXPECT_EQ(quoted(u"1234567", 6), u"\"123…567\"");
    EXPECT_EQ(quoted(u"12345678901234", 6), u"\"123…234\"");
}

TEST(VisibleText, NeverQuotesHalfACharacter) {
    EXPECT_EQ(quoted(u"12🌙4567🌙12", 6), u"\"12…12\"");
    EXPECT_EQ(quoted(u"1🌙456🌙1", 6), u"\"1🌙…🌙1\"");
}

TEST(VisibleText, QuotesOnOneLine) {
    EXPECT_EQ(quoted(u"a\r\nb\nc", 9), u"\"a b c\"");
}

} // namespace
} // namespace kvex
