#include "tests/windows/DateDialogFixture.h"
#include "tests/windows/EditorRows.h"

namespace kvex::test {
namespace {

TEST_F(DateDialog, ShowsItsCaptionsAndTabOrder) {
    playDialog(stored, [](User &user) {
        EXPECT_EQ(user.window().caption(), u"Select Date/Time Range");
        EXPECT_EQ(user.get<Label>(u"Label1").caption(), u"Message is received between");
        EXPECT_EQ(user.get<Label>(u"lblTime").caption(), u"and");
        EXPECT_EQ(user.get<CommandButton>(u"cmdOK").caption(), u"&OK");
        EXPECT_EQ(user.get<CommandButton>(u"cmdCancel").caption(), u"&Cancel");
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"FromDate", u"FromTime", u"ToDate", u"ToTime", u"cmdOK", u"cmdCancel"}));
        EXPECT_EQ(user.focused(), u"FromDate");
        user.press(Key::escape);
    });
}

TEST_F(DateDialog, ANewRangeHoldsNoValueAndItsTimesWaitForTheirDates) {
    playDialog(u"", [](User &user) {
        for (const RangeEnd &at : {start, end}) {
            EXPECT_FALSE(hasValue(user, at.date));
            EXPECT_TRUE(enabled(user, at.date));
            EXPECT_FALSE(hasValue(user, at.time));
            EXPECT_FALSE(enabled(user, at.time));
        }
        EXPECT_EQ(user.tabOrder(), (Texts{u"FromDate", u"ToDate", u"cmdOK", u"cmdCancel"}));
        user.press(Key::escape);
    });
    EXPECT_FALSE(session().blnChanged);
    EXPECT_EQ(range(), u"");
}

TEST_F(DateDialog, ADateTickedInANewRangeIsTodayAndItsTimeThatOfAWholeDay) {
    playDialog(u"", [this](User &user) {
        for (const RangeEnd &at : {start, end}) {
            user.tickPicker(at.date, true);
            EXPECT_TRUE(hasValue(user, at.date));
            expectToday(dateOf(user, at));
            EXPECT_TRUE(enabled(user, at.time));
            EXPECT_TRUE(hasValue(user, at.time));
            EXPECT_EQ(timeOf(user, at), at.timeAtFirst);
            EXPECT_TRUE(std::exchange(session().blnChanged, false));
        }
        user.press(Key::escape);
    });
}

TEST_F(DateDialog, TheTwoEndsAreTickedApart) {
    playDialog(u"", [](User &user) {
        user.tickPicker(u"ToDate", true);
        EXPECT_FALSE(hasValue(user, u"FromDate"));
        EXPECT_FALSE(hasValue(user, u"FromTime"));
        EXPECT_FALSE(enabled(user, u"FromTime"));
        user.tickPicker(u"FromDate", true);
        user.tickPicker(u"ToDate", false);
        EXPECT_TRUE(hasValue(user, u"FromTime"));
        EXPECT_TRUE(enabled(user, u"FromTime"));
        EXPECT_FALSE(enabled(user, u"ToTime"));
        user.press(Key::escape);
    });
}

TEST_F(DateDialog, AnUntickedDateEmptiesAndDisablesItsTime) {
    playDialog(stored, [](User &user) {
        for (const RangeEnd &at : {start, end}) {
            user.tickPicker(at.date, false);
            EXPECT_FALSE(hasValue(user, at.time));
            EXPECT_FALSE(enabled(user, at.time));
            EXPECT_TRUE(std::exchange(session().blnChanged, false));
        }
        user.press(Key::escape);
    });
}

TEST_F(DateDialog, ADateUntickedAndTickedAgainRestoresItsDateAndItsTime) {
    playDialog(u"", [](User &user) {
        for (const RangeEnd &at : {start, end}) {
            user.tickPicker(at.date, true);
            pick(user, at, {2004, 5, 14}, {8, 9, 10});
            user.tickPicker(at.date, false);
            user.tickPicker(at.date, true);
            EXPECT_EQ(dateOf(user, at), (Date{2004, 5, 14}));
            EXPECT_TRUE(hasValue(user, at.time));
            EXPECT_TRUE(enabled(user, at.time));
            EXPECT_EQ(timeOf(user, at), (Time{8, 9, 10}));
        }
        user.press(Key::escape);
    });
}

TEST_F(DateDialog, TheTimeOfAStoredRangeIsRestoredToo) {
    playDialog(stored, [](User &user) {
        for (const RangeEnd &at : {start, end}) {
            user.tickPicker(at.date, false);
            user.tickPicker(at.date, true);
        }
        EXPECT_EQ(timeOf(user, start), (Time{8, 30, 0}));
        EXPECT_EQ(timeOf(user, end), (Time{17, 0, 0}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(range(), stored);
}

TEST_F(DateDialog, EveryChangeOfADateBringsBackTheTimePutAsideLast) {
    playDialog(u"", [](User &user) {
        for (const RangeEnd &at : {start, end}) {
            user.tickPicker(at.date, true);
            user.pickTime(at.time, 8, 9, 10);
            pick(user, at, {2004, 5, 14});
            EXPECT_EQ(timeOf(user, at), at.timeAtFirst);

            user.tickPicker(at.time, false);
            pick(user, at, {2004, 5, 15});
            EXPECT_TRUE(hasValue(user, at.time));
            EXPECT_EQ(timeOf(user, at), at.timeAtFirst);
        }
        user.press(Key::escape);
    });
}

TEST_F(DateDialog, WithNoTimePutAsideAChangeOfADateLeavesItsTimeAlone) {
    playDialog(stored, [](User &user) {
        pick(user, start, {2004, 5, 15});
        EXPECT_EQ(timeOf(user, start), (Time{8, 30, 0}));
        pick(user, end, {2004, 5, 21});
        EXPECT_EQ(timeOf(user, end), (Time{17, 0, 0}));
        for (const RangeEnd &at : {start, end}) {
            user.tickPicker(at.time, false);
            pick(user, at, {2004, 5, 16});
            EXPECT_FALSE(hasValue(user, at.time));
            EXPECT_TRUE(enabled(user, at.time));
        }
        user.press(Key::escape);
    });
}

TEST_F(DateDialog, AnEmptyTimeIsNotPutAside) {
    playDialog(stored, [](User &user) {
        for (const RangeEnd &at : {start, end}) {
            user.tickPicker(at.time, false);
            user.tickPicker(at.date, false);
            EXPECT_FALSE(enabled(user, at.time));
            user.tickPicker(at.date, true);
            EXPECT_FALSE(hasValue(user, at.time));
            EXPECT_TRUE(enabled(user, at.time));
        }
        user.press(Key::escape);
    });
    playDialog(u"", [](User &user) {
        for (const RangeEnd &at : {start, end}) {
            user.tickPicker(at.date, true);
            user.pickTime(at.time, 8, 9, 10);
            user.tickPicker(at.time, false);
            user.tickPicker(at.date, false);
            user.tickPicker(at.date, true);
            EXPECT_EQ(timeOf(user, at), at.timeAtFirst);
        }
        user.press(Key::escape);
    });
}

TEST_F(DateDialog, AFreshOpeningKnowsNothingOfTheTimesPutAsideBefore) {
    const auto untickAfterPicking = [](User &user) {
        user.tickPicker(u"FromDate", true);
        user.pickTime(u"FromTime", 8, 9, 10);
        user.tickPicker(u"FromDate", false);
        user.press(Key::escape);
    };
    const auto tick = [](User &user) {
        EXPECT_FALSE(hasValue(user, u"FromDate"));
        user.tickPicker(u"FromDate", true);
        EXPECT_EQ(timeOf(user, start), (Time{0, 0, 0}));
        user.press(Key::escape);
    };
    playEditor({untickAfterPicking, tick}, [](User &editor) {
        editor.tickRow(conditions, row::withinDates);
        editor.click(u"cmdEditCondition");
        editor.click(u"cmdEditCondition");
        editor.press(Key::escape);
    });
}

TEST_F(DateDialog, EveryPickerSetsTheChangeFlag) {
    playDialog(stored, [](User &user) {
        const auto changed = [] { return std::exchange(session().blnChanged, false); };
        EXPECT_FALSE(changed());
        pick(user, start, {2004, 5, 13});
        EXPECT_TRUE(changed());
        user.pickTime(u"FromTime", 1, 2, 3);
        EXPECT_TRUE(changed());
        pick(user, end, {2004, 5, 21});
        EXPECT_TRUE(changed());
        user.pickTime(u"ToTime", 1, 2, 3);
        EXPECT_TRUE(changed());
        for (const char16_t *name : {u"FromTime", u"ToTime"}) {
            user.tickPicker(name, false);
            EXPECT_TRUE(changed());
        }
        user.press(Key::escape);
    });
}

TEST_F(DateDialog, ChangingATimeChangesNothingElse) {
    playDialog(stored, [](User &user) {
        user.pickTime(u"FromTime", 1, 2, 3);
        user.tickPicker(u"ToTime", false);
        EXPECT_EQ(dateOf(user, start), (Date{2004, 5, 14}));
        EXPECT_EQ(dateOf(user, end), (Date{2004, 5, 20}));
        EXPECT_TRUE(hasValue(user, u"ToDate"));
        EXPECT_TRUE(enabled(user, u"ToTime"));
        user.press(Key::escape);
    });
}

} // namespace
} // namespace kvex::test
