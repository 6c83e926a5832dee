// What every control of a window has.
//
// Rows and columns count from 1. A handler (`on...`) runs after an action of the user. Changes from
// code run no handler, except that setting a text runs onChange.
//
// The toolkit catches an error that leaves a handler and writes it to the diagnostic stream. The
// window stays usable. Toolkits with a screen also show database errors. Handlers may close their
// window.
#pragma once

#include <string>

namespace kvex {

class Control {
public:
    virtual ~Control() = default;

    [[nodiscard]] virtual const std::u16string &name() const = 0;
    /// What was set last. The state of the surrounding window or frame does not matter.
    [[nodiscard]] virtual bool enabled() const = 0;
    /// If the control has the focus while it is disabled or hidden, the focus returns to the
    /// control that had it before. If that one cannot take it, it goes to the next one in tab
    /// order. The tool tip of a disabled control is ControlDesign::disabledHint.
    virtual void setEnabled(bool enabled) = 0;
    /// What was set last, even before the window is shown.
    [[nodiscard]] virtual bool visible() const = 0;
    virtual void setVisible(bool visible) = 0;
    /// Moves the focus to this control. Before the window is shown, it sets where the focus starts.
    /// Fails with invalidCall if the control is disabled or hidden.
    virtual void setFocus() = 0;
    /// Repaints the control at once.
    virtual void refresh() = 0;

protected:
    Control() = default;
    Control(const Control &) = delete;
    Control &operator=(const Control &) = delete;
};

} // namespace kvex
