#include "adapters/controls/Keys.h"
#include "adapters/lightweight/LightWindow.h"

#include <algorithm>
#include <utility>

namespace kvex::lightweight {

const Element *LightWindow::elementToExplain() const {
    if (focus_ != nullptr && !focus_->status().empty()) {
        return focus_;
    }
    const auto waits = [](const Element &element) {
        return element.isVisible() && !element.isEnabled() && !element.status().empty();
    };
    const Element *usual = elementOf(&ControlDesign::isDefault);
    if (usual != nullptr && waits(*usual)) {
        return usual;
    }
    const std::size_t start = placeOf(focus_);
    for (std::size_t step = 0; step < elements_.size(); ++step) {
        const Element &next = *elements_[(start + step) % elements_.size()];
        if (waits(next)) {
            return &next;
        }
    }
    return nullptr;
}

void LightWindow::press(Key key) {
    if (focus_ != nullptr && focus_->press(key)) {
        return;
    }
    switch (key) {
    case Key::goUp:
        press(Key::up);
        break;
    case Key::goDown:
        press(Key::down);
        break;
    case Key::tab:
    case Key::down:
    case Key::right:
        walk(true);
        break;
    case Key::shiftTab:
    case Key::up:
    case Key::left:
        walk(false);
        break;
    case Key::enter:
    case Key::escape:
        if (Element *button =
                key == Key::enter ? buttonOfEnter() : buttonOf(&ControlDesign::isCancel)) {
            button->click();
        }
        break;
    default:
        break;
    }
}

bool LightWindow::type(std::u16string_view cluster) {
    return focus_ != nullptr &&
           (focus_->type(cluster) || (cluster == u" " && focus_->press(Key::space)));
}

bool LightWindow::paste(std::u16string text) {
    if (focus_ == nullptr || !focus_->takesPaste()) {
        return false;
    }
    clipboard().setText(std::move(text));
    return focus_->press(Key::paste);
}

void LightWindow::walk(bool forward) {
    setFocus(nextTabStop(focus_, forward));
    if (focus_ != nullptr) {
        focus_->enteredByTab();
    }
}

Element *LightWindow::elementOf(bool ControlDesign::*role) const {
    const auto found = std::ranges::find_if(
        elements_, [role](const auto &element) { return element->design().*role; });
    return found != elements_.end() ? found->get() : nullptr;
}

/// The usable button of this role; null if there is none.
Element *LightWindow::buttonOf(bool ControlDesign::*role) const {
    Element *found = elementOf(role);
    return found != nullptr && found->isUsable() ? found : nullptr;
}

Element *LightWindow::buttonOfEnter() const {
    const bool isOnButton =
        focus_ != nullptr && focus_->design().kind == ControlKind::commandButton;
    return isOnButton ? focus_ : buttonOf(&ControlDesign::isDefault);
}

/// The element that the candidate's access key leads to: itself or a label's buddy; null if none.
Element *LightWindow::targetOf(const Element &candidate, char16_t accessKey) const {
    if (!candidate.isUsable() || !controls::hasAccessKey(candidate.accessCaption(), accessKey)) {
        return nullptr;
    }
    Element *target =
        element(candidate.takesFocus() ? candidate.design().name : candidate.design().buddy);
    return target != nullptr && target->isUsable() && target->takesFocus() ? target : nullptr;
}

bool LightWindow::pressAccessKey(char16_t key) {
    std::vector<std::pair<const Element *, Element *>> ways;
    for (const auto &candidate : elements_) {
        if (Element *target = targetOf(*candidate, key)) {
            ways.emplace_back(candidate.get(), target);
        }
    }
    if (ways.empty()) {
        return false;
    }
    if (ways.size() > 1) {
        std::ranges::sort(ways, {}, [this](const auto &way) { return placeOf(way.second); });
        const auto next = std::ranges::find_if(
            ways, [this](const auto &way) { return placeOf(way.second) > placeOf(focus_); });
        setFocus((next == ways.end() ? ways.front() : *next).second);
        return true;
    }
    const auto [by, target] = ways.front();
    target->takeFocus();
    if (by == target) {
        target->click();
    }
    return true;
}

} // namespace kvex::lightweight
