// A date or a time, or no value.
#pragma once

#include "platform/controls/Control.h"

#include <functional>

namespace kvex {

/// Holds a date and a time of day, of which the design's format shows one; the other is kept.
/// Years run from 1900 to 3000. A part that does not exist, or a date out of range, fails with
/// invalidPropertyValue and changes nothing. Setting a part while there is no value brings the
/// value back that was held before, with that part set. At first it holds today and the design's
/// time of day.
class DTPicker : public Control {
public:
    /// The user changed the value, ticked or unticked it.
    std::function<void()> onChange;

    [[nodiscard]] virtual bool hasValue() const = 0;
    virtual void clearValue() = 0;
    /// Today in the system's time zone; the time of day stays.
    virtual void setToday() = 0;
    virtual void setDate(int year, int month, int day) = 0;
    virtual void setTime(int hour, int minute, int second) = 0;

    /// The parts, of the value last held while there is none.
    [[nodiscard]] virtual int year() const = 0;
    [[nodiscard]] virtual int month() const = 0;
    [[nodiscard]] virtual int day() const = 0;
    [[nodiscard]] virtual int hour() const = 0;
    [[nodiscard]] virtual int minute() const = 0;
    [[nodiscard]] virtual int second() const = 0;
    /// The day stays, cut to the month's last; so for setMonth.
    virtual void setYear(int year) = 0;
    virtual void setMonth(int month) = 0;
    virtual void setDay(int day) = 0;
    virtual void setHour(int hour) = 0;
    virtual void setMinute(int minute) = 0;
    virtual void setSecond(int second) = 0;
};

} // namespace kvex
