#include "adapters/headless/HeadlessDTPicker.h"

#include <array>

namespace kvex::headless {

/// Runs the handler only if the value differs afterwards.
template <class Change> void HeadlessDTPicker::change(const Change &change) {
    const auto state = [this] {
        return std::array<int, 7>{hasValue() ? 1 : 0, year(),  month(), day(), hour(),
                                  minute(),           second()};
    };
    const auto before = state();
    change();
    if (state() != before) {
        deliver(onChange);
    }
}

void HeadlessDTPicker::pickDate(int year, int month, int day) {
    requireKind(ControlKind::datePicker);
    change([&] { setDate(year, month, day); });
}

void HeadlessDTPicker::pickTime(int hour, int minute, int second) {
    requireKind(ControlKind::timePicker);
    change([&] { setTime(hour, minute, second); });
}

void HeadlessDTPicker::requireKind(ControlKind kind) const {
    if (design().kind != kind) {
        throw Error(error_number::invalidPropertyValue);
    }
}

void HeadlessDTPicker::tick(bool ticked) {
    change([&] { ticked ? restoreValue() : clearValue(); });
}

} // namespace kvex::headless
