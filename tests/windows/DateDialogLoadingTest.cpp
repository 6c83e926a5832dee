#include "tests/windows/DateDialogFixture.h"

#include <optional>

namespace kvex::test {
namespace {

const std::u16string loadFailed = u"Sub: Form_Load, Module: frmRuleDate";

TEST_F(DateDialog, MonthEndsLeapDaysAndTheOutermostDaysAreShown) {
    for (const Date &date : edges) {
        const std::u16string both = digitsOf(date) + u" 23:59:59," + digitsOf(date) + u" 23:59:59";
        playDialog(both, [&](User &user) {
            for (const RangeEnd &at : {start, end}) {
                EXPECT_EQ(dateOf(user, at), date);
                EXPECT_EQ(timeOf(user, at), (Time{23, 59, 59}));
            }
            user.click(u"cmdOK");
        });
        EXPECT_EQ(range(), both);
    }
}

TEST_F(DateDialog, AStoredRangeIsShownWithItsPickersEnabled) {
    playDialog(stored, [](User &user) {
        EXPECT_EQ(dateOf(user, start), (Date{2004, 5, 14}));
        EXPECT_EQ(timeOf(user, start), (Time{8, 30, 0}));
        EXPECT_EQ(dateOf(user, end), (Date{2004, 5, 20}));
        EXPECT_EQ(timeOf(user, end), (Time{17, 0, 0}));
        for (const char16_t *name : {u"FromDate", u"FromTime", u"ToDate", u"ToTime"}) {
            EXPECT_TRUE(hasValue(user, name));
            EXPECT_TRUE(enabled(user, name));
        }
        user.press(Key::escape);
    });
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(DateDialog, WhatFollowsTheSecondsOfTheEndIsNotRead) {
    playDialog(stored + u",20300101 00:00:00", [](User &user) {
        EXPECT_EQ(dateOf(user, end), (Date{2004, 5, 20}));
        EXPECT_EQ(timeOf(user, end), (Time{17, 0, 0}));
        user.press(Key::escape);
    });
}

/// A stored range that cannot be read whole, and what is shown of it.
struct Unreadable {
    const char *name;
    std::u16string range;
    int error;
    /// The date that is shown; no date means today.
    std::optional<Date> from = {};
    Time fromTime = start.timeAtFirst;
    std::optional<Date> to = {};
    Time toTime = end.timeAtFirst;
};

const Date read{2004, 5, 14};
constexpr int mismatch = 13, overflow = 6, invalid = 380;

const Unreadable unreadable[] = {
    {"no start time", u"20040514 ,20040520 17:00:00", mismatch, read},
    {"no start time nor blank", u"20040514,20040520 17:00:00", mismatch, read},
    {"no minute", u"20040514 08,20040520 17:00:00", mismatch, read, {8, 0, 0}},
    {"no second", u"20040514 08:30:,20040520 17:00:00", mismatch, read, {8, 30, 0}},
    {"one digit of the hour", u"20040514 8:30:00,20040520 17:00:00", mismatch, read},
    {"no end time", u"20040514 08:30:15,20040520 ", mismatch, read, {8, 30, 15}, Date{2004, 5, 20}},
    {"no end", u"20040514 08:30:15,", mismatch, read, {8, 30, 15}},
    {"no start", u",20040520 17:00:00", mismatch},
    {"no comma", u"20040514 08:30:00", mismatch},
    {"letters", u"yesterday,today", mismatch},
    {"a letter in the month", u"2004x514 08:30:00,20040520 17:00:00", mismatch},
    {"half a date", u"200405,20040520 17:00:00", mismatch},
    {"a year too large for a number", u"9e99 08:30:00,20040520 17:00:00", overflow},
    {"year 1899", u"18991231 23:59:59,20040520 17:00:00", invalid},
    {"year 3001", u"20040514 08:30:15,30010101 00:00:00", invalid, read, {8, 30, 15}},
    {"month 13", u"20041301 08:30:00,20040520 17:00:00", invalid},
    {"month 0", u"20040001 08:30:00,20040520 17:00:00", invalid},
    {"day 0", u"20040500 08:30:00,20040520 17:00:00", invalid},
    {"31 April", u"20040431 08:30:00,20040520 17:00:00", invalid},
    {"30 February", u"20040514 08:30:15,20240230 17:00:00", invalid, read, {8, 30, 15}},
    {"29 February 1900", u"19000229 08:30:00,20040520 17:00:00", invalid},
    {"29 February 2023", u"20230229 08:30:00,20040520 17:00:00", invalid},
    {"29 February 2100", u"21000229 08:30:00,21000301 17:00:00", invalid},
    {"hour 24", u"20040514 24:00:00,20040520 17:00:00", invalid, read},
    {"minute 60", u"20040514 08:60:00,20040520 17:00:00", invalid, read, {8, 0, 0}},
    {"second 60", u"20040514 08:30:60,20040520 17:00:00", invalid, read, {8, 30, 0}},
    {"end's second 60",
     u"20040514 08:30:15,20040520 17:01:60",
     invalid,
     read,
     {8, 30, 15},
     Date{2004, 5, 20},
     {17, 1, 59}},
};

TEST_F(DateDialog, ARangeThatCannotBeReadIsLoggedAndShownAsFarAsItCan) {
    for (const Unreadable &row : unreadable) {
        SCOPED_TRACE(row.name);
        playDialog(row.range, [&](User &user) {
            expectLog({loadFailed});
            EXPECT_EQ(logged.back().number, row.error);
            const auto expectDate = [&](const RangeEnd &at, const std::optional<Date> &date) {
                if (date) {
                    EXPECT_EQ(dateOf(user, at), *date);
                } else {
                    expectToday(dateOf(user, at));
                }
            };
            expectDate(start, row.from);
            EXPECT_EQ(timeOf(user, start), row.fromTime);
            expectDate(end, row.to);
            EXPECT_EQ(timeOf(user, end), row.toTime);
            for (const char16_t *name : {u"FromDate", u"FromTime", u"ToDate", u"ToTime"}) {
                EXPECT_TRUE(hasValue(user, name));
                EXPECT_TRUE(enabled(user, name));
            }
            user.press(Key::escape);
        });
        // The editor may have logged an error of its own when it described the range.
        utility.log.clear();
        EXPECT_EQ(range(), row.range);
        EXPECT_FALSE(session().blnChanged);
    }
}

TEST_F(DateDialog, ARangeThatCouldNotBeReadIsWrittenAnewByOk) {
    playDialog(u"20040514 ,20040520 17:00:00", [](User &user) {
        pick(user, end, {2004, 5, 21});
        user.click(u"cmdOK");
    });
    EXPECT_EQ(range(), u"20040514 00:00:00,20040521 23:59:59");
    expectLog({loadFailed});
}

} // namespace
} // namespace kvex::test
