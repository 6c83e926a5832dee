// Moments that users write.
#include "host/matching/Moment.h"

#include "tests/host/EnvironmentVariables.h"

#include <gtest/gtest.h>

#include <ctime>
#include <optional>

namespace kvex::host {
namespace {

TEST(Moment, IsLocalWithoutATimeZone) {
    EXPECT_EQ(momentFrom("2024-03-01 09:05:07"), u"20240301 09:05:07");
    EXPECT_EQ(momentFrom("2024-03-01T09:05:07"), u"20240301 09:05:07");
}

TEST(Moment, MayLeaveOutSecondsAndTheirFraction) {
    EXPECT_EQ(momentFrom("2024-03-01 09:05"), u"20240301 09:05:00");
    EXPECT_EQ(momentFrom("2024-03-01 09:05:07.999"), u"20240301 09:05:07");
    EXPECT_EQ(momentFrom("2024-03-01 09:05:07,5"), u"20240301 09:05:07");
}

TEST(Moment, IsRefusedInAnyOtherForm) {
    for (const char *text :
         {"", "now", "2024-03-01", "2024-03-01 9:05", "2024-03-01  09:05", "2024-03-01_09:05",
          "2024/03/01 09:05", "20240301 09:05:00", "2024-03-01 09:05:", "2024-03-01 09:05:7",
          "2024-03-01 09:05:07.", "2024-03-01 09:05:07 ", "2024-03-01 09:05X", "2024-03-01 09:05+5",
          "2024-03-01 09:05+0530x", "2024-03-01 09:05+24:00", "2024-03-01 09:05-00:60",
          "2024-03-01 09:05ZZ", "2024-03-0109:05:00Z"}) {
        EXPECT_EQ(momentFrom(text), std::nullopt) << text;
    }
}

TEST(Moment, MustExist) {
    for (const char *text :
         {"2024-02-30 09:05", "2023-02-29 09:05", "2024-13-01 09:05", "2024-00-01 09:05",
          "0000-01-01 09:05", "2024-03-01 24:00", "2024-03-01 09:60", "2024-03-01 09:05:60"}) {
        EXPECT_EQ(momentFrom(text), std::nullopt) << text;
    }
}

class MomentInDelhi : public testing::Test {
protected:
    MomentInDelhi() {
        environment_.emplace().set("TZ", "IST-5:30");
        tzset();
    }
    ~MomentInDelhi() override {
        environment_.reset();
        tzset();
    }

private:
    std::optional<EnvironmentVariables> environment_;
};

TEST_F(MomentInDelhi, BecomesLocalFromATimeZone) {
    EXPECT_EQ(momentFrom("2024-03-01T09:05:07Z"), u"20240301 14:35:07");
    EXPECT_EQ(momentFrom("2024-12-31T23:00Z"), u"20250101 04:30:00");
    EXPECT_EQ(momentFrom("2024-03-01T09:05+05:30"), u"20240301 09:05:00");
    EXPECT_EQ(momentFrom("2024-03-01T00:05-0100"), u"20240301 06:35:00");
}

TEST(MomentRange, HasBothMoments) {
    const auto range = momentRange(u"20240301 09:00:00,20240331 18:30:00");
    ASSERT_TRUE(range);
    EXPECT_EQ(range->start, 20240301090000);
    EXPECT_EQ(range->end, 20240331183000);
    EXPECT_EQ(shownMoment(range->end), u"2024-03-31 18:30:00");
    EXPECT_EQ(shownMoment(momentNumber(u"00010203 04:05:06")), u"0001-02-03 04:05:06");
}

} // namespace
} // namespace kvex::host
