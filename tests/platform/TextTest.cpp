#include "platform/Text.h"

#include <gmock/gmock.h>

#include <string_view>

namespace {

using kvex::fromUtf8;
using kvex::toUtf8;
using namespace std::string_view_literals;
using testing::ElementsAre;

TEST(Utf8, WellFormedTextGoesThereAndBack) {
    struct Row {
        std::string_view utf8;
        std::u16string_view utf16;
    };
    for (const Row &row : {
             Row{"", u""},
             Row{"plain\r\n\t\x7F", u"plain\r\n\t\x7F"},
             Row{"a\0b"sv, u"a\0b"sv},
             Row{"\xC2\x80\xDF\xBF", u"\u0080\u07FF"},
             Row{"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", u"\u0800\uD7FF\uE000\uFFFF"},
             Row{"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"},
         }) {
        EXPECT_EQ(fromUtf8(row.utf8), row.utf16) << row.utf8;
        EXPECT_EQ(toUtf8(row.utf16), row.utf8) << row.utf8;
    }
}

TEST(Utf8, EachByteThatCannotBeReadIsReplaced) {
    struct Row {
        const char *what;
        std::string_view utf8;
        std::u16string_view utf16;
    };
    for (const Row &row : {
             Row{"continuation alone", "a\x80z", u"a\uFFFDz"},
             Row{"lead alone", "\xC3z", u"\uFFFDz"},
             Row{"lead at the end", "a\xC3", u"a\uFFFD"},
             Row{"cut sequence of three", "\xE2\x82", u"\uFFFD\uFFFD"},
             Row{"cut sequence of four", "\xF0\x9F\x98z", u"\uFFFD\uFFFD\uFFFDz"},
             Row{"overlong NUL", "\xC0\x80", u"\uFFFD\uFFFD"},
             Row{"overlong slash", "\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},
             Row{"overlong of four", "\xF0\x8F\xBF\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
             Row{"surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
             Row{"beyond the last", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
             Row{"no lead at all", "\xF5\xFE\xFF", u"\uFFFD\uFFFD\uFFFD"},
             Row{"lead before a good one", "\xE2\xC3\xA9", u"\uFFFD\u00E9"},
         }) {
        EXPECT_EQ(fromUtf8(row.utf8), row.utf16) << row.what;
    }
}

TEST(Utf8, AnUnpairedSurrogateIsReplaced) {
    const std::u16string text{u'a', 0xD800, u'b', 0xDC00, 0xD83D};
    EXPECT_EQ(toUtf8(text), "a\xEF\xBF\xBD"
                            "b\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Trimmed, TakesBlanksFromBothEndsAndNothingElse) {
    EXPECT_EQ(kvex::trimmed(u"  a b  "), u"a b");
    EXPECT_EQ(kvex::trimmed(u"\ta\r\n"), u"\ta\r\n");
    EXPECT_EQ(kvex::trimmed(u" \u00A0a\u3000 "), u"\u00A0a\u3000");
    EXPECT_EQ(kvex::trimmed(u" \t "), u"\t");
    EXPECT_EQ(kvex::trimmed(u"   "), u"");
    EXPECT_EQ(kvex::trimmed(u""), u"");
}

TEST(FindUnit, FindsTheFirstFromAPlaceOn) {
    EXPECT_EQ(kvex::findUnit(u"a<b<", u'<'), 1U);
    EXPECT_EQ(kvex::findUnit(u"a<b<", u'<', 1), 1U);
    EXPECT_EQ(kvex::findUnit(u"a<b<", u'<', 2), 3U);
    EXPECT_EQ(kvex::findUnit(u"a<b<", u'<', 4), std::u16string_view::npos);
    EXPECT_EQ(kvex::findUnit(u"", u'<'), std::u16string_view::npos);
}

TEST(FindUnit, PassesOverUnitsThatShareAByte) {
    // "<" is 3C: the nukta ends in it, the ideograph begins with it.
    EXPECT_EQ(kvex::findUnit(u"\u093C\u3C3C\u3C00<", u'<'), 3U);
    EXPECT_EQ(kvex::findUnit(u"\u093C\u3C3C\u3C00", u'<'), std::u16string_view::npos);
    EXPECT_EQ(kvex::findUnit(u"<\u093C", u'\u093C'), 1U);
}

TEST(Split, GivesTheItemsBetweenTheSeparators) {
    EXPECT_THAT(kvex::split(u"a;b;c", u';'), ElementsAre(u"a", u"b", u"c"));
    EXPECT_THAT(kvex::split(u"a,b", u';'), ElementsAre(u"a,b"));
}

TEST(Joined, IsWhatSplitTakesApart) {
    EXPECT_EQ(kvex::joined({}, u';'), u"");
    EXPECT_EQ(kvex::joined({u"a"}, u';'), u"a");
    EXPECT_EQ(kvex::joined({u"a", u"", u"b;", u""}, u';'), u"a;;b;;");
}

TEST(Split, KeepsEmptyItems) {
    EXPECT_THAT(kvex::split(u"", u';'), ElementsAre(u""));
    EXPECT_THAT(kvex::split(u";", u';'), ElementsAre(u"", u""));
    EXPECT_THAT(kvex::split(u";a;; ;", u';'), ElementsAre(u"", u"a", u"", u" ", u""));
}

TEST(WithoutTrailingSeparator, TakesOneSemicolonFromTheEnd) {
    EXPECT_EQ(kvex::withoutTrailingSeparator(u"a;b;"), u"a;b");
    EXPECT_EQ(kvex::withoutTrailingSeparator(u"a;;"), u"a;");
    EXPECT_EQ(kvex::withoutTrailingSeparator(u"a; "), u"a; ");
    EXPECT_EQ(kvex::withoutTrailingSeparator(u";"), u"");
    EXPECT_EQ(kvex::withoutTrailingSeparator(u""), u"");
}

} // namespace
