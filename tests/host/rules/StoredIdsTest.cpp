#include "host/rules/StoredIds.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace kvex::host {
namespace {

TEST(StoredIds, AreNumbersOf32Bits) {
    EXPECT_EQ(idOf(u"7"), 7);
    EXPECT_EQ(idOf(u" 007 "), 7);
    EXPECT_EQ(idOf(u"-2147483648"), -2147483648);
    EXPECT_EQ(idOf(u"2147483648"), std::nullopt);
    EXPECT_EQ(idOf(u"1e400"), std::nullopt);
    EXPECT_EQ(idOf(u"7x"), std::nullopt);
    EXPECT_EQ(idOf(u""), std::nullopt);
}

TEST(StoredIds, OfADocumentAreNumbersWhereTheyCanBe) {
    EXPECT_EQ(idJson(u"12").dump(), "12");
    EXPECT_EQ(idJson(u"-9223372036854775808").dump(), "-9223372036854775808");
    EXPECT_EQ(idJson(u"9223372036854775808").dump(), R"("9223372036854775808")");
    EXPECT_EQ(idJson(u"12x").dump(), R"("12x")");
    EXPECT_EQ(idJson(u"x").dump(), R"("x")");
    EXPECT_EQ(idJson(u"").dump(), R"("")");
}

} // namespace
} // namespace kvex::host
