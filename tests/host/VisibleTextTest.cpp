#include "host/suite/VisibleText.h"

#include <gtest/gtest.h>

namespace kvex::host {
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

} // namespace
} // namespace kvex::host
