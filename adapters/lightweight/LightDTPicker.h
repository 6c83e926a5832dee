// A date or time picker, and the user's actions on it.
#pragma once

#include "adapters/controls/PickerValue.h"
#include "adapters/lightweight/LightControl.h"
#include "adapters/lightweight/PickerEditor.h"

namespace kvex::lightweight {

/// A blank clears the value or brings it back, except after a digit: there it is a separator.
/// Without a value the picker takes no other key. Left and Right go from part to part; Up and Down,
/// and the page keys in greater steps, change the part.
class LightDTPicker final : public LightControl<controls::PickerValue> {
public:
    LightDTPicker(LightWindow *window, const ControlDesign &design);

    /// What the user sees besides the tick, and which part of it the keys change.
    [[nodiscard]] const PickerEditor &editor() const { return editor_; }

    /// They fail as setDate and setTime do, and if the picker is of the other kind.
    void pickDate(int year, int month, int day);
    void pickTime(int hour, int minute, int second);
    void tick(bool ticked);
    /// A click on this place of the text.
    void clickAt(std::size_t place);

    bool press(Key key) override;
    bool type(std::u16string_view cluster) override;
    void enteredByTab() override;
    void focusLost() override;

private:
    void valueSet() override;
    void requireKind(ControlKind kind) const;
    template <class Change> void change(const Change &change);
    bool pressOnValue(Key key);

    PickerEditor editor_;
};

} // namespace kvex::lightweight
