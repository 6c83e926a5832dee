#include "tests/torture/monkey/Hands.h"

#include "adapters/controls/Keys.h"
#include "adapters/lightweight/LightListView.h"

#include <algorithm>
#include <chrono>

namespace kvex::torture {
namespace {

using headless::HeadlessWindow;
using headless::Key;
using lightweight::Element;
using lightweight::LightListView;

Element *usable(const HeadlessWindow &window, std::u16string_view name) {
    Element *element = window.element(name);
    return element != nullptr && element->isUsable() ? element : nullptr;
}

bool isKind(const Element *element, std::initializer_list<ControlKind> kinds) {
    return element != nullptr && std::ranges::count(kinds, element->design().kind) > 0;
}

/// The controls that the access key leads to, each with whether the key also clicks it.
std::vector<std::pair<Element *, bool>> waysOf(const HeadlessWindow &window, char16_t key) {
    std::vector<std::pair<Element *, bool>> ways;
    for (const auto &element : window.elements()) {
        if (!element->isUsable() || !controls::hasAccessKey(element->accessCaption(), key)) {
            continue;
        }
        Element *target =
            element->takesFocus() ? element.get() : usable(window, element->design().buddy);
        if (target != nullptr && target->takesFocus()) {
            ways.emplace_back(target, target == element.get());
        }
    }
    return ways;
}

Key keyNamed(std::u16string_view name) {
    return std::ranges::find(keys, name, &std::pair<std::u16string_view, Key>::first)->second;
}

bool takesBreaks(const Element *element) {
    return isKind(element, {ControlKind::richTextBox}) && !element->design().readOnly;
}

bool isPossibleText(const Element *element, std::u16string_view text) {
    const bool breaks = text.find_first_of(u"\r\n\t") != std::u16string_view::npos;
    // Elsewhere a line break presses a button, and a blank ticks a row.
    if (isKind(element, {ControlKind::listView})) {
        return !breaks && text.find(u' ') == std::u16string_view::npos;
    }
    return takesBreaks(element) ||
           (isKind(element, {ControlKind::textBox, ControlKind::richTextBox}) && !breaks);
}

bool isDate(const std::vector<int> &parts) {
    using namespace std::chrono;
    const year_month_day date{year(parts[0]), month(static_cast<unsigned>(parts[1])),
                              day(static_cast<unsigned>(parts[2]))};
    return date.ok() && parts[0] >= 1900 && parts[0] <= 3000;
}

/// The button that the key presses from where the focus is.
std::u16string buttonOf(Key key, const HeadlessWindow &window) {
    const Element *focus = window.focus();
    const bool pressesFocus = key == Key::space || key == Key::enter;
    if (pressesFocus && isKind(focus, {ControlKind::commandButton})) {
        return focus->design().name;
    }
    if (key == Key::enter && takesBreaks(focus)) {
        return {};
    }
    for (const auto &element : window.elements()) {
        const ControlDesign &design = element->design();
        if ((key == Key::enter && design.isDefault) || (key == Key::escape && design.isCancel)) {
            return element->isUsable() ? design.name : std::u16string();
        }
    }
    return {};
}

Aim aimOfKey(Key key, const HeadlessWindow &window) {
    Element *focus = window.focus();
    if (key == Key::space && isKind(focus, {ControlKind::listView}) && focus->design().checkBoxes) {
        const int row = dynamic_cast<LightListView *>(focus)->currentRow();
        return {row > 0 ? focus->design().name : std::u16string(), row};
    }
    return {buttonOf(key, window)};
}

} // namespace

bool isPossible(const Event &event, const HeadlessWindow &window) {
    const Element *element = usable(window, event.control);
    switch (event.kind) {
    case EventKind::click:
        return isKind(element, {ControlKind::commandButton, ControlKind::checkBox,
                                ControlKind::optionButton});
    case EventKind::clickRow:
    case EventKind::doubleClickRow:
    case EventKind::tick: {
        const auto *list = dynamic_cast<const LightListView *>(element);
        return list != nullptr && event.numbers[0] >= 1 && event.numbers[0] <= list->rowCount() &&
               (event.kind != EventKind::tick || list->design().checkBoxes);
    }
    case EventKind::clickBeside:
    case EventKind::doubleClickBeside:
        return isKind(element, {ControlKind::listView});
    case EventKind::write:
        return !isKind(element, {ControlKind::listView}) && isPossibleText(element, event.text);
    case EventKind::type:
        return isPossibleText(window.focus(), event.text);
    case EventKind::key:
        return std::ranges::count(keys, event.text, &std::pair<std::u16string_view, Key>::first) >
               0;
    case EventKind::accessKey:
        return !event.text.empty() && !waysOf(window, event.text.front()).empty();
    case EventKind::focus:
        return element != nullptr && element->takesFocus();
    case EventKind::pickDate:
        return isKind(element, {ControlKind::datePicker}) && isDate(event.numbers);
    case EventKind::pickTime:
        return isKind(element, {ControlKind::timePicker});
    case EventKind::tickPicker:
        return isKind(element, {ControlKind::datePicker, ControlKind::timePicker});
    case EventKind::closeFrame:
        return true;
    default:
        return false;
    }
}

Aim aimOf(const Event &event, const HeadlessWindow &window) {
    switch (event.kind) {
    case EventKind::click:
        return {event.control};
    case EventKind::tick:
        return {event.control, event.numbers[0]};
    case EventKind::key:
        return aimOfKey(keyNamed(event.text), window);
    case EventKind::accessKey: {
        const auto ways = waysOf(window, event.text.front());
        // Where several controls have the key, it only moves the focus.
        return {ways.size() == 1 && ways.front().second ? ways.front().first->design().name
                                                        : std::u16string()};
    }
    default:
        return {};
    }
}

void perform(const Event &event, headless::User &user) {
    const auto number = [&](std::size_t at) { return event.numbers[at]; };
    switch (event.kind) {
    case EventKind::click:
        return user.click(event.control);
    case EventKind::clickRow:
        return user.clickRow(event.control, number(0));
    case EventKind::doubleClickRow:
        return user.doubleClickRow(event.control, number(0));
    case EventKind::clickBeside:
        return user.clickBesideRows(event.control);
    case EventKind::doubleClickBeside:
        return user.doubleClickBesideRows(event.control);
    case EventKind::tick:
        return user.tickRow(event.control, number(0));
    case EventKind::write:
        user.focusOn(event.control);
        user.press(Key::selectAll);
        return user.type(event.text);
    case EventKind::type:
        return user.type(event.text);
    case EventKind::key:
        return user.press(keyNamed(event.text));
    case EventKind::accessKey:
        return user.pressAccessKey(event.text.front());
    case EventKind::focus:
        return user.focusOn(event.control);
    case EventKind::pickDate:
        return user.pickDate(event.control, number(0), number(1), number(2));
    case EventKind::pickTime:
        return user.pickTime(event.control, number(0), number(1), number(2));
    case EventKind::tickPicker:
        return user.tickPicker(event.control, number(0) == 1);
    case EventKind::closeFrame:
        return user.closeByFrame();
    default:
        return;
    }
}

} // namespace kvex::torture
