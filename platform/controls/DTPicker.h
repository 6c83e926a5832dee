// A date or a time, or no value.
#pragma once

#include "platform/controls/Control.h"

#include <functional>

namespace kvex {

/// Holds a date and a time. The design's format shows one of them; the other is kept. Years run
/// from 1900 to 3000. A setter fails with invalidPropertyValue for a part that does not exist or a
/// date out of range, and changes nothing. Setting a part while there is no value brings back the
/// last value, with the new part. The first value is today and the design's time.
class DTPicker : public Control {
public:
    /// The user changed, cleared or restored the value.
    std::function<void()> onChange;

    [[nodiscard]] virtual bool hasValue() const = 0;
    virtual void clearValue() = 0;
    /// Sets today's date in the system's time zone. The time stays.
    virtual void setToday() = 0;
    virtual void setDate(int year, int month, int day) = 0;
    virtual void setTime(int hour, int minute, int second) = 0;

    /// The parts of the value. If there is none, the parts of the last value.
    [[nodiscard]] virtual int year() const = 0;
    [[nodiscard]] virtual int month() const = 0;
    [[nodiscard]] virtual int day() const = 0;
    [[nodiscard]] virtual int hour() const = 0;
    [[nodiscard]] virtual int minute() const = 0;
    [[nodiscard]] virtual int second() const = 0;
    /// Keeps the day, or takes the last day of a shorter month. setMonth does the same.
    virtual void setYear(int year) = 0;
    virtual void setMonth(int month) = 0;
    virtual void setDay(int day) = 0;
    virtual void setHour(int hour) = 0;
    virtual void setMinute(int minute) = 0;
    virtual void setSecond(int second) = 0;
};

} // namespace kvex
