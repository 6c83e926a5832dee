#include "adapters/headless/HeadlessWindow.h"

#include "adapters/headless/HeadlessButtons.h"
#include "adapters/headless/HeadlessListView.h"
#include "adapters/headless/HeadlessPicker.h"
#include "adapters/headless/HeadlessRichTextBox.h"
#include "adapters/headless/HeadlessTextBox.h"

#include <algorithm>

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
        return std::make_unique<HeadlessPicker>(window, design);
    case ControlKind::frame:
    case ControlKind::imageList:
        return std::make_unique<HeadlessOrnament>(window, design);
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
    state_ = State::shown;
    if (focus_ == nullptr) {
        focus_ = nextTabStop(nullptr, true);
    }
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

} // namespace kvex::headless
