#include "platform/Value.h"

#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace kvex;
using kvex::test::errorNumber;

ValueView null() {
    return ValueView();
}
ValueView integer(std::int64_t number) {
    return ValueView(ValueView::Held(number));
}
ValueView real(double number) {
    return ValueView(ValueView::Held(number));
}
ValueView text(std::u16string_view characters) {
    return ValueView(ValueView::Held(characters));
}

TEST(ValueView, KnowsNull) {
    EXPECT_TRUE(null().isNull());
    EXPECT_FALSE(integer(0).isNull());
    EXPECT_FALSE(text(u"").isNull());
}

TEST(ValueView, OwnedHoldsTheSameValue) {
    EXPECT_EQ(null().owned(), Value(Null()));
    EXPECT_EQ(integer(7).owned(), Value(std::int64_t{7}));
    EXPECT_EQ(real(0.5).owned(), Value(0.5));
    EXPECT_EQ(text(u"a").owned(), Value(std::u16string(u"a")));
}

TEST(ValueView, EveryValueButNullHasAText) {
    EXPECT_EQ(integer(-12).text(), u"-12");
    EXPECT_EQ(real(1.5).text(), u"1.5");
    EXPECT_EQ(real(3).text(), u"3");
    EXPECT_EQ(text(u" a ").text(), u" a ");
    EXPECT_EQ(errorNumber([] { return null().text(); }), error_number::invalidUseOfNull);
}

TEST(ValueView, TextOrEmptyTakesWhatIsNoTextForEmpty) {
    EXPECT_EQ(null().textOrEmpty(), u"");
    EXPECT_EQ(text(u"a").textOrEmpty(), u"a");
    EXPECT_EQ(integer(1).textOrEmpty(), u"");
    EXPECT_EQ(real(1).textOrEmpty(), u"");
}

TEST(ValueView, NumbersConvertWithinTheRange) {
    EXPECT_EQ(integer(std::numeric_limits<std::int64_t>::max()).int64(),
              std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(integer(std::numeric_limits<std::int64_t>::min()).int64(),
              std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(real(-9223372036854775808.0).int64(), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(real(3000000000.5).int64(), 3000000000);
    EXPECT_EQ(integer(2147483647).int32(), 2147483647);
    EXPECT_EQ(integer(-2147483648).int32(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(real(2.5).int32(), 2);
    EXPECT_EQ(integer(32767).int16(), 32767);
    EXPECT_EQ(integer(-32768).int16(), -32768);
    EXPECT_EQ(real(-1.5).int16(), -2);
}

TEST(ValueView, NumbersOutOfRangeOverflow) {
    for (const ValueView &value : {integer(2147483648), integer(-2147483649),
                                   integer(std::numeric_limits<std::int64_t>::max()), real(1e10)}) {
        EXPECT_EQ(errorNumber([&] { return value.int32(); }), error_number::overflow);
    }
    for (const ValueView &value : {real(9223372036854775808.0), real(-9223372036854777856.0)}) {
        EXPECT_EQ(errorNumber([&] { return value.int64(); }), error_number::overflow);
    }
    for (const ValueView &value : {integer(32768), integer(-32769), real(32767.5)}) {
        EXPECT_EQ(errorNumber([&] { return value.int16(); }), error_number::overflow);
    }
}

TEST(ValueView, TextConvertsAsANumberIsWritten) {
    EXPECT_EQ(text(u"3000000000").int64(), 3000000000);
    EXPECT_EQ(errorNumber([] { return null().int64(); }), error_number::invalidUseOfNull);
    EXPECT_EQ(text(u" 12 ").int32(), 12);
    EXPECT_EQ(text(u"2.5").int16(), 2);
    EXPECT_EQ(errorNumber([] { return text(u"").int32(); }), error_number::typeMismatch);
    EXPECT_EQ(errorNumber([] { return text(u"x").int16(); }), error_number::typeMismatch);
    EXPECT_EQ(errorNumber([] { return text(u"2147483648").int32(); }), error_number::overflow);
    EXPECT_EQ(errorNumber([] { return text(u"32768").int16(); }), error_number::overflow);
}

TEST(ValueView, NullIsNoNumber) {
    EXPECT_EQ(errorNumber([] { return null().int32(); }), error_number::invalidUseOfNull);
    EXPECT_EQ(errorNumber([] { return null().int16(); }), error_number::invalidUseOfNull);
}

} // namespace
