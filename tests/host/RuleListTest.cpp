#include "host/kvexrules/RuleList.h"

#include "host/kvexrules/Failure.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

TEST(RuleId, LosesItsLeadingZeros) {
    EXPECT_EQ(ruleId("7"), "7");
    EXPECT_EQ(ruleId("007"), "7");
    EXPECT_EQ(ruleId("-1"), "-1");
}

TEST(RuleId, MustBeANumber) {
    for (const char *text : {"", "a", "7a", " 7", "+7", "1.5", "99999999999999999999"}) {
        EXPECT_THROW(static_cast<void>(ruleId(text)), Failure) << text;
    }
}

} // namespace
} // namespace kvex::host
