#include "adapters/headless/HeadlessWindow.h"

#include "adapters/controls/Keys.h"
#include "adapters/headless/HeadlessButtons.h"
#include "adapters/headless/HeadlessDTPicker.h"
#include "adapters/headless/HeadlessListView.h"
#include "adapters/headless/HeadlessRichTextBox.h"
#include "adapters/headless/HeadlessStaticControls.h"
#include "adapters/headless/HeadlessTextBox.h"

#include <algorithm>
#include <utility>

namespace kvex::headless {
namespace {

std::unique_ptr<Element> build(HeadlessWindow *window, const ControlDesign &design) {
    switch (design.kind) {
    case ControlKind::label:
        return std::make_unique<HeadlessLabel>(window, design);
    case ControlKind::commandButton:
        return std::make_unique<HeadlessCommandButton>(window, design);
    case ControlKind::checkBox:
        return std::make_unique<HeadlessCheckBox>(window, design);
    case ControlKind::optionButton:
        return std::make_unique<HeadlessOptionButton>(window, design);
    case ControlKind::textBox:
        return std::make_unique<HeadlessTextBox>(window, design);
    case ControlKind::richTextBox:
        return std::make_unique<HeadlessRichTextBox>(window, design);
    case ControlKind::listView:
        return std::make_unique<HeadlessListView>(window, design);
    case ControlKind::datePicker:
    case ControlKind::timePicker:
        return std::make_unique<HeadlessDTPicker>(window, design);
    case ControlKind::frame:
    case ControlKind::imageList:
        return std::make_unique<HeadlessFrame>(window, design);
    }
    throw Error(error_number::invalidCall);
}

} // namespace

HeadlessWindow::HeadlessWindow(HeadlessToolkit &toolkit, const WindowDesign &design)
    : toolkit_(toolkit), name_(design.name), caption_(design.caption) {
    for (const ControlDesign &control : design.controls) {
        elements_.push_back(build(this, control));
    }
}

void HeadlessWindow::showModal() {
    if (showCalled_) {
        throw Error(error_number::invalidCall);
    }
    showCalled_ = true;
    if (state_ == State::closed) {
        return;
    }
    if (focus_ == nullptr) {
        focus_ = nextTabStop(nullptr, true);
    }
    state_ = State::shown;
    toolkit_.play(*this);
}

void HeadlessWindow::close() {
    state_ = State::closed;
}

controls::ErrorObserver HeadlessWindow::errorObserver() {
    return [this](const Error &error) { toolkit_.unhandledErrors_.push_back(error); };
}

Element *HeadlessWindow::element(std::u16string_view name) const {
    const auto found = std::ranges::find_if(
        elements_, [name](const auto &element) { return element->design().name == name; });
    return found == elements_.end() ? nullptr : found->get();
}

Control *HeadlessWindow::find(std::u16string_view name) {
    return dynamic_cast<Control *>(element(name));
}

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

/// The stop after `from`, or before it when going backward. Wraps around at the end. Without `from`
/// it is the first stop, or the last one backward.
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

/// The element that the candidate's access key leads to: itself or a label's buddy; null if none.
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
