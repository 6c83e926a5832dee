#include "platform/Text.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using namespace kvex;
using kvex::test::errorNumber;

std::string shown(std::u16string_view text) {
    return '"' + toUtf8(text) + '"';
}

TEST(IsNumeric, AcceptsDecimalNumbers) {
    for (const std::u16string_view text :
         {u"0", u"-1", u"+1", u"007", u"1.", u".5", u"-.5", u"1.5", u"  12  ", u"1e3", u"1E+3",
          u"1.5e-3", u".5e0", u"1.e1", u"99999999999999999999", u"1e-999"}) {
        EXPECT_TRUE(isNumeric(text)) << shown(text);
    }
}

TEST(IsNumeric, RefusesEverythingElse) {
    for (const std::u16string_view text :
         {u"",      u" ",       u"a",      u"1a",     u"a1",   u".",     u"-",   u"+",    u"- 1",
          u"--1",   u"+-1",     u"1 2",    u"1-",     u"1..",  u"1.2.3", u"1,5", u"e5",   u".e5",
          u"1e",    u"1e+",     u"1e5.5",  u"1e 5",   u"0x10", u"&H10",  u"inf", u"nan",  u"1\t",
          u"\r\n1", u"\u00A01", u"\u0661", u"\uFF11", u"$1",   u"(1)",   u"1d3", u"1e999"}) {
        EXPECT_FALSE(isNumeric(text)) << shown(text);
    }
}

TEST(ToInt32, ReadsADecimalNumberInBlanks) {
    EXPECT_EQ(toInt32(u"  42 "), 42);
    EXPECT_EQ(toInt32(u"+7"), 7);
    EXPECT_EQ(toInt32(u"-007"), -7);
    EXPECT_EQ(toInt32(u"12e2"), 1200);
    EXPECT_EQ(toInt32(u"12000E-3"), 12);
    EXPECT_EQ(toInt32(u"-0"), 0);
}

TEST(ToInt32, RoundsHalfToEven) {
    EXPECT_EQ(toInt32(u"0.5"), 0);
    EXPECT_EQ(toInt32(u"1.5"), 2);
    EXPECT_EQ(toInt32(u"2.5"), 2);
    EXPECT_EQ(toInt32(u"-0.5"), 0);
    EXPECT_EQ(toInt32(u"-1.5"), -2);
    EXPECT_EQ(toInt32(u"-2.5"), -2);
    EXPECT_EQ(toInt32(u"2.4999"), 2);
    EXPECT_EQ(toInt32(u"2.5001"), 3);
    EXPECT_EQ(toInt32(25e-1), 2);
}

TEST(ToInt32, FailsWithTypeMismatchForWhatIsNoNumber) {
    for (const std::u16string_view text : {u"", u" ", u"x", u"1x", u"1;2", u"0x1", u"1\t"}) {
        EXPECT_EQ(errorNumber([&] { return toInt32(text); }), error_number::typeMismatch)
            << shown(text);
        EXPECT_EQ(errorNumber([&] { return toInt16(text); }), error_number::typeMismatch)
            << shown(text);
        EXPECT_EQ(errorNumber([&] { return toDouble(text); }), error_number::typeMismatch)
            << shown(text);
    }
}

TEST(ToInt32, HoldsItsWholeRangeAndOverflowsBeyond) {
    EXPECT_EQ(toInt32(u"2147483647"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(toInt32(u"2147483647.4"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(toInt32(u"-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(toInt32(u"-2147483648.5"), std::numeric_limits<std::int32_t>::min());
    for (const std::u16string_view text : {u"2147483647.5", u"2147483648", u"-2147483649", u"1e10",
                                           u"99999999999999999999", u"1e999", u"-1e999"}) {
        EXPECT_EQ(errorNumber([&] { return toInt32(text); }), error_number::overflow)
            << shown(text);
    }
    EXPECT_EQ(errorNumber([] { return toInt32(std::numeric_limits<double>::quiet_NaN()); }),
              error_number::overflow);
    EXPECT_EQ(errorNumber([] { return toInt32(std::numeric_limits<double>::infinity()); }),
              error_number::overflow);
}

TEST(ToInt16, HoldsItsWholeRangeAndOverflowsBeyond) {
    EXPECT_EQ(toInt16(u"32767"), 32767);
    EXPECT_EQ(toInt16(u"-32768"), -32768);
    EXPECT_EQ(toInt16(u"-32768.5"), -32768);
    EXPECT_EQ(toInt16(2.5), 2);
    for (const std::u16string_view text : {u"32768", u"32767.5", u"-32769", u"1e5"}) {
        EXPECT_EQ(errorNumber([&] { return toInt16(text); }), error_number::overflow)
            << shown(text);
    }
}

TEST(ToDouble, ANumberTooNearToZeroIsZero) {
    const std::u16string zeros(400, u'0');
    for (const std::u16string &text :
         {std::u16string(u"1e-400"), std::u16string(u"-1.5e-400"),
          std::u16string(u"1e-99999999999999999999"), u"0." + zeros + u"1", u"0." + zeros + u"1e0",
          u"1" + zeros + u"e-800", u"." + zeros + u"25e-2"}) {
        EXPECT_EQ(toDouble(text), 0) << shown(text);
        EXPECT_EQ(toInt32(text), 0) << shown(text);
    }
}

TEST(ToDouble, ANumberTooFarFromZeroOverflows) {
    const std::u16string zeros(400, u'0');
    const std::u16string manyZeros(6000, u'0');
    for (const std::u16string &text :
         {std::u16string(u"1e400"), std::u16string(u"-1e400"),
          std::u16string(u"1e99999999999999999999"), std::u16string(u"10e9223372036854775807"),
          u"1" + zeros, u"1" + manyZeros + u"e-10", u"0." + zeros + u"1e800"}) {
        EXPECT_EQ(errorNumber([&] { return toDouble(text); }), error_number::overflow)
            << shown(text);
    }
}

TEST(ToDouble, WhatTheExponentBringsBackIsANumber) {
    const std::u16string zeros(6000, u'0');
    EXPECT_EQ(toDouble(u"1" + zeros + u"e-6000"), 1);
    EXPECT_EQ(toDouble(u"0." + zeros + u"5e6001"), 5);
    EXPECT_EQ(toDouble(u"0e99999999999999999999"), 0);
    EXPECT_EQ(toDouble(u"0e-99999999999999999999"), 0);
    EXPECT_EQ(toDouble(u"5e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(ToText, WritesDecimalNumbers) {
    EXPECT_EQ(toText(std::int64_t{0}), u"0");
    EXPECT_EQ(toText(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
    EXPECT_EQ(toText(1.5), u"1.5");
    EXPECT_EQ(toText(-2.0), u"-2");
    EXPECT_EQ(toText(0.1), u"0.1");
    EXPECT_EQ(toDouble(toText(std::numeric_limits<double>::max())),
              std::numeric_limits<double>::max());
}

} // namespace
