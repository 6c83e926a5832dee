#include "host/check/SmsLength.h"

#include <array>
#include <gtest/gtest.h>
#include <map>

namespace kvex::host {
namespace {

/// The default alphabet as 3GPP TS 23.038 prints it in 6.2.1: a row for each value of the low four
/// bits, a column for each value of the high three. U+001B stands for the escape.
constexpr std::array<std::u16string_view, 16> defaultAlphabet{
    u"@Δ 0¡P¿p",      //
    u"£_!1AQaq",      //
    u"$Φ\"2BRbr",     //
    u"¥Γ#3CScs",      //
    u"èΛ¤4DTdt",      //
    u"éΩ%5EUeu",      //
    u"ùΠ&6FVfv",      //
    u"ìΨ'7GWgw",      //
    u"òΣ(8HXhx",      //
    u"ÇΘ)9IYiy",      //
    u"\nΞ*:JZjz",     //
    u"Ø\u001B+;KÄkä", //
    u"øÆ,<LÖlö",      //
    u"\ræ-=MÑmñ",     //
    u"Åß.>NÜnü",      //
    u"åÉ/?O§oà",      //
};

/// The extension table of 6.2.1.1, by its codes.
const std::map<int, char16_t> extensionTable{
    {0x0A, u'\f'}, {0x14, u'^'}, {0x28, u'{'}, {0x29, u'}'}, {0x2F, u'\\'},
    {0x3C, u'['},  {0x3D, u'~'}, {0x3E, u']'}, {0x40, u'|'}, {0x65, u'€'},
};

std::u16string repeated(std::u16string_view text, std::size_t times) {
    std::u16string result;
    for (std::size_t i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

void expectLength(std::u16string_view text, SmsAlphabet alphabet, std::size_t units,
                  std::size_t parts) {
    const SmsLength length = smsLength(text);
    EXPECT_EQ(length.alphabet, alphabet);
    EXPECT_EQ(length.units, units);
    EXPECT_EQ(length.parts, parts);
}

TEST(SmsLength, EachCharacterOfTheDefaultAlphabetTakesOneSeptet) {
    std::size_t characters = 0;
    for (const std::u16string_view row : defaultAlphabet) {
        ASSERT_EQ(row.size(), 8U);
        for (const char16_t character : row) {
            if (character != u'\u001B') {
                EXPECT_EQ(septetsOf(character), 1U) << static_cast<int>(character);
                expectLength({&character, 1}, SmsAlphabet::gsm7, 1, 1);
                ++characters;
            }
        }
    }
    EXPECT_EQ(characters, 127U);
}

TEST(SmsLength, EachCharacterOfTheExtensionTableTakesTwoSeptets) {
    for (const auto &[code, character] : extensionTable) {
        EXPECT_EQ(septetsOf(character), 2U) << code;
        expectLength({&character, 1}, SmsAlphabet::gsm7, 2, 1);
    }
}

TEST(SmsLength, NoOtherUnitIsInTheGsmAlphabet) {
    std::array<std::size_t, 0x10000> expected{};
    for (const std::u16string_view row : defaultAlphabet) {
        for (const char16_t character : row) {
            expected[character] = character == u'\u001B' ? 0 : 1;
        }
    }
    for (const auto &[code, character] : extensionTable) {
        expected[character] = 2;
    }
    for (std::size_t unit = 0; unit < expected.size(); ++unit) {
        ASSERT_EQ(septetsOf(static_cast<char16_t>(unit)), expected[unit]) << unit;
    }
}

TEST(SmsLength, AnEmptyTextIsOneMessage) {
    expectLength(u"", SmsAlphabet::gsm7, 0, 1);
}

TEST(SmsLength, AMessageHolds160SeptetsAndEachOfSeveral153) {
    expectLength(repeated(u"a", 160), SmsAlphabet::gsm7, 160, 1);
    expectLength(repeated(u"a", 161), SmsAlphabet::gsm7, 161, 2);
    expectLength(repeated(u"a", 306), SmsAlphabet::gsm7, 306, 2);
    expectLength(repeated(u"a", 307), SmsAlphabet::gsm7, 307, 3);
}

TEST(SmsLength, AMessageHolds70UnitsOfUcs2AndEachOfSeveral67) {
    expectLength(repeated(u"ж", 70), SmsAlphabet::ucs2, 70, 1);
    expectLength(repeated(u"ж", 71), SmsAlphabet::ucs2, 71, 2);
    expectLength(repeated(u"ж", 134), SmsAlphabet::ucs2, 134, 2);
    expectLength(repeated(u"ж", 135), SmsAlphabet::ucs2, 135, 3);
}

TEST(SmsLength, OneForeignCharacterPutsTheWholeTextIntoUcs2) {
    expectLength(repeated(u"a", 69) + u"’", SmsAlphabet::ucs2, 70, 1);
    expectLength(repeated(u"a", 70) + u"’", SmsAlphabet::ucs2, 71, 2);
    EXPECT_EQ(smsLength(u"It’s “here”").forcing, u"’");
    EXPECT_EQ(smsLength(u"It's here").forcing, u"");
}

TEST(SmsLength, ACharacterOfTheExtensionTableInUcs2IsOneUnit) {
    expectLength(u"€ж", SmsAlphabet::ucs2, 2, 1);
}

TEST(SmsLength, TheForcingCharacterIsAWholeSurrogatePair) {
    EXPECT_EQ(smsLength(u"on 😀").forcing, u"😀");
    expectLength(u"on 😀", SmsAlphabet::ucs2, 5, 1);
}

TEST(SmsLength, AnUnpairedSurrogateForcesUcs2) {
    const char16_t low[] = {u'a', 0xDE00, u'b'};
    EXPECT_EQ(smsLength({low, 3}).forcing, std::u16string(1, 0xDE00));
    expectLength({low, 3}, SmsAlphabet::ucs2, 3, 1);
}

TEST(SmsLength, AnExtensionCharacterIsNotSplitOverTwoMessages) {
    // 152 + 2 + 152 septets fill two messages exactly, were the character split.
    expectLength(repeated(u"a", 152) + u"€" + repeated(u"a", 152), SmsAlphabet::gsm7, 306, 3);
    expectLength(repeated(u"a", 151) + u"€" + repeated(u"a", 153), SmsAlphabet::gsm7, 306, 2);
    expectLength(repeated(u"a", 152) + u"€" + repeated(u"a", 151), SmsAlphabet::gsm7, 305, 2);
}

TEST(SmsLength, ASurrogatePairIsNotSplitOverTwoMessages) {
    expectLength(repeated(u"a", 66) + u"😀" + repeated(u"a", 66), SmsAlphabet::ucs2, 134, 3);
    expectLength(repeated(u"a", 65) + u"😀" + repeated(u"a", 67), SmsAlphabet::ucs2, 134, 2);
}

TEST(SmsLength, ExtensionCharactersFillASingleMessageToTheLastSeptet) {
    expectLength(repeated(u"[]", 40), SmsAlphabet::gsm7, 160, 1);
    expectLength(repeated(u"[]", 40) + u"a", SmsAlphabet::gsm7, 161, 2);
}

TEST(SmsLength, ALineBreakTakesTwoSeptets) {
    expectLength(u"a\r\nb", SmsAlphabet::gsm7, 4, 1);
}

TEST(SmsLength, AnEscapeIsNoCharacter) {
    EXPECT_EQ(smsLength(u"\u001B").forcing, u"\u001B");
}

TEST(SmsLength, OneMessageHoldsTheUnitsOfItsAlphabet) {
    EXPECT_EQ(unitsOfOneSms(SmsAlphabet::gsm7), 160U);
    EXPECT_EQ(unitsOfOneSms(SmsAlphabet::ucs2), 70U);
}

} // namespace
} // namespace kvex::host
