#include "adapters/terminal/WrappedText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kvex::terminal {
namespace {

std::vector<std::u16string> linesOf(std::u16string_view text, int columns) {
    std::vector<std::u16string> lines;
    for (const WrappedLine &line : wrapped(text, columns, Characters::unicode)) {
        lines.emplace_back(text.substr(line.from, line.to - line.from));
    }
    return lines;
}

using Lines = std::vector<std::u16string>;

TEST(WrappedText, BreaksBetweenWords) {
    EXPECT_EQ(linesOf(u"one two three", 8), (Lines{u"one two", u"three"}));
    EXPECT_EQ(linesOf(u"one two three", 7), (Lines{u"one two", u"three"}));
    EXPECT_EQ(linesOf(u"one two three", 6), (Lines{u"one", u"two", u"three"}));
}

TEST(WrappedText, BreaksInsideAWordThatIsWiderThanTheLine) {
    EXPECT_EQ(linesOf(u"ab abcdefgh", 4), (Lines{u"ab", u"abcd", u"efgh"}));
}

TEST(WrappedText, KeepsLineBreaksOfAllKindsAndEmptyLines) {
    EXPECT_EQ(linesOf(u"a\r\nb\nc\rd", 9), (Lines{u"a", u"b", u"c", u"d"}));
    EXPECT_EQ(linesOf(u"a\r\n\r\nb\r\n", 9), (Lines{u"a", u"", u"b", u""}));
    EXPECT_EQ(linesOf(u"", 9), (Lines{u""}));
}

TEST(WrappedText, KeepsBlanksInsideALineAndDropsThoseAtTheBreak) {
    EXPECT_EQ(linesOf(u"a  b", 9), (Lines{u"a  b"}));
    EXPECT_EQ(linesOf(u"abc   def", 4), (Lines{u"abc", u"def"}));
    EXPECT_EQ(linesOf(u"      abc", 4), (Lines{u"", u"abc"}));
}

TEST(WrappedText, CountsColumnsAndSplitsNoCluster) {
    EXPECT_EQ(linesOf(u"漢字漢字", 5), (Lines{u"漢字", u"漢字"}));
    EXPECT_EQ(linesOf(u"हिन्दी नियम", 5), (Lines{u"हिन्दी", u"नियम"}));
    EXPECT_EQ(linesOf(u"e\u0301e\u0301e\u0301", 2), (Lines{u"e\u0301e\u0301", u"e\u0301"}));
}

TEST(WrappedText, GivesALineToAClusterThatIsWiderThanTheLine) {
    EXPECT_EQ(linesOf(u"漢字", 1), (Lines{u"漢", u"字"}));
    EXPECT_EQ(linesOf(u"ab", 0), (Lines{u"a", u"b"}));
}

TEST(WrappedText, FindsTheLineOfAPlaceAndThePlaceOfAColumn) {
    const std::u16string text = u"one two 漢字";
    const auto lines = wrapped(text, 7, Characters::unicode);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lineOf(lines, 0), 0U);
    EXPECT_EQ(lineOf(lines, 7), 0U);
    EXPECT_EQ(lineOf(lines, 8), 1U);
    EXPECT_EQ(lineOf(lines, text.size()), 1U);
    EXPECT_EQ(unitAt(text, lines[0], 3, Characters::unicode), 3U);
    EXPECT_EQ(unitAt(text, lines[0], 99, Characters::unicode), 7U);
    EXPECT_EQ(unitAt(text, lines[1], 1, Characters::unicode), 8U);
    EXPECT_EQ(unitAt(text, lines[1], 2, Characters::unicode), 9U);
}

TEST(WrappedText, MeasuresTheLongestLineAndTheLongestWord) {
    EXPECT_EQ(longestLine(u"a three\r\nfourth no\n", Characters::unicode), 9);
    EXPECT_EQ(longestLine(u"", Characters::unicode), 0);
    EXPECT_EQ(longestWord(u"a three\r\nfourth no", Characters::unicode), 6);
    EXPECT_EQ(longestWord(u"", Characters::unicode), 0);
    EXPECT_EQ(longestWord(u"no ~/folder~ here", Characters::unicode), 9);
}

} // namespace
} // namespace kvex::terminal
