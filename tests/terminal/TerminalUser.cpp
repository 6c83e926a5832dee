#include "tests/terminal/TerminalUser.h"

#include "adapters/lightweight/LightDTPicker.h"
#include "adapters/lightweight/LightListView.h"
#include "platform/Text.h"
#include "platform/Utf16.h"
#include "tests/terminal/TerminalPlay.h"

#include <algorithm>
#include <array>

namespace kvex::test {

using terminal::Point;
using terminal::Rect;

namespace {

std::string mouse(int button, Point at, char final) {
    return "\x1b[<" + std::to_string(button) + ';' + std::to_string(at.column + 1) + ';' +
           std::to_string(at.row + 1) + final;
}

std::u16string joined(std::array<int, 3> numbers, const char *separator) {
    return fromUtf8(std::to_string(numbers[0]) + separator + std::to_string(numbers[1]) +
                    separator + std::to_string(numbers[2]));
}

} // namespace

std::string TerminalUser::bytesOf(Key key) {
    switch (key) {
    case Key::enter:
        return "\r";
    case Key::escape:
        return "\x1b";
    case Key::tab:
        return "\t";
    case Key::shiftTab:
        return "\x1b[Z";
    case Key::space:
        return " ";
    case Key::backspace:
        return "\x7f";
    case Key::deleteKey:
        return "\x1b[3~";
    case Key::up:
        return "\x1bOA";
    case Key::down:
        return "\x1bOB";
    case Key::right:
        return "\x1bOC";
    case Key::left:
        return "\x1bOD";
    case Key::wordRight:
        return "\x1b[1;5C";
    case Key::wordLeft:
        return "\x1b[1;5D";
    case Key::home:
        return "\x1bOH";
    case Key::end:
        return "\x1bOF";
    case Key::goUp:
        return "\x1b[1;5A";
    case Key::goDown:
        return "\x1b[1;5B";
    case Key::pageUp:
        return "\x1b[5~";
    case Key::pageDown:
        return "\x1b[6~";
    case Key::textStart:
        return "\x1b[1;5H";
    case Key::textEnd:
        return "\x1b[1;5F";
    case Key::selectUp:
        return "\x1b[1;2A";
    case Key::selectDown:
        return "\x1b[1;2B";
    case Key::selectRight:
        return "\x1b[1;2C";
    case Key::selectLeft:
        return "\x1b[1;2D";
    case Key::selectWordRight:
        return "\x1b[1;6C";
    case Key::selectWordLeft:
        return "\x1b[1;6D";
    case Key::selectHome:
        return "\x1b[1;2H";
    case Key::selectEnd:
        return "\x1b[1;2F";
    case Key::selectAll:
        return "\x01";
    case Key::toggleRow:
        return std::string(1, '\0');
    case Key::cut:
        return "\x18";
    case Key::copy:
        return "\x03";
    case Key::paste:
        return "\x16";
    case Key::help:
        return "\x1bOP";
    case Key::accessKey:
        return "\x1bOQ";
    case Key::suspend:
        return "\x1a";
    }
    return {};
}

void TerminalUser::complain(std::u16string_view problem) {
    play_.complain(toUtf8(window_.name() + u": " + std::u16string(problem)));
}

std::optional<Rect> TerminalUser::seen(std::u16string_view control) {
    play_.look();
    const auto rect = window_.seenAt(control);
    if (!rect) {
        complain(std::u16string(control) + u" is not on the screen");
    }
    return rect;
}

void TerminalUser::clickAt(Point at, int times) {
    const auto press = [](Point point) { return mouse(0, point, 'M') + mouse(0, point, 'm'); };
    // A click at another place comes first, so that two clicks at one place are two single ones.
    // The last line is no control.
    const Point nowhere{0, play_.device().size().rows - 1};
    std::string bytes = press(nowhere);
    for (int time = 0; time < times; ++time) {
        bytes += press(at);
    }
    play_.input(bytes);
}

void TerminalUser::click(std::u16string_view control) {
    const lightweight::Element *element = window_.element(control);
    if (element != nullptr && !element->isUsable()) {
        complain(std::u16string(control) + u" cannot be used");
    } else {
        tryToClick(control);
    }
}

void TerminalUser::tryToClick(std::u16string_view control) {
    if (const auto rect = seen(control)) {
        clickAt({rect->column + 1, rect->row + rect->rows / 2});
    }
}

std::optional<Point> TerminalUser::placeOfRow(std::u16string_view list, int row) {
    auto *view = dynamic_cast<lightweight::LightListView *>(window_.element(list));
    if (view == nullptr || row < 1 || row > view->rowCount()) {
        complain(std::u16string(list) + u" has no row " + toText(std::int64_t{row}));
        return std::nullopt;
    }
    const auto rect = seen(list);
    if (!rect) {
        return std::nullopt;
    }
    // The wheel turns until the row is in view.
    const auto visible = [&] { return view->visibleRows(); };
    while (!visible().contains(row)) {
        const int button = row < visible().first() ? 64 : 65;
        const int before = visible().first();
        play_.input(mouse(button, {rect->column + 1, rect->row}, 'M'));
        if (visible().first() == before) {
            complain(u"no wheel leads to the row");
            return std::nullopt;
        }
    }
    const bool hasFrame = window_.economy() < terminal::Economy::noListFrames;
    const bool hasHeader = view->design().columnHeaders && view->columnCount() > 0;
    return Point{rect->column + 1,
                 rect->row + (hasFrame ? 1 : 0) + (hasHeader ? 1 : 0) + row - visible().first()};
}

void TerminalUser::clickRow(std::u16string_view list, int row) {
    if (const auto place = placeOfRow(list, row)) {
        clickAt({place->column + 4, place->row});
    }
}

void TerminalUser::doubleClickRow(std::u16string_view list, int row) {
    if (const auto place = placeOfRow(list, row)) {
        clickAt({place->column + 4, place->row}, 2);
    }
}

void TerminalUser::tickRow(std::u16string_view list, int row) {
    const auto place = placeOfRow(list, row);
    if (place && window_.element(list)->design().checkBoxes) {
        clickAt({place->column + 1, place->row});
    } else {
        complain(std::u16string(list) + u" has no check boxes");
    }
}

void TerminalUser::doubleClickBesideRows(std::u16string_view list) {
    const auto rect = seen(list);
    if (!rect) {
        return;
    }
    const int frame = window_.economy() < terminal::Economy::noListFrames ? 1 : 0;
    clickAt({rect->column + 3, rect->row + rect->rows - 1 - frame}, 2);
}

void TerminalUser::closeByFrame() {
    if (isOpen()) {
        play_.look();
        clickAt({window_.closeMark().column, window_.closeMark().row});
    }
}

void TerminalUser::press(Key key) {
    play_.input(bytesOf(key));
}

void TerminalUser::type(std::u16string_view text) {
    std::u16string typed(text);
    for (std::size_t at = typed.find(u"\r\n"); at != std::u16string::npos;
         at = typed.find(u"\r\n", at)) {
        typed.erase(at + 1, 1);
    }
    std::ranges::replace(typed, u'\n', u'\r');
    play_.input(toUtf8(typed));
}

void TerminalUser::pressAccessKey(char16_t key) {
    play_.input("\x1b" + toUtf8(std::u16string_view(&key, 1)));
}

void TerminalUser::focusOn(std::u16string_view control) {
    click(control);
}

void TerminalUser::retype(std::u16string_view picker, std::u16string_view value) {
    const auto *element = dynamic_cast<lightweight::LightDTPicker *>(window_.element(picker));
    if (element == nullptr || !element->isUsable() || !element->hasValue()) {
        complain(std::u16string(picker) + u" takes no value");
        return;
    }
    if (const auto rect = seen(picker)) {
        constexpr int tickColumns = 4;
        clickAt({rect->column + tickColumns, rect->row});
        play_.input("\x1b[200~" + toUtf8(value) + "\x1b[201~");
    }
}

void TerminalUser::pickDate(std::u16string_view picker, int year, int month, int day) {
    retype(picker, joined({day, month, year}, "/"));
}

void TerminalUser::pickTime(std::u16string_view picker, int hour, int minute, int second) {
    retype(picker, joined({hour, minute, second}, ":"));
}

void TerminalUser::tickPicker(std::u16string_view picker, bool ticked) {
    const auto *element = dynamic_cast<lightweight::LightDTPicker *>(window_.element(picker));
    if (element != nullptr && element->hasValue() != ticked) {
        click(picker);
    }
}

std::u16string TerminalUser::focused() const {
    return window_.focus() != nullptr ? window_.focus()->design().name : std::u16string();
}

std::u16string TerminalUser::description(std::u16string_view control) const {
    const auto describes = [control](const auto &element) {
        return element->isVisible() && element->design().describes == control;
    };
    const auto found = std::ranges::find_if(window_.elements(), describes);
    return found == window_.elements().end()
               ? std::u16string()
               : controls::parseCaption((*found)->accessCaption()).shown;
}

std::vector<std::u16string> TerminalUser::tabOrder() const {
    std::vector<std::u16string> names;
    for (const lightweight::Element *stop : window_.tabStops()) {
        names.push_back(stop->design().name);
    }
    return names;
}

bool TerminalUser::isUsable(std::u16string_view control) const {
    return window_.element(control)->isUsable();
}

std::u16string TerminalUser::waitsFor(std::u16string_view control) const {
    return window_.element(control)->isEnabled() ? std::u16string()
                                                 : window_.element(control)->status();
}

} // namespace kvex::test
