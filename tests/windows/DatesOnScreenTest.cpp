#include "tests/windows/DatesOnScreen.h"
#include "platform/Text.h"

namespace kvex::test {
namespace {

TEST_P(DatesOnScreen, AStoredRangeIsShownAndEscLeavesItAlone) {
    playDialog(stored, [](OnScreenUser &user) {
        EXPECT_EQ(user.window().caption(), u"Select Date/Time Range");
        EXPECT_EQ(dateOf(user, u"FromDate"), (Numbers{2004, 5, 14}));
        EXPECT_EQ(timeOf(user, u"FromTime"), (Numbers{8, 30, 0}));
        EXPECT_EQ(dateOf(user, u"ToDate"), (Numbers{2004, 5, 20}));
        EXPECT_EQ(timeOf(user, u"ToTime"), (Numbers{17, 0, 0}));
        user.press(Key::escape);
    });
    EXPECT_EQ(range(), stored);
}

TEST_P(DatesOnScreen, ANewRangeIsTickedAndTyped) {
    playDialog(u"", [](OnScreenUser &user) {
        EXPECT_EQ(user.focused(), u"FromDate");
        user.tickPicker(u"FromDate", true);
        user.pickDate(u"FromDate", 2004, 5, 14);
        user.pickTime(u"FromTime", 8, 30, 0);
        user.tickPicker(u"ToDate", true);
        user.pickDate(u"ToDate", 2004, 5, 20);
        user.pickTime(u"ToTime", 17, 0, 0);
        user.press(Key::enter);
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(range(), stored);
    EXPECT_EQ(utility.messages, std::vector<Message>());
}

TEST_P(DatesOnScreen, ARangeThatCannotBeReadIsLoggedAndShownAsFarAsItCan) {
    playDialog(u"20040514 ,20040520 17:00:00", [this](OnScreenUser &user) {
        EXPECT_EQ(utility.logTexts(),
                  Texts{u"KVEXMessageRules: Error occured. Sub: Form_Load, Module: frmRuleDate"});
        utility.log.clear();
        EXPECT_EQ(dateOf(user, u"FromDate"), (Numbers{2004, 5, 14}));
        EXPECT_EQ(timeOf(user, u"FromTime"), (Numbers{0, 0, 0}));
        EXPECT_EQ(timeOf(user, u"ToTime"), (Numbers{23, 59, 59}));
        user.press(Key::escape);
    });
}

TEST_P(DatesOnScreen, WithoutADateTheTimeIsEmptyAndWaitsForIt) {
    playDialog(u"", [](OnScreenUser &user) {
        for (const auto &[date, time] :
             {std::pair(u"FromDate", u"FromTime"), std::pair(u"ToDate", u"ToTime")}) {
            EXPECT_FALSE(hasValue(user, date));
            EXPECT_TRUE(user.isUsable(date));
            EXPECT_FALSE(hasValue(user, time));
            EXPECT_FALSE(user.isUsable(time));
            EXPECT_NE(user.waitsFor(time), u"");
            user.tickPicker(date, true);
            EXPECT_TRUE(user.isUsable(time));
            EXPECT_TRUE(hasValue(user, time));
            EXPECT_EQ(user.waitsFor(time), u"");
        }
        EXPECT_EQ(timeOf(user, u"FromTime"), (Numbers{0, 0, 0}));
        EXPECT_EQ(timeOf(user, u"ToTime"), (Numbers{23, 59, 59}));
        user.press(Key::escape);
    });
}

TEST_P(DatesOnScreen, ADateTickedAgainBringsItsTimeBack) {
    playDialog(u"", [](OnScreenUser &user) {
        user.tickPicker(u"FromDate", true);
        user.pickTime(u"FromTime", 8, 9, 10);
        user.tickPicker(u"FromDate", false);
        EXPECT_FALSE(hasValue(user, u"FromTime"));
        EXPECT_FALSE(user.isUsable(u"FromTime"));
        user.tickPicker(u"FromDate", true);
        EXPECT_EQ(timeOf(user, u"FromTime"), (Numbers{8, 9, 10}));
        EXPECT_TRUE(user.isUsable(u"FromTime"));
        user.press(Key::escape);
    });
}

TEST_P(DatesOnScreen, MonthEndsLeapDaysAndTheOutermostDaysAreTyped) {
    const Numbers days[] = {{2024, 1, 29}, {2024, 1, 30}, {2024, 1, 31},  {2024, 4, 30},
                            {2024, 5, 31}, {2024, 2, 29}, {2023, 2, 28},  {2000, 2, 29},
                            {1900, 2, 28}, {2100, 2, 28}, {2999, 12, 31}, {1900, 1, 1},
                            {3000, 12, 31}};
    for (const auto &[year, month, day] : days) {
        playDialog(stored, [year = year, month = month, day = day](OnScreenUser &user) {
            for (const auto *picker : {u"FromDate", u"ToDate"}) {
                user.pickDate(picker, year, month, day);
            }
            user.press(Key::enter);
        });
        const std::u16string written = toText(std::int64_t{year * 10'000 + month * 100 + day});
        EXPECT_EQ(range(), written + u" 08:30:00," + written + u" 17:00:00");
        closeSession();
    }
}

TEST_P(DatesOnScreen, ARefusedRangeMovesTheFocusToTheEndAndIsPutRightThere) {
    playDialog(stored, [](OnScreenUser &user) {
        user.pickDate(u"ToDate", 2004, 5, 13);
        user.click(u"cmdOK");
        EXPECT_EQ(user.focused(), u"ToDate");
        user.pickDate(u"ToDate", 2004, 5, 14);
        user.pickTime(u"ToTime", 8, 29, 59);
        user.pressAccessKey(u'O');
        EXPECT_EQ(user.focused(), u"ToTime");
        user.pickTime(u"ToTime", 8, 30, 0);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(utility.messages,
              (std::vector<Message>{{u"To Date cannot be less than From Date.", 48},
                                    {u"You have selected to define the filter for a single day."
                                     u"In such case 'To Time' cannot be less than 'From Time'",
                                     48}}));
    EXPECT_EQ(range(), u"20040514 08:30:00,20040514 08:30:00");
}

TEST_P(DatesOnScreen, EscTheAccessKeyAndTheFrameLeaveTheRangeAlone) {
    const OnScreen ways[] = {[](OnScreenUser &user) { user.press(Key::escape); },
                             [](OnScreenUser &user) { user.pressAccessKey(u'C'); },
                             [](OnScreenUser &user) { user.closeByFrame(); }};
    for (const OnScreen &leave : ways) {
        playDialog(stored, [&leave](OnScreenUser &user) {
            user.pickDate(u"FromDate", 2001, 1, 1);
            leave(user);
        });
        EXPECT_EQ(range(), stored);
        EXPECT_TRUE(session().blnChanged);
        closeSession();
    }
}

TEST_P(DatesOnScreen, TabReachesThePickersThatTheUserCanUse) {
    playDialog(stored, [](OnScreenUser &user) {
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"FromDate", u"FromTime", u"ToDate", u"ToTime", u"cmdOK", u"cmdCancel"}));
        user.press(Key::escape);
    });
    closeSession();
    playDialog(u"", [](OnScreenUser &user) {
        EXPECT_EQ(user.tabOrder(), (Texts{u"FromDate", u"ToDate", u"cmdOK", u"cmdCancel"}));
        user.press(Key::escape);
    });
}

TEST_P(DatesOnScreen, ARuleIsSavedWithTheRangeTyped) {
    play.whenShown(u"frmRuleEdit", [](OnScreenUser &editor) {
        editor.tickRow(conditions, row::withinDates);
        editor.click(u"cmdEditCondition");
        EXPECT_EQ(description(editor),
                  u"Apply this Rule after the message arrives\r\nIf the message is received "
                  u"between 29/02/2024 00:00:00 Hrs. to 31/03/2024 23:59:59 Hrs.");
        editor.tickRow(actions, row::noMoreRules);
        editor.click(u"cmdOK");
    });
    play.whenShown(u"frmRuleDate", [](OnScreenUser &user) {
        user.tickPicker(u"FromDate", true);
        user.pickDate(u"FromDate", 2024, 2, 29);
        user.tickPicker(u"ToDate", true);
        user.pickDate(u"ToDate", 2024, 3, 31);
        user.click(u"cmdOK");
    });
    play.whenShown(u"frmRules", [](OnScreenUser &user) { user.press(Key::enter); });
    showRules(u"");
    EXPECT_EQ(database.value("SELECT QueryParam FROM SMS_RULES WHERE ID = 4"),
              "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE>"
              "<DATETIME>20240229 00:00:00,20240331 23:59:59</DATETIME>");
}

} // namespace
} // namespace kvex::test
