#include "adapters/controls/PackedTexts.h"

#include <gtest/gtest.h>

#include <vector>

namespace kvex::controls {
namespace {

std::vector<std::u16string_view> firstOf(const PackedTexts &texts, std::size_t count) {
    std::vector<std::u16string_view> all;
    for (std::size_t number = 0; number < count; ++number) {
        all.push_back(texts[number]);
    }
    return all;
}

using Texts = std::vector<std::u16string_view>;

TEST(PackedTexts, ATextThatWasNeverSetIsEmpty) {
    PackedTexts texts;
    EXPECT_EQ(texts[0], u"");
    EXPECT_EQ(texts[7], u"");
    texts.set(2, u"two");
    EXPECT_EQ(firstOf(texts, 5), (Texts{u"", u"", u"two", u"", u""}));
}

TEST(PackedTexts, ATextMayBecomeLongerShorterAndEmptyBesideTheOthers) {
    PackedTexts texts;
    texts.set(0, u"RU7");
    texts.set(1, u"Night");
    texts.set(3, u"00000007");
    texts.set(1, u"Night at the harbour");
    EXPECT_EQ(firstOf(texts, 4), (Texts{u"RU7", u"Night at the harbour", u"", u"00000007"}));
    texts.set(0, u"R");
    EXPECT_EQ(firstOf(texts, 4), (Texts{u"R", u"Night at the harbour", u"", u"00000007"}));
    texts.set(1, u"");
    EXPECT_EQ(firstOf(texts, 4), (Texts{u"R", u"", u"", u"00000007"}));
    texts.set(2, u"7");
    EXPECT_EQ(firstOf(texts, 4), (Texts{u"R", u"", u"7", u"00000007"}));
    texts.set(3, u"8");
    EXPECT_EQ(firstOf(texts, 4), (Texts{u"R", u"", u"7", u"8"}));
}

TEST(PackedTexts, ATextCanBeTakenFromAnotherOfThem) {
    PackedTexts texts;
    texts.set(0, u"north");
    texts.set(1, texts[0]);
    texts.set(0, texts[1].substr(0, 3));
    EXPECT_EQ(firstOf(texts, 2), (Texts{u"nor", u"north"}));
}

TEST(PackedTexts, ATextCanBeLongAndOfAnyUnits) {
    const std::u16string longText(100'000, u'x');
    const std::u16string odd{u'\0', u'\xD800', u'\xFFFF'};
    PackedTexts texts;
    texts.set(0, odd);
    texts.set(1, longText);
    texts.set(2, odd);
    EXPECT_EQ(firstOf(texts, 3), (Texts{odd, longText, odd}));
}

} // namespace
} // namespace kvex::controls
