#include "adapters/lightweight/LightButtons.h"

#include "adapters/lightweight/LightWindow.h"

#include <algorithm>

namespace kvex::lightweight {

bool LightCommandButton::press(Key key) {
    if (key != Key::space) {
        return false;
    }
    click();
    return true;
}

void LightCheckBox::setValue(std::int16_t value) {
    if (value != 0 && value != 1) {
        throw Error(error_number::invalidPropertyValue);
    }
    ticked_ = value == 1;
    tellChange();
}

void LightCheckBox::click() {
    ticked_ = !ticked_;
    tellChange();
    deliver(onClick);
}

bool LightCheckBox::press(Key key) {
    if (key != Key::space) {
        return false;
    }
    click();
    return true;
}

void LightOptionButton::select() {
    for (LightOptionButton *member : group()) {
        if (member->selected_ != (member == this)) {
            member->selected_ = member == this;
            member->tellChange();
        }
    }
}

bool LightOptionButton::isTabStop() const {
    const auto members = usableGroup();
    const auto chosen = std::ranges::find_if(members, &LightOptionButton::selected_);
    return !members.empty() && this == (chosen == members.end() ? members.front() : *chosen);
}

void LightOptionButton::click() {
    select();
    deliver(onClick);
}

bool LightOptionButton::press(Key key) {
    if (key == Key::space) {
        click();
        return true;
    }
    const bool isForward = key == Key::down || key == Key::right;
    if (!isForward && key != Key::up && key != Key::left) {
        return false;
    }
    const auto members = usableGroup();
    const auto own = static_cast<std::size_t>(std::ranges::find(members, this) - members.begin());
    const std::size_t step = isForward ? 1 : members.size() - 1;
    LightOptionButton &next = *members[(own + step) % members.size()];
    next.takeFocus();
    next.click();
    return true;
}

std::vector<LightOptionButton *> LightOptionButton::group() const {
    std::vector<LightOptionButton *> members;
    for (const auto &element : window()->elements()) {
        auto *option = dynamic_cast<LightOptionButton *>(element.get());
        if (option != nullptr && option->design().group == design().group) {
            members.push_back(option);
        }
    }
    return members;
}

std::vector<LightOptionButton *> LightOptionButton::usableGroup() const {
    auto members = group();
    std::erase_if(members, [](const auto *member) { return !member->isUsable(); });
    return members;
}

} // namespace kvex::lightweight
