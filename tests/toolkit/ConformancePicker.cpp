#include "tests/toolkit/Conformance.h"

#include "platform/Error.h"

#include <array>
#include <ctime>

namespace kvex::test {
namespace {

using Date = std::array<int, 3>;
using Time = std::array<int, 3>;

ControlDesign datePicker() {
    ControlDesign design = control(ControlKind::datePicker, u"dtp");
    design.format = u"dd/MM/yyyy";
    return design;
}

ControlDesign timePicker() {
    ControlDesign design = control(ControlKind::timePicker, u"dtpTime");
    design.format = u"HH:mm:ss";
    design.hour = 23;
    design.minute = 59;
    design.second = 58;
    return design;
}

Date dateOf(const DTPicker &picker) {
    return {picker.year(), picker.month(), picker.day()};
}

Time timeOf(const DTPicker &picker) {
    return {picker.hour(), picker.minute(), picker.second()};
}

Date today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

/// The date that `read` gives is today. Should midnight pass meanwhile, either day is right.
template <class Read> void expectToday(const Read &read) {
    const Date earliest = today();
    const Date given = read();
    EXPECT_GE(given, earliest);
    EXPECT_LE(given, today());
}

TEST_P(ToolkitConformance, PickerHoldsTodayAndTheDesignsTimeAtFirst) {
    expectToday([&] {
        const auto shown = window({datePicker(), timePicker()});
        EXPECT_TRUE(shown->get<DTPicker>(u"dtp").hasValue());
        EXPECT_EQ(timeOf(shown->get<DTPicker>(u"dtp")), (Time{0, 0, 0}));
        EXPECT_TRUE(shown->get<DTPicker>(u"dtpTime").hasValue());
        EXPECT_EQ(timeOf(shown->get<DTPicker>(u"dtpTime")), (Time{23, 59, 58}));
        return dateOf(shown->get<DTPicker>(u"dtp"));
    });
}

TEST_P(ToolkitConformance, PickerSetToTodayKeepsTheTimeOfDay) {
    const auto shown = window({datePicker()});
    auto &picker = shown->get<DTPicker>(u"dtp");
    picker.setDate(1999, 12, 31);
    picker.setTime(1, 2, 3);
    picker.clearValue();
    expectToday([&] {
        picker.setToday();
        return dateOf(picker);
    });
    EXPECT_TRUE(picker.hasValue());
    EXPECT_EQ(timeOf(picker), (Time{1, 2, 3}));
}

TEST_P(ToolkitConformance, PickerHoldsADateAndATimeApart) {
    const auto shown = window({datePicker(), timePicker()});
    for (const auto *name : {u"dtp", u"dtpTime"}) {
        auto &picker = shown->get<DTPicker>(name);
        picker.setDate(2004, 5, 14);
        picker.setTime(8, 30, 15);
        EXPECT_EQ(dateOf(picker), (Date{2004, 5, 14}));
        EXPECT_EQ(timeOf(picker), (Time{8, 30, 15}));
        picker.setDate(2005, 6, 15);
        EXPECT_EQ(timeOf(picker), (Time{8, 30, 15}));
        picker.setTime(0, 0, 0);
        EXPECT_EQ(dateOf(picker), (Date{2005, 6, 15}));
    }
}

TEST_P(ToolkitConformance, PickerTakesDatesFrom1900To3000) {
    const auto shown = window({datePicker()});
    auto &picker = shown->get<DTPicker>(u"dtp");
    for (const Date date : {Date{1900, 1, 1}, Date{3000, 12, 31}, Date{2000, 2, 29}}) {
        picker.setDate(date[0], date[1], date[2]);
        EXPECT_EQ(dateOf(picker), date);
    }
}

TEST_P(ToolkitConformance, PickerRefusesADateThatDoesNotExistOrIsOutOfRange) {
    const auto shown = window({datePicker()});
    auto &picker = shown->get<DTPicker>(u"dtp");
    picker.setDate(2004, 5, 14);
    for (const Date date :
         {Date{1899, 12, 31}, Date{3001, 1, 1}, Date{2004, 0, 1}, Date{2004, 13, 1},
          Date{2004, 1, 0}, Date{2004, 1, 32}, Date{2004, 4, 31}, Date{2003, 2, 29},
          Date{1900, 2, 29}, Date{3000, 2, 29}, Date{2004, 2, 30}, Date{2004, -1, 1},
          Date{2004, 1, -1}, Date{-1, 1, 1}, Date{2004, 257, 1}, Date{67540, 1, 1}}) {
        EXPECT_EQ(errorNumber([&] { picker.setDate(date[0], date[1], date[2]); }),
                  error_number::invalidPropertyValue)
            << date[0] << '-' << date[1] << '-' << date[2];
        EXPECT_EQ(dateOf(picker), (Date{2004, 5, 14}));
    }
}

TEST_P(ToolkitConformance, PickerRefusesATimeThatDoesNotExist) {
    const auto shown = window({timePicker()});
    auto &picker = shown->get<DTPicker>(u"dtpTime");
    for (const Time time : {Time{24, 0, 0}, Time{-1, 0, 0}, Time{0, 60, 0}, Time{0, -1, 0},
                            Time{0, 0, 60}, Time{0, 0, -1}}) {
        EXPECT_EQ(errorNumber([&] { picker.setTime(time[0], time[1], time[2]); }),
                  error_number::invalidPropertyValue);
    }
    EXPECT_EQ(errorNumber([&] { picker.setHour(24); }), error_number::invalidPropertyValue);
    EXPECT_EQ(errorNumber([&] { picker.setMinute(60); }), error_number::invalidPropertyValue);
    EXPECT_EQ(errorNumber([&] { picker.setSecond(60); }), error_number::invalidPropertyValue);
    EXPECT_EQ(errorNumber([&] { picker.setSecond(-1); }), error_number::invalidPropertyValue);
    EXPECT_EQ(timeOf(picker), (Time{23, 59, 58}));
}

TEST_P(ToolkitConformance, PickerPartsAreSetOneByOne) {
    const auto shown = window({datePicker(), timePicker()});
    auto &date = shown->get<DTPicker>(u"dtp");
    date.setDate(2001, 1, 1);
    date.setYear(2020);
    date.setMonth(11);
    date.setDay(30);
    EXPECT_EQ(dateOf(date), (Date{2020, 11, 30}));
    auto &time = shown->get<DTPicker>(u"dtpTime");
    time.setHour(0);
    time.setMinute(1);
    time.setSecond(2);
    EXPECT_EQ(timeOf(time), (Time{0, 1, 2}));
}

TEST_P(ToolkitConformance, PickerCutsTheDayToTheLastOfTheMonthOrYearSet) {
    const auto shown = window({datePicker()});
    auto &picker = shown->get<DTPicker>(u"dtp");
    picker.setDate(2004, 1, 31);
    picker.setMonth(4);
    EXPECT_EQ(dateOf(picker), (Date{2004, 4, 30}));
    picker.setDate(2004, 1, 31);
    picker.setMonth(2);
    EXPECT_EQ(dateOf(picker), (Date{2004, 2, 29}));
    picker.setYear(2003);
    EXPECT_EQ(dateOf(picker), (Date{2003, 2, 28}));
    picker.setYear(2004);
    EXPECT_EQ(dateOf(picker), (Date{2004, 2, 28}));
}

TEST_P(ToolkitConformance, PickerRefusesAPartOutOfRangeAndChangesNothing) {
    const auto shown = window({datePicker()});
    auto &picker = shown->get<DTPicker>(u"dtp");
    picker.setDate(2003, 2, 28);
    for (const int year : {1899, 3001, 0, -1}) {
        EXPECT_EQ(errorNumber([&] { picker.setYear(year); }), error_number::invalidPropertyValue);
    }
    for (const int month : {0, 13, -1}) {
        EXPECT_EQ(errorNumber([&] { picker.setMonth(month); }), error_number::invalidPropertyValue);
    }
    for (const int day : {0, 29, 32, -1}) {
        EXPECT_EQ(errorNumber([&] { picker.setDay(day); }), error_number::invalidPropertyValue);
    }
    EXPECT_EQ(dateOf(picker), (Date{2003, 2, 28}));
    picker.clearValue();
    EXPECT_EQ(errorNumber([&] { picker.setDay(29); }), error_number::invalidPropertyValue);
    EXPECT_FALSE(picker.hasValue());
}

TEST_P(ToolkitConformance, PickerWithoutAValueStillGivesThePartsLastHeld) {
    const auto shown = window({datePicker(), timePicker()});
    auto &date = shown->get<DTPicker>(u"dtp");
    date.setDate(2004, 5, 14);
    date.clearValue();
    EXPECT_FALSE(date.hasValue());
    EXPECT_EQ(dateOf(date), (Date{2004, 5, 14}));
    auto &time = shown->get<DTPicker>(u"dtpTime");
    time.clearValue();
    EXPECT_FALSE(time.hasValue());
    EXPECT_EQ(timeOf(time), (Time{23, 59, 58}));
}

TEST_P(ToolkitConformance, PickerPartSetBringsTheValueBack) {
    const auto shown = window({datePicker(), timePicker()});
    auto &date = shown->get<DTPicker>(u"dtp");
    date.setDate(2004, 5, 14);
    date.clearValue();
    date.setMonth(6);
    EXPECT_TRUE(date.hasValue());
    EXPECT_EQ(dateOf(date), (Date{2004, 6, 14}));
    auto &time = shown->get<DTPicker>(u"dtpTime");
    time.clearValue();
    time.setHour(1);
    EXPECT_TRUE(time.hasValue());
    EXPECT_EQ(timeOf(time), (Time{1, 59, 58}));
}

TEST_P(ToolkitConformance, PickerSetByCodeRunsNoHandler) {
    const auto shown = window({datePicker()});
    auto &picker = shown->get<DTPicker>(u"dtp");
    int changes = 0;
    picker.onChange = [&] { ++changes; };
    const auto setAll = [&] {
        picker.setDate(2004, 5, 14);
        picker.setTime(1, 2, 3);
        picker.setToday();
        picker.setYear(2001);
        picker.clearValue();
        picker.setMonth(3);
        picker.setSecond(9);
        picker.setEnabled(false);
        picker.setEnabled(true);
    };
    setAll();
    show(*shown, [&](Hands &) { setAll(); });
    EXPECT_EQ(changes, 0);
}

TEST_P(ToolkitConformance, PickerChangedByTheUserRunsItsHandler) {
    const auto shown = window({datePicker(), timePicker()});
    auto &date = shown->get<DTPicker>(u"dtp");
    auto &time = shown->get<DTPicker>(u"dtpTime");
    date.setDate(2004, 5, 14);
    date.setTime(7, 8, 9);
    int dateChanges = 0;
    int timeChanges = 0;
    date.onChange = [&] { ++dateChanges; };
    time.onChange = [&] { ++timeChanges; };
    show(*shown, [&](Hands &user) {
        user.pickDate(u"dtp", 2010, 12, 24);
        EXPECT_EQ(dateOf(date), (Date{2010, 12, 24}));
        EXPECT_EQ(timeOf(date), (Time{7, 8, 9}));
        EXPECT_EQ(dateChanges, 1);
        EXPECT_EQ(timeChanges, 0);
        user.pickTime(u"dtpTime", 12, 30, 45);
        EXPECT_EQ(timeOf(time), (Time{12, 30, 45}));
        EXPECT_EQ(dateChanges, 1);
        EXPECT_EQ(timeChanges, 1);
    });
}

TEST_P(ToolkitConformance, PickerTakesAWholeDateWhateverDayItHeldBefore) {
    const auto shown = window({datePicker()});
    auto &picker = shown->get<DTPicker>(u"dtp");
    show(*shown, [&](Hands &user) {
        for (const Date date : {Date{2004, 1, 31}, Date{2004, 2, 29}, Date{1904, 5, 14},
                                Date{2023, 2, 28}, Date{1900, 1, 1}}) {
            user.pickDate(u"dtp", date[0], date[1], date[2]);
            EXPECT_EQ(dateOf(picker), date);
            picker.setDate(2004, 12, 31);
        }
    });
}

TEST_P(ToolkitConformance, PickerShowsTheWholeYearForThreeLettersToo) {
    ControlDesign design = datePicker();
    design.format = u"dd/MM/yyy";
    const auto shown = window({design});
    const auto &picker = shown->get<DTPicker>(u"dtp");
    show(*shown, [&](Hands &user) {
        for (const Date date : {Date{1904, 5, 14}, Date{2104, 5, 14}, Date{3000, 12, 31}}) {
            user.pickDate(u"dtp", date[0], date[1], date[2]);
            EXPECT_EQ(dateOf(picker), date);
        }
    });
}

TEST_P(ToolkitConformance, PickerUntickedHasNoValueAndTickedTheLastOne) {
    const auto shown = window({datePicker()});
    auto &picker = shown->get<DTPicker>(u"dtp");
    picker.setDate(2004, 5, 14);
    std::u16string states;
    picker.onChange = [&] { states += picker.hasValue() ? u"1" : u"0"; };
    show(*shown, [&](Hands &user) {
        user.tickPicker(u"dtp", false);
        EXPECT_FALSE(picker.hasValue());
        user.tickPicker(u"dtp", true);
        EXPECT_TRUE(picker.hasValue());
        EXPECT_EQ(dateOf(picker), (Date{2004, 5, 14}));
        picker.clearValue();
        user.tickPicker(u"dtp", true);
        EXPECT_TRUE(picker.hasValue());
    });
    EXPECT_EQ(states, u"011");
}

TEST_P(ToolkitConformance, PickerHandlerMaySetTheOtherPicker) {
    const auto shown = window({datePicker(), disabled(timePicker())});
    auto &date = shown->get<DTPicker>(u"dtp");
    auto &time = shown->get<DTPicker>(u"dtpTime");
    date.clearValue();
    time.clearValue();
    date.onChange = [&] {
        time.setEnabled(true);
        time.setHour(10);
        time.setMinute(20);
        time.setSecond(30);
    };
    show(*shown, [&](Hands &user) {
        user.tickPicker(u"dtp", true);
        EXPECT_TRUE(time.hasValue());
        EXPECT_TRUE(time.enabled());
        user.pickTime(u"dtpTime", 10, 20, 31);
    });
    EXPECT_EQ(timeOf(time), (Time{10, 20, 31}));
}

} // namespace
} // namespace kvex::test
