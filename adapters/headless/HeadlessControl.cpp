#include "adapters/headless/HeadlessControl.h"

#include "adapters/headless/HeadlessWindow.h"

namespace kvex::headless {

Element::Element(HeadlessWindow *window, ControlDesign design)
    : window_(window), design_(std::move(design)), enabled_(design_.enabled),
      visible_(design_.visible) {}

void Element::enable(bool enabled) {
    enabled_ = enabled;
    window_->passFocusOn();
}

void Element::reveal(bool visible) {
    visible_ = visible;
    window_->passFocusOn();
}

void Element::takeFocus() {
    if (!isUsable() || !takesFocus()) {
        throw Error(error_number::invalidCall);
    }
    window_->setFocus(this);
}

std::u16string Element::where() const {
    return window_->name() + u"." + design_.name;
}

controls::ErrorObserver Element::observer() const {
    return window_->errorObserver();
}

} // namespace kvex::headless
