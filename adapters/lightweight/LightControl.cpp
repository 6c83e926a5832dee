#include "adapters/lightweight/LightControl.h"

#include "adapters/controls/Keys.h"
#include "adapters/lightweight/LightWindow.h"

namespace kvex::lightweight {

Element::Element(LightWindow *window, ControlDesign design)
    : window_(window), design_(std::move(design)), enabled_(design_.enabled),
      visible_(design_.visible) {}

bool Element::hasFocus() const {
    return window_->focus() == this;
}

std::u16string Element::namedStatus() const {
    const std::u16string said = status();
    const std::u16string name = controls::parseCaption(accessCaption()).shown;
    return said.empty() || name.empty() ? said : name + u": " + said;
}

void Element::tellChange() {
    window_->elementChanged(*this);
}

void Element::enable(bool enabled) {
    enabled_ = enabled;
    tellChange();
    window_->passFocusOn();
}

void Element::reveal(bool visible) {
    visible_ = visible;
    tellChange();
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

} // namespace kvex::lightweight
