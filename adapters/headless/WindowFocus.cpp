#include "adapters/controls/Caption.h"
#include "adapters/headless/HeadlessWindow.h"
#include "adapters/headless/User.h"

#include <algorithm>
#include <utility>

namespace kvex::headless {

void HeadlessWindow::setFocus(Element *element) {
    if (element == focus_) {
        return;
    }
    previousFocus_ = std::exchange(focus_, element);
    if (previousFocus_ != nullptr) {
        previousFocus_->focusLost();
    }
}

void HeadlessWindow::passFocusOn() {
    if (focus_ != nullptr && !focus_->isUsable()) {
        const bool canGoBack = previousFocus_ != nullptr && previousFocus_->isUsable();
        setFocus(canGoBack ? previousFocus_ : nextTabStop(focus_, true));
    }
}

std::vector<Element *> HeadlessWindow::tabStops() const {
    std::vector<Element *> stops;
    for (const auto &element : elements_) {
        if (element->isUsable() && element->isTabStop()) {
            stops.push_back(element.get());
        }
    }
    return stops;
}

std::size_t HeadlessWindow::placeOf(const Element *element) const {
    const auto found = std::ranges::find(elements_, element, &std::unique_ptr<Element>::get);
    return static_cast<std::size_t>(found - elements_.begin());
}

/// The stop after `from`, or the first (backwards, the last) when that is null or nothing follows.
Element *HeadlessWindow::nextTabStop(const Element *from, bool forward) const {
    auto stops = tabStops();
    if (stops.empty()) {
        return nullptr;
    }
    if (!forward) {
        std::ranges::reverse(stops);
    }
    const auto follows = [&](const Element *stop) {
        return from != nullptr && stop != from && (placeOf(stop) > placeOf(from)) == forward;
    };
    const auto next = std::ranges::find_if(stops, follows);
    return next == stops.end() ? stops.front() : *next;
}

void HeadlessWindow::press(Key key) {
    if (focus_ != nullptr && focus_->press(key)) {
        return;
    }
    if (key == Key::tab || key == Key::shiftTab) {
        setFocus(nextTabStop(focus_, key == Key::tab));
        if (focus_ != nullptr) {
            focus_->enteredByTab();
        }
    } else if (key == Key::enter) {
        pressButton(&ControlDesign::isDefault);
    } else if (key == Key::escape) {
        pressButton(&ControlDesign::isCancel);
    }
}

void HeadlessWindow::pressButton(bool ControlDesign::*role) {
    const auto found = std::ranges::find_if(
        elements_, [role](const auto &element) { return element->design().*role; });
    if (found != elements_.end() && (*found)->isUsable()) {
        (*found)->click();
    }
}

/// Whom the access key leads to by way of `element`, null for nobody.
Element *HeadlessWindow::targetOf(const Element &candidate, char16_t accessKey) const {
    if (!candidate.isUsable() || !controls::hasAccessKey(candidate.accessCaption(), accessKey)) {
        return nullptr;
    }
    Element *target =
        element(candidate.takesFocus() ? candidate.design().name : candidate.design().buddy);
    return target != nullptr && target->isUsable() && target->takesFocus() ? target : nullptr;
}

bool HeadlessWindow::pressAccessKey(char16_t key) {
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
        const auto next = std::ranges::find_if(ways, [this](const auto &way) {
            return focus_ != nullptr && placeOf(way.second) > placeOf(focus_);
        });
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

} // namespace kvex::headless
