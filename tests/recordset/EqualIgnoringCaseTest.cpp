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
    // As many as by chance: 9,276 of the 65,535 numbers are expected.
    EXPECT_GT(different.size(), 9000U);
}

TEST(EqualIgnoringCase, TheFingerprintOfALongTextIsThatOfItsLength) {
    const std::u16string text(65, u'x');
    EXPECT_EQ(fingerprintIgnoringCase(text), fingerprintIgnoringCase(std::u16string(65, u'y')));
    EXPECT_NE(fingerprintIgnoringCase(text), fingerprintIgnoringCase(text + u"x"));
}

} // namespace
} // namespace kvex::test
