#include "adapters/lightweight/LightWindow.h"

#include "adapters/lightweight/LightButtons.h"
#include "adapters/lightweight/LightDTPicker.h"
#include "adapters/lightweight/LightListView.h"
#include "adapters/lightweight/LightRichTextBox.h"
#include "adapters/lightweight/LightStaticControls.h"
#include "adapters/lightweight/LightTextBox.h"

#include <algorithm>
#include <utility>

namespace kvex::lightweight {
namespace {

std::unique_ptr<Element> build(LightWindow *window, const ControlDesign &design) {
    switch (design.kind) {
    case ControlKind::label:
        return std::make_unique<LightLabel>(window, design);
    case ControlKind::commandButton:
        return std::make_unique<LightCommandButton>(window, design);
    case ControlKind::checkBox:
        return std::make_unique<LightCheckBox>(window, design);
    case ControlKind::optionButton:
        return std::make_unique<LightOptionButton>(window, design);
    case ControlKind::textBox:
        return std::make_unique<LightTextBox>(window, design);
    case ControlKind::richTextBox:
        return std::make_unique<LightRichTextBox>(window, design);
    case ControlKind::listView:
        return std::make_unique<LightListView>(window, design);
    case ControlKind::datePicker:
    case ControlKind::timePicker:
        return std::make_unique<LightDTPicker>(window, design);
    case ControlKind::frame:
    case ControlKind::imageList:
        return std::make_unique<LightFrame>(window, design);
    }
    throw Error(error_number::invalidCall);
}

} // namespace

LightWindow::LightWindow(const WindowDesign &design)
    : name_(design.name), caption_(design.caption) {
    for (const ControlDesign &control : design.controls) {
        elements_.push_back(build(this, control));
    }
}

void LightWindow::showModal() {
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
    run();
}

void LightWindow::close() {
    state_ = State::closed;
}

Element *LightWindow::element(std::u16string_view name) const {
    const auto found = std::ranges::find_if(
        elements_, [name](const auto &element) { return element->design().name == name; });
    return found == elements_.end() ? nullptr : found->get();
}

Control *LightWindow::find(std::u16string_view name) {
    return dynamic_cast<Control *>(element(name));
}

void LightWindow::setFocus(Element *element) {
    if (element == focus_) {
        return;
    }
    const auto tell = [this](Element *changed) {
        if (changed != nullptr) {
            elementChanged(*changed);
        }
    };
    tell(buttonOfEnter());
    previousFocus_ = std::exchange(focus_, element);
    tell(previousFocus_);
    tell(focus_);
    tell(buttonOfEnter());
    if (previousFocus_ != nullptr) {
        previousFocus_->focusLost();
    }
}

void LightWindow::passFocusOn() {
    if (focus_ != nullptr && !focus_->isUsable()) {
        const bool canGoBack = previousFocus_ != nullptr && previousFocus_->isUsable();
        setFocus(canGoBack ? previousFocus_ : nextTabStop(focus_, true));
    }
}

std::vector<Element *> LightWindow::tabStops() const {
    std::vector<Element *> stops;
    for (const auto &element : elements_) {
        if (element->isUsable() && element->isTabStop()) {
            stops.push_back(element.get());
        }
    }
    return stops;
}

std::size_t LightWindow::placeOf(const Element *element) const {
    const auto found = std::ranges::find(elements_, element, &std::unique_ptr<Element>::get);
    return static_cast<std::size_t>(found - elements_.begin());
}

/// The stop after `from`, or before it when going backward. Wraps around at the end. Without `from`
/// it is the first stop, or the last one backward.
Element *LightWindow::nextTabStop(const Element *from, bool forward) const {
    auto stops = tabStops();
    if (stops.empty()) {
        return nullptr;
    }
    if (!forward) {
        std::ranges::reverse(stops);
    }
    const auto follows = [&](const Element *stop) {
        return stop != from && (placeOf(stop) > placeOf(from)) == forward;
    };
    const auto next = std::ranges::find_if(stops, follows);
    return next == stops.end() ? stops.front() : *next;
}

} // namespace kvex::lightweight
