// What every control of a window has.
//
// Positions of rows and columns count from 1. A handler (`on...`) runs when the user does
// something; what code sets runs none, except that setting a text raises the change event.
// An error that leaves a handler ends that handler at the toolkit: it is written to the
// diagnostic stream and the window stays usable; toolkits with a screen also show what the
// database refused. Handlers may close their window.
#pragma once

#include <string>

namespace kvex {

class Control {
public:
    virtual ~Control() = default;

    [[nodiscard]] virtual const std::u16string &name() const = 0;
    /// As set, whether or not what contains it is enabled.
    [[nodiscard]] virtual bool enabled() const = 0;
    /// A control that has the focus when it is disabled or hidden passes it back to the control
    /// that had it before. Where that cannot take it, the next in tab order does. A disabled
    /// control shows what it waits for (ControlDesign::disabledHint) as its tool tip.
    virtual void setEnabled(bool enabled) = 0;
    /// As set, whether or not its window is shown.
    [[nodiscard]] virtual bool visible() const = 0;
    virtual void setVisible(bool visible) = 0;
    /// Gives the focus. Before the window is shown it decides where the focus starts. Fails with
    /// invalidCall when the control is disabled or not visible.
    virtual void setFocus() = 0;
    /// Repaints at once.
    virtual void refresh() = 0;

protected:
    Control() = default;
    Control(const Control &) = delete;
    Control &operator=(const Control &) = delete;
};

} // namespace kvex
