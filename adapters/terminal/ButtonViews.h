// Command buttons, check boxes and option buttons.
#pragma once

#include "adapters/terminal/ControlView.h"

namespace kvex::terminal {

/// "[ New ]", "< OK >" for the button that Enter presses, and no brackets around a disabled one.
class ButtonView final : public ControlView {
public:
    using ControlView::ControlView;

    [[nodiscard]] Extent columns() const override;
    [[nodiscard]] Extent rows(int, Economy) const override { return {1, 1}; }
    void paint(Canvas &canvas, const Rect &at, const Look &look) override;
};

/// "[x] Caption" of a check box, "(*) Caption" of an option button. The caption wraps.
class TickView final : public ControlView {
public:
    using ControlView::ControlView;

    [[nodiscard]] Extent columns() const override;
    [[nodiscard]] Extent rows(int columns, Economy economy) const override;
    void paint(Canvas &canvas, const Rect &at, const Look &look) override;
};

} // namespace kvex::terminal
