// A date or a time, and what a user does to it.
#pragma once

#include "adapters/controls/PickerValue.h"
#include "adapters/headless/HeadlessControl.h"

namespace kvex::headless {

class HeadlessPicker final : public HeadlessControl<controls::PickerValue> {
public:
    HeadlessPicker(HeadlessWindow *window, const ControlDesign &design)
        : HeadlessControl(window, design, design.hour, design.minute, design.second) {}

    /// Each fails as setDate and setTime do, also on a picker of the other kind.
    void pickDate(int year, int month, int day);
    void pickTime(int hour, int minute, int second);
    void tick(bool ticked);

private:
    void requireKind(ControlKind kind) const;
    template <class Change> void change(const Change &change);
};

} // namespace kvex::headless
