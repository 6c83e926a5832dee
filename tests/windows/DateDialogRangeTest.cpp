#include "tests/windows/DateDialogFixture.h"

namespace kvex::test {
namespace {

constexpr std::int32_t warning = 48;
const std::u16string noRange = u"Please select a valid date range.";
const std::u16string endBeforeStart = u"To Date cannot be less than From Date.";
const std::u16string timesOnOneDay = u"You have selected to define the filter for a single day."
                                     u"In such case 'To Time' cannot be less than 'From Time'";

class DateDialogRange : public DateDialog {
protected:
    /// OK shows this message and the dialog stays open. The focus stays, or moves to `focus`.
    void expectRefused(User &user, const std::u16string &message,
                       const std::u16string &focus = u"cmdOK") {
        const std::u16string before = range();
        user.click(u"cmdOK");
        expectMessages({{message, warning}});
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(user.focused(), focus);
        EXPECT_EQ(range(), before);
    }
    /// OK writes this range.
    void expectWritten(const Script &choose, const std::u16string &written) {
        playDialog(u"", [&](User &user) {
            choose(user);
            user.click(u"cmdOK");
            EXPECT_FALSE(user.isOpen());
        });
        expectMessages({});
        EXPECT_EQ(range(), written);
    }
};

TEST_F(DateDialogRange, NeedsAStartAndAnEnd) {
    playDialog(u"", [this](User &user) {
        expectRefused(user, noRange);
        user.tickPicker(u"ToDate", true);
        expectRefused(user, noRange);
        user.tickPicker(u"FromDate", true);
        user.tickPicker(u"ToDate", false);
        expectRefused(user, noRange);
        user.press(Key::escape);
    });
    EXPECT_EQ(range(), u"");
}

TEST_F(DateDialogRange, AStoredRangeCannotBeEmptied) {
    playDialog(stored, [this](User &user) {
        user.tickPicker(u"FromDate", false);
        expectRefused(user, noRange);
        user.tickPicker(u"ToDate", false);
        expectRefused(user, noRange);
        user.tickPicker(u"FromDate", true);
        expectRefused(user, noRange);
        user.press(Key::escape);
    });
    EXPECT_EQ(range(), stored);
    EXPECT_TRUE(session().blnChanged);
}

TEST_F(DateDialogRange, TheEndMayNotBeADayBeforeTheStart) {
    playDialog(stored, [this](User &user) {
        pick(user, end, {2004, 5, 13}, {23, 59, 59});
        expectRefused(user, endBeforeStart, u"ToDate");
        pick(user, end, {2003, 12, 31});
        expectRefused(user, endBeforeStart, u"ToDate");
        user.press(Key::escape);
    });
    EXPECT_EQ(range(), stored);
}

TEST_F(DateDialogRange, OnOneDayTheEndMayNotBeBeforeTheStart) {
    playDialog(stored, [this](User &user) {
        pick(user, start, {2004, 5, 14}, {23, 0, 0});
        pick(user, end, {2004, 5, 14}, {1, 0, 0});
        expectRefused(user, timesOnOneDay, u"ToTime");
        pick(user, end, {2004, 5, 14}, {22, 59, 59});
        expectRefused(user, timesOnOneDay, u"ToTime");
        user.press(Key::escape);
    });
}

TEST_F(DateDialogRange, OnOneDayAnEmptyEndTimeIsBeforeAnyStartTime) {
    playDialog(stored, [this](User &user) {
        pick(user, start, {2004, 5, 14}, {0, 0, 0});
        pick(user, end, {2004, 5, 14});
        user.tickPicker(u"ToTime", false);
        expectRefused(user, timesOnOneDay, u"ToTime");
        EXPECT_FALSE(hasValue(user, u"ToTime"));
        user.press(Key::escape);
    });
}

TEST_F(DateDialogRange, TheMessageIsShownBeforeTheFocusMoves) {
    std::u16string focusedThen;
    playDialog(stored, [&](User &user) {
        utility.onMessage = [&] { focusedThen = user.focused(); };
        pick(user, end, {2004, 5, 13});
        expectRefused(user, endBeforeStart, u"ToDate");
        EXPECT_EQ(focusedThen, u"cmdOK");
        pick(user, end, {2004, 5, 14}, {8, 29, 59});
        expectRefused(user, timesOnOneDay, u"ToTime");
        EXPECT_EQ(focusedThen, u"cmdOK");
        user.press(Key::escape);
    });
}

TEST_F(DateDialogRange, ARefusedRangeCanBePutRight) {
    playDialog(u"", [this](User &user) {
        expectRefused(user, noRange);
        pick(user, start, {2004, 5, 14}, {8, 30, 0});
        expectRefused(user, noRange);
        pick(user, end, {2004, 5, 13}, {17, 0, 0});
        expectRefused(user, endBeforeStart, u"ToDate");
        pick(user, end, {2004, 5, 14}, {8, 29, 59});
        expectRefused(user, timesOnOneDay, u"ToTime");
        user.pickTime(u"ToTime", 8, 30, 1);
        user.press(Key::enter);
    });
    EXPECT_EQ(range(), u"20040514 08:30:00,20040514 08:30:01");
}

TEST_F(DateDialogRange, OnDifferentDaysTheTimesMayStandTheOtherWayRound) {
    expectWritten(
        [](User &user) {
            pick(user, start, {2004, 5, 14}, {23, 0, 0});
            pick(user, end, {2004, 5, 15}, {1, 0, 0});
        },
        u"20040514 23:00:00,20040515 01:00:00");
}

TEST_F(DateDialogRange, OneMomentIsARange) {
    expectWritten(
        [](User &user) {
            pick(user, start, {2004, 5, 14}, {23, 0, 0});
            pick(user, end, {2004, 5, 14}, {23, 0, 0});
        },
        u"20040514 23:00:00,20040514 23:00:00");
}

TEST_F(DateDialogRange, ANewRangeCoversWholeDays) {
    expectWritten(
        [](User &user) {
            pick(user, start, {2004, 5, 14});
            pick(user, end, {2004, 5, 14});
        },
        u"20040514 00:00:00,20040514 23:59:59");
}

TEST_F(DateDialogRange, ATimeEmptiedAfterARefusalIsWrittenAsNothing) {
    playDialog(u"", [this](User &user) {
        pick(user, start, {2004, 5, 14}, {8, 30, 0});
        pick(user, end, {2004, 5, 14}, {8, 29, 59});
        expectRefused(user, timesOnOneDay, u"ToTime");
        user.tickPicker(u"FromTime", false);
        user.tickPicker(u"ToTime", false);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(range(), u"20040514 ,20040514 ");
}

TEST_F(DateDialogRange, AnEmptyTimeIsWrittenAsNothing) {
    const auto withoutTimes = [](Date to, const std::vector<const char16_t *> &empty) {
        return [=](User &user) {
            pick(user, start, {2004, 5, 14}, {8, 30, 0});
            pick(user, end, to, {17, 0, 0});
            for (const char16_t *time : empty) {
                user.tickPicker(time, false);
            }
        };
    };
    const Date later{2004, 5, 20};
    const Date sameDay{2004, 5, 14};
    expectWritten(withoutTimes(later, {u"FromTime"}), u"20040514 ,20040520 17:00:00");
    expectWritten(withoutTimes(later, {u"ToTime"}), u"20040514 08:30:00,20040520 ");
    expectWritten(withoutTimes(later, {u"FromTime", u"ToTime"}), u"20040514 ,20040520 ");
    expectWritten(withoutTimes(sameDay, {u"FromTime"}), u"20040514 ,20040514 17:00:00");
    expectWritten(withoutTimes(sameDay, {u"FromTime", u"ToTime"}), u"20040514 ,20040514 ");
}

TEST_F(DateDialogRange, EveryPartIsWrittenWithAllItsDigits) {
    expectWritten(
        [](User &user) {
            pick(user, start, {2004, 1, 2}, {3, 4, 5});
            pick(user, end, {2004, 11, 12}, {13, 14, 15});
        },
        u"20040102 03:04:05,20041112 13:14:15");
}

TEST_F(DateDialogRange, MonthEndsLeapDaysAndTheOutermostDaysAreWritten) {
    for (const Date &date : edges) {
        expectWritten(
            [&date](User &user) {
                pick(user, start, date);
                pick(user, end, date);
            },
            digitsOf(date) + u" 00:00:00," + digitsOf(date) + u" 23:59:59");
    }
}

} // namespace
} // namespace kvex::test
