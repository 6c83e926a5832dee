#include "adapters/headless/HeadlessButtons.h"

#include "adapters/headless/HeadlessWindow.h"

#include <algorithm>

namespace kvex::headless {

bool HeadlessCommandButton::press(Key key) {
    if (key != Key::space && key != Key::enter) {
        return false;
    }
    click();
    return true;
}

void HeadlessCheckBox::setValue(std::int16_t value) {
    if (value != 0 && value != 1) {
        throw Error(error_number::invalidPropertyValue);
    }
    ticked_ = value == 1;
}

void HeadlessCheckBox::click() {
    ticked_ = !ticked_;
    deliver(onClick);
}

bool HeadlessCheckBox::press(Key key) {
    if (key != Key::space) {
        return false;
    }
    click();
    return true;
}

void HeadlessOptionButton::select() {
    for (HeadlessOptionButton *member : group()) {
        member->selected_ = member == this;
    }
}

bool HeadlessOptionButton::isTabStop() const {
    const auto members = usableGroup();
    const auto chosen = std::ranges::find_if(members, &HeadlessOptionButton::selected_);
    return !members.empty() && this == (chosen == members.end() ? members.front() : *chosen);
}

void HeadlessOptionButton::click() {
    select();
    deliver(onClick);
}

bool HeadlessOptionButton::press(Key key) {
    if (key == Key::space) {
        click();
        return true;
    }
    if (key != Key::up && key != Key::down) {
        return false;
    }
    const auto members = usableGroup();
    const auto own = static_cast<std::size_t>(std::ranges::find(members, this) - members.begin());
    const std::size_t step = key == Key::down ? 1 : members.size() - 1;
    HeadlessOptionButton &next = *members[(own + step) % members.size()];
    next.takeFocus();
    next.click();
    return true;
}

std::vector<HeadlessOptionButton *> HeadlessOptionButton::group() const {
    std::vector<HeadlessOptionButton *> members;
    for (const auto &element : window()->elements()) {
        auto *option = dynamic_cast<HeadlessOptionButton *>(element.get());
        if (option != nullptr && option->design().group == design().group) {
            members.push_back(option);
        }
    }
    return members;
}

std::vector<HeadlessOptionButton *> HeadlessOptionButton::usableGroup() const {
    auto members = group();
    std::erase_if(members, [](const auto *member) { return !member->isUsable(); });
    return members;
}

} // namespace kvex::headless
