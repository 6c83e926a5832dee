// A date or a time that can be ticked off.
#pragma once

#include "adapters/lightweight/LightDTPicker.h"
#include "adapters/terminal/ControlView.h"

namespace kvex::terminal {

/// "[x] 21/11/2026", or "[ ]" and an empty place without a value. The part that keys change is in
/// reverse.
class PickerView final : public ControlView {
public:
    PickerView(lightweight::LightDTPicker &picker, Ability ability)
        : ControlView(picker, ability), picker_(picker) {}

    [[nodiscard]] Extent columns() const override;
    [[nodiscard]] Extent rows(int, Economy) const override { return {1, 1}; }
    [[nodiscard]] bool hasPages() const override { return true; }
    void paint(Canvas &canvas, const Rect &at, const Look &look) override;
    void click(Point at, bool twice) override;
    /// A whole date or time.
    bool paste(std::u16string_view text) override;

private:
    lightweight::LightDTPicker &picker_;
    Rect shown_{};
};

} // namespace kvex::terminal
