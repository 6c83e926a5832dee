#include "platform/Unicode.h"
#include "platform/Utf16.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace {

using kvex::clusterEnd;
using kvex::clusterStart;
using kvex::columnsOf;
using kvex::isAccent;
using Clusters = std::vector<std::u16string>;

Clusters clustersOf(std::u16string_view text) {
    Clusters clusters;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = clusterEnd(text, at);
        clusters.emplace_back(text.substr(at, end - at));
        at = end;
    }
    return clusters;
}

Clusters clustersFromTheEnd(std::u16string_view text) {
    Clusters clusters;
    for (std::size_t at = text.size(); at > 0;) {
        const std::size_t start = clusterStart(text, at);
        clusters.emplace_back(text.substr(start, at - start));
        at = start;
    }
    std::ranges::reverse(clusters);
    return clusters;
}

void expectClusters(std::u16string_view text, const Clusters &clusters) {
    EXPECT_EQ(clustersOf(text), clusters);
    EXPECT_EQ(clustersFromTheEnd(text), clusters);
}

std::vector<int> columnsOfClusters(std::u16string_view text) {
    std::vector<int> columns;
    for (const std::u16string &cluster : clustersOf(text)) {
        columns.push_back(columnsOf(cluster));
    }
    return columns;
}

TEST(Clusters, OfPlainTextAreItsCharacters) {
    expectClusters(u"aé1 ", {u"a", u"é", u"1", u" "});
}

TEST(Clusters, OfHindiHoldALetterWithItsVowelSigns) {
    expectClusters(u"हिन्दी", {u"हि", u"न्", u"दी"});
    EXPECT_EQ(columnsOfClusters(u"हिन्दी"), (std::vector{2, 1, 2}));
}

TEST(Clusters, HoldALetterWithItsAccents) {
    expectClusters(u"e\u0301\u0323x", {u"e\u0301\u0323", u"x"});
    EXPECT_EQ(columnsOf(u"e\u0301\u0323"), 1);
}

TEST(Clusters, HoldAnEmojiOfSeveralPeople) {
    expectClusters(u"👨‍👩‍👧‍👦👨‍👩‍👧‍👦",
                   {u"👨‍👩‍👧‍👦", u"👨‍👩‍👧‍👦"});
    EXPECT_EQ(columnsOf(u"👨‍👩‍👧‍👦"), 2);
}

TEST(Clusters, HoldAnEmojiWithItsTone) {
    expectClusters(u"👍🏽👍", {u"👍🏽", u"👍"});
    EXPECT_EQ(columnsOf(u"👍🏽"), 2);
}

TEST(Clusters, HoldTheTwoLettersOfAFlag) {
    expectClusters(u"🇩🇪🇫🇷🇮", {u"🇩🇪", u"🇫🇷", u"🇮"});
    EXPECT_EQ(columnsOfClusters(u"🇩🇪🇫🇷🇮"), (std::vector{2, 2, 1}));
}

TEST(Clusters, HoldTheJamoOfAKoreanSyllable) {
    expectClusters(u"\u1112\u1161\u11ab\u1100\u1173", {u"\u1112\u1161\u11ab", u"\u1100\u1173"});
    EXPECT_EQ(columnsOfClusters(u"\u1112\u1161\u11ab한"), (std::vector{2, 2}));
}

TEST(Clusters, HoldAWholeLineBreak) {
    expectClusters(u"a\r\n\n\r\r\nb", {u"a", u"\r\n", u"\n", u"\r", u"\r\n", u"b"});
    EXPECT_EQ(columnsOf(u"\r\n"), 0);
}

TEST(Clusters, KeepJoinersWithTheLetterBeforeThem) {
    expectClusters(u"क्\u200Dष\u200Ca", {u"क्\u200D", u"ष\u200C", u"a"});
}

TEST(Clusters, OfAControlCharacterHoldNothingElse) {
    expectClusters(u"\u0001\u0301a", {u"\u0001", u"\u0301", u"a"});
    expectClusters(u"\u200E\u0301", {u"\u200E", u"\u0301"});
}

TEST(Clusters, HoldUnpairedSurrogates) {
    const std::u16string high(1, char16_t{0xD83D});
    const std::u16string low(1, char16_t{0xDE00});
    expectClusters(low + high + u"a", {low, high, u"a"});
}

TEST(Columns, AreTwoForWideCharacters) {
    EXPECT_EQ(columnsOfClusters(u"中ｱＡ가😀"), (std::vector{2, 1, 2, 2, 2}));
}

TEST(Columns, AreTwoForASymbolInColours) {
    EXPECT_EQ(columnsOfClusters(u"❤❤\uFE0F1\uFE0F\u20E3"), (std::vector{1, 2, 2}));
}

TEST(Columns, AreOneForMostScripts) {
    EXPECT_EQ(columnsOfClusters(u"عربيΩж│ไ"), (std::vector{1, 1, 1, 1, 1, 1, 1, 1}));
}

TEST(Columns, OfEveryCharacterAreAtMostTwo) {
    for (char32_t character = 0; character < 0x110000; ++character) {
        std::u16string text;
        kvex::appendCharacter(text, character);
        ASSERT_GE(columnsOf(text), 0) << std::hex << static_cast<unsigned>(character);
        ASSERT_LE(columnsOf(text), 2) << std::hex << static_cast<unsigned>(character);
    }
}

TEST(IsAccent, HoldsForMarksThatBelongOnALetter) {
    EXPECT_TRUE(isAccent(u"\u0301"));
    EXPECT_TRUE(isAccent(u"\u093F"));
    EXPECT_FALSE(isAccent(u"e\u0301"));
    EXPECT_FALSE(isAccent(u"\u200D"));
    EXPECT_FALSE(isAccent(u"\u200E"));
}

} // namespace
