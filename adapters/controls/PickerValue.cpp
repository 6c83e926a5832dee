#include "adapters/controls/PickerValue.h"

#include "platform/Error.h"

#include <algorithm>
#include <ctime>

namespace kvex::controls {
namespace {

void require(bool holds) {
    if (!holds) {
        throw Error(error_number::invalidPropertyValue);
    }
}

bool isWithin(int value, int first, int last) {
    return value >= first && value <= last;
}

std::chrono::year_month_day dateOf(int year, int month, int day) {
    require(isWithin(year, PickerValue::firstYear, PickerValue::lastYear) &&
            isWithin(month, 1, 12) && isWithin(day, 1, 31));
    const std::chrono::year_month_day date{std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    require(date.ok());
    return date;
}

std::chrono::year_month_day today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return dateOf(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

} // namespace

PickerValue::PickerValue(int hour, int minute, int second)
    : date_(today()), hour_(hour), minute_(minute), second_(second) {}

void PickerValue::clearValue() {
    hasValue_ = false;
    valueSet();
}

void PickerValue::restoreValue() {
    hasValue_ = true;
    valueSet();
}

void PickerValue::setToday() {
    hold(today());
}

void PickerValue::setDate(int year, int month, int day) {
    hold(dateOf(year, month, day));
}

void PickerValue::setTime(int hour, int minute, int second) {
    require(isWithin(hour, 0, 23) && isWithin(minute, 0, 59) && isWithin(second, 0, 59));
    hour_ = hour;
    minute_ = minute;
    second_ = second;
    restoreValue();
}

int PickerValue::month() const {
    return static_cast<int>(static_cast<unsigned>(date_.month()));
}
int PickerValue::day() const {
    return static_cast<int>(static_cast<unsigned>(date_.day()));
}

void PickerValue::setYear(int year) {
    holdCut(year, month());
}
void PickerValue::setMonth(int month) {
    holdCut(year(), month);
}
void PickerValue::setDay(int day) {
    setDate(year(), month(), day);
}

void PickerValue::hold(std::chrono::year_month_day date) {
    date_ = date;
    restoreValue();
}

/// Keeps the day, or takes the last day of a shorter month.
void PickerValue::holdCut(int year, int month) {
    const auto first = dateOf(year, month, 1);
    const std::chrono::year_month_day_last last{first.year(),
                                                std::chrono::month_day_last(first.month())};
    hold({first.year(), first.month(), std::min(date_.day(), last.day())});
}

} // namespace kvex::controls
