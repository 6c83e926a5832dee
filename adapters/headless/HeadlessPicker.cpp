#include "adapters/headless/HeadlessPicker.h"

#include <array>

namespace kvex::headless {

/// The handler runs when the change made a difference.
template <class Change> void HeadlessPicker::change(const Change &change) {
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

void HeadlessPicker::pickDate(int year, int month, int day) {
    requireKind(ControlKind::datePicker);
    change([&] { setDate(year, month, day); });
}

void HeadlessPicker::pickTime(int hour, int minute, int second) {
    requireKind(ControlKind::timePicker);
    change([&] { setTime(hour, minute, second); });
}

void HeadlessPicker::requireKind(ControlKind kind) const {
    if (design().kind != kind) {
        throw Error(error_number::invalidPropertyValue);
    }
}

void HeadlessPicker::tick(bool ticked) {
    change([&] { ticked ? restoreValue() : clearValue(); });
}

} // namespace kvex::headless
