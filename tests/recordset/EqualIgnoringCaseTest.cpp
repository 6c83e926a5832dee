#include "adapters/recordset/EqualIgnoringCase.h"
#include "platform/Text.h"
#include "platform/Unicode.h"
#include "platform/Utf16.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace kvex::test {
namespace {

using recordset::equalIgnoringCase;
using recordset::fingerprintIgnoringCase;

/// The lower case of one ASCII character.
char16_t lower(char16_t unit) {
    const std::u16string_view upper = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const std::size_t at = upper.find(unit);
    return at < upper.size() ? u"abcdefghijklmnopqrstuvwxyz"[at] : unit;
}

TEST(EqualIgnoringCase, InAsciiOnlyLettersHaveACase) {
    for (char16_t left = 0; left < 0x80; ++left) {
        for (char16_t right = 0; right < 0x80; ++right) {
            const std::u16string first{u'x', left, u'Y'};
            const std::u16string second{u'X', right, u'y'};
            ASSERT_EQ(equalIgnoringCase(first, second), lower(left) == lower(right))
                << int{left} << " " << int{right};
        }
    }
}

TEST(EqualIgnoringCase, ACharacterBeyondAsciiIsFoldedWhereverItStands) {
    EXPECT_TRUE(equalIgnoringCase(u"K\u00C4a", u"\u212A\u00E4A"));
    EXPECT_TRUE(equalIgnoringCase(u"\u212Aa", u"kA"));
    EXPECT_TRUE(equalIgnoringCase(u"abc\u017F", u"ABCs"));
    EXPECT_TRUE(equalIgnoringCase(u"abcs", u"ABC\u017F"));
    EXPECT_FALSE(equalIgnoringCase(u"\u00E4a", u"\u00C4b"));
    EXPECT_FALSE(equalIgnoringCase(u"a\u00E4", u"b\u00E4"));
    EXPECT_FALSE(equalIgnoringCase(u"\u00E4", u"\u00E5"));
    EXPECT_TRUE(equalIgnoringCase(u"", u""));
    EXPECT_FALSE(equalIgnoringCase(u"", u"a"));
    EXPECT_FALSE(equalIgnoringCase(u"ab", u"a"));
}

TEST(EqualIgnoringCase, EqualTextsHaveOneFingerprint) {
    // All planes that have letters with a case.
    constexpr char32_t end = 0x20000;
    for (char32_t character = 1; character < end; ++character) {
        std::u16string text = u"a";
        appendCharacter(text, character);
        for (const std::u16string &other : {foldCase(text), upperCase(text)}) {
            if (equalIgnoringCase(text, other)) {
                ASSERT_EQ(fingerprintIgnoringCase(text), fingerprintIgnoringCase(other))
                    << std::hex << static_cast<std::uint32_t>(character);
            }
        }
        ASSERT_NE(fingerprintIgnoringCase(text), 0);
    }
}

TEST(EqualIgnoringCase, FingerprintsTellMostShortTextsApart) {
    constexpr std::int64_t count = 10'000;
    std::set<std::uint16_t> different;
    for (std::int64_t number = 1; number <= count; ++number) {
        different.insert(fingerprintIgnoringCase(u"New Rule #" + toText(number)));
    }
    // By chance, 9,276 of the 65,535 numbers are expected.
    EXPECT_GT(different.size(), 9000U);
}

TEST(EqualIgnoringCase, NoFingerprintIsZero) {
    for (std::int64_t number = 0; number < 300'000; ++number) {
        ASSERT_NE(fingerprintIgnoringCase(toText(number)), 0) << number;
    }
}

TEST(EqualIgnoringCase, EachOfTheFirst64UnitsCounts) {
    const std::u16string text(64, u'x');
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::u16string other = text;
        other[at] = u'y';
        EXPECT_NE(fingerprintIgnoringCase(text), fingerprintIgnoringCase(other)) << at;
    }
}

TEST(EqualIgnoringCase, AsciiCharactersOfDifferentKindsHaveDifferentFingerprints) {
    std::set<std::uint16_t> different;
    for (const char16_t unit : std::u16string_view(u"abcdefghijlmnopqrtuvwxyz0123456789 !#*+-./")) {
        different.insert(fingerprintIgnoringCase({&unit, 1}));
    }
    EXPECT_EQ(different.size(), 42U);
}

TEST(EqualIgnoringCase, TheFingerprintOfALongTextIsThatOfItsLength) {
    const std::u16string text(65, u'x');
    EXPECT_EQ(fingerprintIgnoringCase(text), fingerprintIgnoringCase(std::u16string(65, u'y')));
    EXPECT_NE(fingerprintIgnoringCase(text), fingerprintIgnoringCase(text + u"x"));
}

} // namespace
} // namespace kvex::test
