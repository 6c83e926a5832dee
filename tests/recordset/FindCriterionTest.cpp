// Reading search criteria.
#include "adapters/recordset/FindCriterion.h"
#include "platform/Error.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <string>

namespace kvex::test {
namespace {

using recordset::FindCriterion;
using Wanted = FindCriterion::Wanted;

/// What a search by this operand compares a number with.
Wanted wanted(std::u16string_view operand) {
    return FindCriterion(u"ID = " + std::u16string(operand)).wanted();
}

bool matches(std::u16string_view criterion, ValueView::Held held) {
    return FindCriterion(criterion).matches(ValueView(held));
}

} // namespace

TEST(FindCriterion, BlanksAroundTheColumnAndTheOperandDoNotCount) {
    for (const std::u16string_view text : {u"Name='a b'", u"  Name  =  'a b'  "}) {
        const FindCriterion criterion(text);
        EXPECT_EQ(criterion.column(), u"Name");
        EXPECT_EQ(criterion.wanted(), Wanted(std::u16string_view(u"a b")));
    }
    EXPECT_EQ(FindCriterion(u"a b = 5").column(), u"a b");
}

TEST(FindCriterion, ATextKeepsWhatStandsBetweenItsApostrophes) {
    for (const std::u16string_view text : {u"", u" ", u" a ", u"=", u"a = 5", u"\"", u"%_*"}) {
        const std::u16string criterion = u"Name = '" + std::u16string(text) + u"'";
        EXPECT_EQ(FindCriterion(criterion).wanted(), Wanted(text));
    }
}

TEST(FindCriterion, AWholeNumberIsAnIntegerInEveryForm) {
    for (const std::u16string_view operand :
         {u"5", u"+5", u"005", u"5.0", u"+5.0", u"0.5e1", u"50e-1", u"5."}) {
        EXPECT_EQ(wanted(operand), Wanted(std::int64_t{5}));
    }
    EXPECT_EQ(wanted(u"-0"), Wanted(std::int64_t{0}));
    EXPECT_EQ(wanted(u"-5.0"), Wanted(std::int64_t{-5}));
    EXPECT_EQ(wanted(u"+9223372036854775807"), Wanted(std::int64_t{9223372036854775807}));
    EXPECT_EQ(wanted(u"-9223372036854775808"), Wanted(INT64_MIN));
    EXPECT_EQ(wanted(u"-9223372036854775808.0"), Wanted(INT64_MIN));
}

TEST(FindCriterion, ANumberThatNoIntegerHoldsIsAFloatingPointNumber) {
    EXPECT_EQ(wanted(u"5.5"), Wanted(5.5));
    EXPECT_EQ(wanted(u"-0.25"), Wanted(-0.25));
    EXPECT_EQ(wanted(u"9223372036854775808"), Wanted(0x1p63));
    EXPECT_EQ(wanted(u"-9223372036854777856"), Wanted(-0x1p63 - 2048));
    EXPECT_EQ(wanted(u"1e300"), Wanted(1e300));
}

TEST(FindCriterion, WhatCannotBeReadIsRefusedWithTheFormThatCan) {
    for (const std::u16string_view text : {u"",
                                           u" ",
                                           u"=",
                                           u"ID",
                                           u"5",
                                           u"'a'",
                                           u"ID =",
                                           u"ID = ",
                                           u"= 5",
                                           u" = 5",
                                           u"ID = five",
                                           u"ID = 5 5",
                                           u"ID = 5x",
                                           u"ID = +",
                                           u"ID = -",
                                           u"ID = ++5",
                                           u"ID = +-5",
                                           u"ID = 0x5",
                                           u"ID = 1e999",
                                           u"ID = 5 AND ACTIVE = 1",
                                           u"ID >= 5",
                                           u"ID <= 5",
                                           u"ID != 5",
                                           u"ID == 5",
                                           u"ID > 5",
                                           u"ID <> 5",
                                           u"Name LIKE 'a'",
                                           u"Name = '",
                                           u"Name = ''a",
                                           u"Name = a'",
                                           u"Name = 'a",
                                           u"Name = a",
                                           u"Name = 'a' OR",
                                           u"Name = 'O'Brien'",
                                           u"Name = 'O''Brien'",
                                           u"Name = '''",
                                           u"Name = \"a\"",
                                           u"Name = #a#"}) {
        expectError(error_number::badArgument,
                    u"The search criterion " + std::u16string(text) +
                        u" cannot be read: write COLUMN = number, or COLUMN = 'text' with no "
                        u"apostrophe inside the text.",
                    [&] { return FindCriterion(text); });
    }
}

TEST(FindCriterion, ANumberMatchesNumbersOfItsValueOnly) {
    EXPECT_TRUE(matches(u"ID = 5", std::int64_t{5}));
    EXPECT_TRUE(matches(u"ID = 5", 5.0));
    EXPECT_TRUE(matches(u"ID = 5.5", 5.5));
    EXPECT_FALSE(matches(u"ID = 5", std::int64_t{6}));
    EXPECT_FALSE(matches(u"ID = 5", 5.5));
    EXPECT_FALSE(matches(u"ID = 5.5", std::int64_t{5}));
    EXPECT_FALSE(matches(u"ID = 0", Null()));
    EXPECT_FALSE(matches(u"ID = 5", std::u16string_view(u"5")));
    EXPECT_FALSE(matches(u"ID = 5.5", std::u16string_view(u"5.5")));
    // As floating-point numbers they would be equal.
    EXPECT_FALSE(matches(u"ID = 9007199254740993", std::int64_t{9007199254740992}));
}

TEST(FindCriterion, ATextMatchesTextsOnlyWhateverTheirCase) {
    EXPECT_TRUE(matches(u"Name = 'Boss'", std::u16string_view(u"bOSS")));
    EXPECT_TRUE(matches(u"Name = ''", std::u16string_view()));
    EXPECT_FALSE(matches(u"Name = 'Boss'", std::u16string_view(u"Boss ")));
    EXPECT_FALSE(matches(u"Name = ''", Null()));
    EXPECT_FALSE(matches(u"Name = '5'", std::int64_t{5}));
    EXPECT_FALSE(matches(u"Name = '5.5'", 5.5));
}

} // namespace kvex::test
