// The date and time of a picker, the same for all toolkits. A toolkit's picker derives from it and
// adds the control.
#pragma once

#include "platform/controls/DTPicker.h"

#include <chrono>

namespace kvex::controls {

class PickerValue : public DTPicker {
public:
    static constexpr int firstYear = 1900;
    static constexpr int lastYear = 3000;

    [[nodiscard]] bool hasValue() const final { return hasValue_; }
    void clearValue() final;
    /// Brings back the value that clearValue() removed.
    void restoreValue();
    void setToday() final;
    void setDate(int year, int month, int day) final;
    void setTime(int hour, int minute, int second) final;

    [[nodiscard]] int year() const final { return static_cast<int>(date_.year()); }
    [[nodiscard]] int month() const final;
    [[nodiscard]] int day() const final;
    [[nodiscard]] int hour() const final { return hour_; }
    [[nodiscard]] int minute() const final { return minute_; }
    [[nodiscard]] int second() const final { return second_; }
    void setYear(int year) final;
    void setMonth(int month) final;
    void setDay(int day) final;
    void setHour(int hour) final { setTime(hour, minute_, second_); }
    void setMinute(int minute) final { setTime(hour_, minute, second_); }
    void setSecond(int second) final { setTime(hour_, minute_, second); }

protected:
    /// Starts with today and this time of day.
    PickerValue(int hour, int minute, int second);
    /// Called after the value was set, cleared or restored. The toolkit updates what it shows.
    virtual void valueSet() {}

private:
    void hold(std::chrono::year_month_day date);
    void holdCut(int year, int month);

    std::chrono::year_month_day date_;
    int hour_ = 0;
    int minute_ = 0;
    int second_ = 0;
    bool hasValue_ = true;
};

} // namespace kvex::controls
