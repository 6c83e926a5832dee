#include "adapters/lightweight/TextPlaces.h"

#include <gtest/gtest.h>

#include <vector>

namespace kvex::lightweight {
namespace {

using Places = std::vector<std::size_t>;

Places goRight(std::u16string_view text,
               std::size_t (*after)(std::u16string_view text, std::size_t at)) {
    Places places;
    for (std::size_t at = 0; at < text.size();) {
        places.push_back(at = after(text, at));
    }
    return places;
}

Places goLeft(std::u16string_view text,
              std::size_t (*before)(std::u16string_view text, std::size_t at)) {
    Places places;
    for (std::size_t at = text.size(); at > 0;) {
        places.push_back(at = before(text, at));
    }
    return places;
}

TEST(TextPlaces, ClustersAreGonePastWhole) {
    const std::u16string_view text = u"हिदी e\u0301\U0001F468\u200D\U0001F469\r\nx";
    EXPECT_EQ(goRight(text, clusterAfter), (Places{2, 4, 5, 7, 12, 14, 15}));
    EXPECT_EQ(goLeft(text, clusterBefore), (Places{14, 12, 7, 5, 4, 2, 0}));
}

TEST(TextPlaces, HalvesOfPairsThatStandAloneAreCharacters) {
    const std::u16string text{u'\xD83D', u'a', u'\xDE00', u'\xD83D', u'\xDE00'};
    EXPECT_EQ(goLeft(text, characterBefore), (Places{3, 2, 1, 0}));
}

TEST(TextPlaces, TheEndsOfATextAreNeverLeft) {
    EXPECT_EQ(clusterBefore(u"ab", 0), 0U);
    EXPECT_EQ(clusterAfter(u"ab", 2), 2U);
    EXPECT_EQ(wordBefore(u"ab", 0), 0U);
    EXPECT_EQ(wordAfter(u"ab", 2), 2U);
    EXPECT_EQ(characterBefore(u"ab", 0), 0U);
}

TEST(TextPlaces, WordsAndGroupsOfSignsAreGonePastWithTheBlanksAfterThem) {
    const std::u16string_view text = u" one two_3 -- (हिन्दी)";
    EXPECT_EQ(goRight(text, wordAfter), (Places{1, 5, 11, 14, 15, 21, 22}));
    EXPECT_EQ(goLeft(text, wordBefore), (Places{21, 15, 14, 11, 5, 1, 0}));
    EXPECT_EQ(goRight(u"one !two", wordAfter), (Places{4, 5, 8}));
}

TEST(TextPlaces, TheBeginningsAndEndsOfLinesCountAsWords) {
    const std::u16string_view text = u"one \r\n\r\n  two";
    EXPECT_EQ(goRight(text, wordAfter), (Places{4, 6, 8, 10, 13}));
    EXPECT_EQ(goLeft(text, wordBefore), (Places{10, 8, 6, 4, 0}));
}

TEST(TextPlaces, ALoneLineFeedIsABreakToo) {
    EXPECT_EQ(goRight(u"one\ntwo", wordAfter), (Places{3, 4, 7}));
    EXPECT_EQ(goLeft(u"one\ntwo", wordBefore), (Places{4, 3, 0}));
}

TEST(TextPlaces, ALineEndsBeforeItsBreak) {
    const std::u16string_view text = u"one\r\n\r\nx";
    const auto lineAt = [&](std::size_t at) {
        const TextLine line = unwrappedLine(text, at);
        return Places{line.from, line.to, line.next};
    };
    EXPECT_EQ(lineAt(0), (Places{0, 3, 5}));
    EXPECT_EQ(lineAt(3), (Places{0, 3, 5}));
    EXPECT_EQ(lineAt(5), (Places{5, 5, 7}));
    EXPECT_EQ(lineAt(7), (Places{7, 8, noLine}));
    EXPECT_EQ(lineAt(8), (Places{7, 8, noLine}));
}

TEST(TextPlaces, ColumnsAreThoseOfATerminal) {
    const std::u16string_view text = u"a漢e\u0301b";
    const TextLine line = unwrappedLine(text, 0);
    EXPECT_EQ(columnOf(text, line, 1), 1);
    EXPECT_EQ(columnOf(text, line, 2), 3);
    EXPECT_EQ(columnOf(text, line, 4), 4);
    const Places places{0, 1, 1, 2, 4, 5, 5};
    for (int column = 0; column < 7; ++column) {
        EXPECT_EQ(placeInLine(text, line, column), places[static_cast<std::size_t>(column)]);
    }
}

} // namespace
} // namespace kvex::lightweight
