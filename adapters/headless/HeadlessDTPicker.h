// A date or time picker, and the user's actions on it.
#pragma once

#include "adapters/controls/PickerValue.h"
#include "adapters/headless/HeadlessControl.h"

namespace kvex::headless {

class HeadlessDTPicker final : public HeadlessControl<controls::PickerValue> {
public:
    HeadlessDTPicker(HeadlessWindow *window, const ControlDesign &design)
        : HeadlessControl(window, design, design.hour, design.minute, design.second) {}

    /// They fail as setDate and setTime do, and if the picker is of the other kind.
    void pickDate(int year, int month, int day);
    void pickTime(int hour, int minute, int second);
    void tick(bool ticked);

private:
    void requireKind(ControlKind kind) const;
    template <class Change> void change(const Change &change);
};

} // namespace kvex::headless
