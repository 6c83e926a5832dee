#include "ui/conditions/frmRuleDate.h"

#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/StoredMoment.h"
#include "platform/Text.h"
#include "platform/controls/DesignPieces.h"
#include "rules/InputHelpers.h"
#include "rules/RuleState.h"

#include <algorithm>

namespace kvex {
namespace {

constexpr std::u16string_view module = u"frmRuleDate";

std::u16string twoDigits(int number) {
    return PadLeft(toText(std::int64_t{number}), 2, u'0');
}

std::u16string GetDateString(const DTPicker &picker) {
    return toText(std::int64_t{picker.year()}) + twoDigits(picker.month()) +
           twoDigits(picker.day());
}

std::u16string GetTimeString(const DTPicker &picker) {
    return twoDigits(picker.hour()) + u":" + twoDigits(picker.minute()) + u":" +
           twoDigits(picker.second());
}

/// The number that `length` characters of `text` hold, from the character at `position` on. The
/// first position is 1. Fails where `text` is too short to hold a number there.
int numberAt(std::u16string_view text, std::size_t position, std::size_t length) {
    return toInt32(text.substr(std::min(position - 1, text.size()), length));
}

/// Starts without a moment. When the user ticks the date, it is today, and the time is the one that
/// the picker showed at first.
void startEmpty(DTPicker &date, DTPicker &time, std::u16string &savedTime) {
    date.setToday();
    savedTime = GetTimeString(time);
    date.clearValue();
    time.clearValue();
    time.setEnabled(false);
}

/// Shows a moment of the form "yyyymmdd hh:mm:ss". Each part is read just before it is shown, so
/// the parts before an unreadable one are shown. The date is set in one step, because its day may
/// not exist in the month that the picker showed.
void showMoment(std::u16string_view stored, DTPicker &date, DTPicker &time) {
    const int year = numberAt(stored, 1, 4);
    const int month = numberAt(stored, 5, 2);
    date.setDate(year, month, numberAt(stored, 7, 2));
    time.setHour(numberAt(stored, 10, 2));
    time.setMinute(numberAt(stored, 13, 2));
    time.setSecond(numberAt(stored, 16, 2));
}

/// Lets the time follow its date. Without a date, the time is saved and emptied. Every change of
/// the date brings the saved time back.
void followDate(const DTPicker &date, DTPicker &time, std::u16string &savedTime) {
    session().blnChanged = true;
    if (!date.hasValue()) {
        if (time.hasValue()) {
            savedTime = GetTimeString(time);
            time.clearValue();
        }
        time.setEnabled(false);
        return;
    }
    time.setEnabled(true);
    if (!savedTime.empty()) {
        time.setHour(numberAt(savedTime, 1, 2));
        time.setMinute(numberAt(savedTime, 4, 2));
        time.setSecond(numberAt(savedTime, 7, 2));
    }
}

/// Reads the moment, and returns true. If there is no date, shows a message and returns false.
bool readMoment(const DTPicker &date, const DTPicker &time, std::u16string &dateText,
                std::u16string &timeText) {
    dateText.clear();
    timeText.clear();
    if (!date.hasValue()) {
        showMessage(u"Please select a valid date range.", message_box::exclamation);
        return false;
    }
    dateText = GetDateString(date);
    if (time.hasValue()) {
        timeText = GetTimeString(time);
    }
    return true;
}

} // namespace

namespace {

ControlDesign datePicker(std::u16string name, std::u16string accessibleName) {
    return {.kind = ControlKind::datePicker,
            .name = std::move(name),
            .accessibleName = std::move(accessibleName),
            .format = u"dd/MM/yyy"};
}

ControlDesign timePicker(std::u16string name, std::u16string accessibleName,
                         std::u16string disabledHint) {
    return {.kind = ControlKind::timePicker,
            .name = std::move(name),
            .disabledHint = std::move(disabledHint),
            .accessibleName = std::move(accessibleName),
            .format = u"HH:mm:ss"};
}

ControlDesign lastSecondOfTheDay(ControlDesign picker) {
    picker.hour = 23;
    picker.minute = 59;
    picker.second = 59;
    return picker;
}

} // namespace

WindowDesign frmRuleDateDesign() {
    using namespace design;
    return {
        .name = u"frmRuleDate",
        .caption = u"Select Date/Time Range",
        .controls =
            {
                {.kind = ControlKind::frame, .name = u"Frame1"},
                label(u"Label1", u"Message is received between", u"FromDate"),
                datePicker(u"FromDate", u"From Date"),
                timePicker(u"FromTime", u"From Time", u"Tick the From Date first"),
                label(u"lblTime", u"and", u"ToDate"),
                datePicker(u"ToDate", u"To Date"),
                lastSecondOfTheDay(timePicker(u"ToTime", u"To Time", u"Tick the To Date first")),
                okButton(),
                cancelButton(),
            },
        .layout = column({
            scrolling({
                placeFrame(u"Frame1",
                           {
                               place(u"Label1"),
                               row({place(u"FromDate"), place(u"FromTime"), spring()}),
                               place(u"lblTime"),
                               row({place(u"ToDate"), place(u"ToTime"), spring()}),
                           }),
                spring(),
            }),
            row({spring(), place(u"cmdOK"), place(u"cmdCancel")}),
        }),
    };
}

frmRuleDate::frmRuleDate()
    : Form(frmRuleDateDesign()), FromDate(control<DTPicker>(u"FromDate")),
      FromTime(control<DTPicker>(u"FromTime")), ToDate(control<DTPicker>(u"ToDate")),
      ToTime(control<DTPicker>(u"ToTime")) {
    FromDate.onChange = [this] { FromDate_Change(); };
    ToDate.onChange = [this] { ToDate_Change(); };
    FromTime.onChange = [this] { FromTime_Change(); };
    ToTime.onChange = [this] { ToTime_Change(); };
    onClick(u"cmdOK", &frmRuleDate::cmdOK_Click);
    onClick(u"cmdCancel", &frmRuleDate::cmdCancel_Click);
}

void frmRuleDate::Form_Load() {
    trapErrors(u"Form_Load", module, [&] {
        const std::u16string_view stored = ruleState().strDateTime;
        if (stored.empty()) {
            startEmpty(FromDate, FromTime, strSavedFromTime);
            startEmpty(ToDate, ToTime, strSavedToTime);
            return;
        }
        const StoredRange range = storedRange(stored);
        showMoment(range.start, FromDate, FromTime);
        showMoment(range.end, ToDate, ToTime);
    });
}

void frmRuleDate::FromDate_Change() {
    followDate(FromDate, FromTime, strSavedFromTime);
}

void frmRuleDate::ToDate_Change() {
    followDate(ToDate, ToTime, strSavedToTime);
}

void frmRuleDate::FromTime_Change() {
    session().blnChanged = true;
}

void frmRuleDate::ToTime_Change() {
    session().blnChanged = true;
}

/// Dates and times begin with their largest unit, so they compare as texts. An empty time is before
/// every other time.
bool frmRuleDate::ValidateDates() {
    if (!readMoment(FromDate, FromTime, strFromDate, strFromTime) ||
        !readMoment(ToDate, ToTime, strToDate, strToTime)) {
        return false;
    }
    if (strToDate < strFromDate) {
        showMessage(u"To Date cannot be less than From Date.", message_box::exclamation);
        ToDate.setFocus();
        return false;
    }
    if (strToDate == strFromDate && strToTime < strFromTime) {
        showMessage(u"You have selected to define the filter for a single day."
                    u"In such case 'To Time' cannot be less than 'From Time'",
                    message_box::exclamation);
        ToTime.setFocus();
        return false;
    }
    return true;
}

void frmRuleDate::BuildString() {
    trapErrors(u"BuildString", module, [&] {
        if (!strToDate.empty() && !strFromDate.empty()) {
            ruleState().strDateTime =
                strFromDate + u" " + strFromTime + u"," + strToDate + u" " + strToTime;
        }
    });
}

void frmRuleDate::cmdOK_Click() {
    if (ValidateDates()) {
        BuildString();
        Unload();
    }
}

void frmRuleDate::cmdCancel_Click() {
    Unload();
}

} // namespace kvex
