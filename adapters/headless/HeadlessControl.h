// Gives a kind of control what every control has, upon the element that the user sees.
#pragma once

#include "adapters/headless/Element.h"
#include "platform/controls/Control.h"

#include <string>

namespace kvex::headless {

template <class Kind, class Part = Element> class HeadlessControl : public Kind, public Part {
public:
    /// `kindArguments` are the kind's own.
    template <class... KindArguments>
    HeadlessControl(HeadlessWindow *window, const ControlDesign &design,
                    KindArguments... kindArguments)
        : Kind(kindArguments...), Part(window, design) {}

    [[nodiscard]] const std::u16string &name() const final { return this->design().name; }
    [[nodiscard]] bool enabled() const final { return this->isEnabled(); }
    void setEnabled(bool enabled) final { this->enable(enabled); }
    [[nodiscard]] bool visible() const final { return this->isVisible(); }
    void setVisible(bool visible) final { this->reveal(visible); }
    void setFocus() final { this->takeFocus(); }
    void refresh() final {}
};

/// A control that only stands there: a frame, or an image list.
class HeadlessOrnament final : public HeadlessControl<Control> {
public:
    using HeadlessControl::HeadlessControl;
    [[nodiscard]] bool takesFocus() const override { return false; }
};

} // namespace kvex::headless
