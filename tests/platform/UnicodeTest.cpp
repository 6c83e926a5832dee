#include "platform/Unicode.h"

#include "platform/Text.h"
#include "platform/Utf16.h"

#include <gtest/gtest.h>

namespace {

using kvex::foldCase;
using kvex::upperCase;

const std::u16string unpaired{u'a', 0xD801, u'b', 0xDC28, 0xDC00, 0xD801};

TEST(UpperCase, MapsCharacterByCharacter) {
    EXPECT_EQ(upperCase(u""), u"");
    EXPECT_EQ(upperCase(u"Reply to 0171-5; [x]"), u"REPLY TO 0171-5; [X]");
    EXPECT_EQ(upperCase(u"äöüéñçøœ"), u"ÄÖÜÉÑÇØŒ");
    EXPECT_EQ(upperCase(u"Привет ΣΊΣΥΦΟΣ σίσυφος"), u"ПРИВЕТ ΣΊΣΥΦΟΣ ΣΊΣΥΦΟΣ");
    EXPECT_EQ(upperCase(u"ıiİ"), u"IIİ");
    EXPECT_EQ(upperCase(u"ÿµ"), u"Ÿ\u039C");
}

TEST(UpperCase, LeavesWhatHasNoSingleUpperCaseCharacter) {
    EXPECT_EQ(upperCase(u"Straße ŉ \uFB01 ǰ"), u"STRAßE ŉ \uFB01 ǰ");
}

TEST(UpperCase, MapsCharactersBeyondTheFirstPlane) {
    EXPECT_EQ(upperCase(u"x\U00010428\U0001F600"), u"X\U00010400\U0001F600");
}

TEST(UpperCase, KeepsUnpairedSurrogates) {
    std::u16string expected = unpaired;
    expected[0] = u'A';
    expected[2] = u'B';
    EXPECT_EQ(upperCase(unpaired), expected);
}

TEST(FoldCase, MakesTextsEqualThatDifferInCaseOnly) {
    struct Row {
        std::u16string_view one;
        std::u16string_view other;
    };
    for (const Row &row : {
             Row{u"Reply", u"rEPLY"},
             Row{u"Ärger", u"äRGER"},
             Row{u"STRA\u1E9EE", u"straße"},
             Row{u"\u212A", u"k"},
             Row{u"\u212B", u"å"},
             Row{u"\u2126", u"ω"},
             Row{u"µ", u"μ"},
             Row{u"ΣΊΣΥΦΟΣ", u"σίσυφος"},
             Row{u"\u03C2", u"\u03C3"},
             Row{u"ſ", u"S"},
             Row{u"\u1F88", u"\u1F80"},
             Row{u"Ǆ", u"ǅ"},
             Row{u"\uAB70", u"\u13A0"},
             Row{u"\U00010400", u"\U00010428"},
         }) {
        EXPECT_EQ(foldCase(row.one), foldCase(row.other)) << kvex::toUtf8(row.one);
    }
}

TEST(FoldCase, KeepsTextsApartThatDifferInMore) {
    struct Row {
        std::u16string_view one;
        std::u16string_view other;
    };
    for (const Row &row : {
             Row{u"ß", u"ss"},
             Row{u"\u1E9E", u"SS"},
             Row{u"İ", u"i"},
             Row{u"İ", u"i\u0307"},
             Row{u"ı", u"i"},
             Row{u"ı", u"I"},
             Row{u"é", u"e"},
             Row{u"é", u"e\u0301"},
             Row{u"\uFB01", u"fi"},
             Row{u"a", u"a "},
         }) {
        EXPECT_NE(foldCase(row.one), foldCase(row.other)) << kvex::toUtf8(row.one);
    }
}

TEST(FoldCase, TheDottedAndTheDotlessIFoldToThemselves) {
    EXPECT_EQ(foldCase(u"İı"), u"İı");
    EXPECT_EQ(foldCase(u"I"), u"i");
}

TEST(FoldCase, KeepsUnpairedSurrogates) {
    EXPECT_EQ(foldCase(unpaired), unpaired);
}

TEST(FoldCase, OfEveryCharacterIsFoldedAndAsLongAndThatOfItsUpperCase) {
    for (char32_t character = 0; character < 0x110000; ++character) {
        std::u16string text;
        kvex::appendCharacter(text, character);
        const std::u16string folding = foldCase(text);
        ASSERT_EQ(folding.size(), text.size()) << std::hex << static_cast<unsigned>(character);
        ASSERT_EQ(foldCase(folding), folding) << std::hex << static_cast<unsigned>(character);
        ASSERT_EQ(upperCase(text).size(), text.size())
            << std::hex << static_cast<unsigned>(character);
        // The dotless i is the one letter whose upper case is another letter's.
        if (character != U'ı') {
            ASSERT_EQ(foldCase(upperCase(text)), folding)
                << std::hex << static_cast<unsigned>(character);
        }
    }
}

TEST(IsLetterOrDigit, HoldsInEveryScript) {
    for (const char32_t character : U"aZ09ßÄéıжΩ中ʰªǅ٣\U0001D400\U00010428") {
        EXPECT_EQ(kvex::isLetterOrDigit(character), character != 0)
            << std::hex << static_cast<unsigned>(character);
    }
    for (const char32_t character : {U' ', U'-', U'_', U'&', U'½', U'²', U'\u00A0', U'\u0301',
                                     U'\U0001F600', char32_t{0xD800}}) {
        EXPECT_FALSE(kvex::isLetterOrDigit(character))
            << std::hex << static_cast<unsigned>(character);
    }
}

TEST(DigitValue, IsThatOfTheDigitInEveryScript) {
    for (int value = 0; value < 10; ++value) {
        // Latin, Devanagari, Arabic, full-width, and two of the mathematical alphabets.
        for (const char32_t zero :
             {U'0', U'\u0966', U'\u0660', U'\uFF10', U'\U0001D7CE', U'\U0001D7D8'}) {
            EXPECT_EQ(kvex::digitValue(zero + static_cast<char32_t>(value)), value);
        }
    }
    for (const char32_t other : {U'a', U' ', U'/', U':', U'\u00B2', U'\u0965', U'\u0970'}) {
        EXPECT_EQ(kvex::digitValue(other), std::nullopt);
    }
}

} // namespace
