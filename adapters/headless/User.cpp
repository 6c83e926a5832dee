#include "adapters/headless/User.h"

#include "adapters/controls/Keys.h"
#include "adapters/headless/HeadlessWindow.h"
#include "adapters/lightweight/LightButtons.h"
#include "adapters/lightweight/LightDTPicker.h"
#include "adapters/lightweight/LightListView.h"
#include "platform/Text.h"
#include "platform/Utf16.h"

#include <algorithm>

namespace kvex::headless {

using controls::parseCaption;
using lightweight::Element;
using lightweight::LightDTPicker;
using lightweight::LightListView;

void User::complain(std::u16string_view text) const {
    window_.toolkit().addProblem(window_.name(), text);
}

bool User::isBeforeWindow() const {
    if (!window_.isOpen()) {
        complain(u"is closed");
    } else if (window_.toolkit().shown_.back() != &window_) {
        complain(u"is under " + window_.toolkit().shown_.back()->name());
    } else {
        return true;
    }
    return false;
}

template <class Kind> Kind *User::usable(std::u16string_view name) const {
    if (!isBeforeWindow()) {
        return nullptr;
    }
    const std::u16string called(name);
    Element *element = window_.element(name);
    auto *found = dynamic_cast<Kind *>(element);
    if (found == nullptr) {
        complain(called + u" is no such control");
    } else if (!element->isVisible()) {
        complain(called + u" is not visible");
    } else if (!element->isEnabled()) {
        complain(called + u" is disabled");
    } else {
        return found;
    }
    return nullptr;
}

void User::click(std::u16string_view control) {
    if (auto *element = usable<Element>(control)) {
        if (element->takesFocus()) {
            element->takeFocus();
        }
        element->click();
    }
}

template <class Action>
void User::onRow(std::u16string_view list, int row, const Action &action) const {
    if (auto *view = usable<LightListView>(list)) {
        if (row < 1 || row > view->rowCount()) {
            complain(std::u16string(list) + u" has no row " + toText(std::int64_t{row}));
            return;
        }
        view->takeFocus();
        action(*view);
    }
}

void User::clickRow(std::u16string_view list, int row) {
    onRow(list, row, [row](LightListView &view) { view.clickRow(row); });
}

void User::clickBesideRows(std::u16string_view list) {
    if (auto *view = usable<LightListView>(list)) {
        view->takeFocus();
        view->clickBesideRows();
    }
}

void User::doubleClickRow(std::u16string_view list, int row) {
    onRow(list, row, [row](LightListView &view) { view.doubleClickRow(row); });
}

void User::doubleClickBesideRows(std::u16string_view list) {
    if (auto *view = usable<LightListView>(list)) {
        view->takeFocus();
        view->clickBesideRows();
    }
}

void User::tickRow(std::u16string_view list, int row) {
    onRow(list, row, [&](LightListView &view) {
        if (view.design().checkBoxes) {
            view.tickRow(row);
        } else {
            complain(std::u16string(list) + u" has no check boxes");
        }
    });
}

void User::closeByFrame() {
    if (isBeforeWindow()) {
        window_.close();
    }
}

void User::press(Key key) {
    if (isBeforeWindow()) {
        window_.press(key);
    }
}

void User::type(std::u16string_view text) {
    for (std::size_t at = 0; at < text.size() && isBeforeWindow();) {
        const std::size_t from = at;
        const char32_t character = nextCharacter(text, at);
        if (character == u'\r' || character == u'\n') {
            at = from + (text.substr(from, 2) == u"\r\n" ? 2 : 1);
            window_.press(Key::enter);
        } else if (character == u'\t') {
            window_.press(Key::tab);
        } else if (window_.focus() == nullptr) {
            complain(u"no control has the focus");
        } else if (!window_.type(text.substr(from, at - from))) {
            complain(window_.focus()->design().name + u" takes no text");
        }
    }
}

void User::pressAccessKey(char16_t key) {
    if (isBeforeWindow() && !window_.pressAccessKey(key)) {
        complain(u"no control has the access key " + std::u16string(1, key));
    }
}

void User::focusOn(std::u16string_view control) {
    if (auto *element = usable<Element>(control)) {
        if (element->takesFocus()) {
            element->takeFocus();
        } else {
            complain(std::u16string(control) + u" takes no focus");
        }
    }
}

template <class Action>
void User::onPicker(std::u16string_view picker, const Action &action) const {
    if (auto *found = usable<LightDTPicker>(picker)) {
        found->takeFocus();
        try {
            action(*found);
        } catch (const Error &) {
            complain(std::u16string(picker) + u" takes no such value");
        }
    }
}

void User::pickDate(std::u16string_view picker, int year, int month, int day) {
    onPicker(picker, [=](LightDTPicker &found) { found.pickDate(year, month, day); });
}

void User::pickTime(std::u16string_view picker, int hour, int minute, int second) {
    onPicker(picker, [=](LightDTPicker &found) { found.pickTime(hour, minute, second); });
}

void User::tickPicker(std::u16string_view picker, bool ticked) {
    onPicker(picker, [=](LightDTPicker &found) { found.tick(ticked); });
}

Window &User::window() {
    return window_;
}

bool User::isOpen() const {
    return window_.isOpen();
}

std::u16string User::focused() const {
    return window_.focus() != nullptr ? window_.focus()->design().name : std::u16string();
}

std::u16string User::description(std::u16string_view control) const {
    const auto describes = [control](const auto &element) {
        return element->isVisible() && element->design().describes == control;
    };
    const auto found = std::ranges::find_if(window_.elements(), describes);
    return found == window_.elements().end() ? std::u16string()
                                             : parseCaption((*found)->accessCaption()).shown;
}

std::vector<std::u16string> User::rows(std::u16string_view list) {
    const auto &view = window_.get<ListView>(list);
    std::vector<std::u16string> texts;
    for (int row = 1; row <= view.rowCount(); ++row) {
        texts.push_back(view.text(row));
    }
    return texts;
}

std::vector<std::u16string> User::tabOrder() const {
    std::vector<std::u16string> names;
    for (const Element *stop : window_.tabStops()) {
        names.push_back(stop->design().name);
    }
    return names;
}

} // namespace kvex::headless
