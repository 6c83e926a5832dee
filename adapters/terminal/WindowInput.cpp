// What a terminal's window does with the user's input, and what its status line says.
#include "adapters/terminal/TerminalWindow.h"

#include "adapters/controls/Keys.h"
#include "adapters/terminal/KeysBox.h"
#include "adapters/terminal/WrappedText.h"

#include <algorithm>

namespace kvex::terminal {
namespace {

constexpr int wheelRows = 3;

} // namespace

void TerminalWindow::handle(const Input &input) {
    constexpr Stroke help{Key::help};
    if (input == Input(help) && shape_ == Shape::window) {
        const lightweight::Element *about = explained();
        showKeysBox(desktop_, about != nullptr ? about->namedStatus() : std::u16string());
        return;
    }
    tried_ = nullptr;
    std::visit(
        [this](const auto &what) {
            if constexpr (requires { take(what); }) {
                take(what);
            }
        },
        input);
}

void TerminalWindow::take(const Typed &typed) {
    followsFocus_ = true;
    const bool isAccessKey = std::exchange(awaitsAccessKey_, false) || typed.alt;
    // A box has no texts to type into, so its letters need no Alt.
    if (isAccessKey || (!type(typed.cluster) && shape_ == Shape::box)) {
        useAccessKey(typed.cluster);
    }
}

void TerminalWindow::useAccessKey(std::u16string_view cluster) {
    if (cluster.size() != 1 || pressAccessKey(cluster.front())) {
        return;
    }
    for (const auto &element : elements()) {
        if (element->isVisible() &&
            controls::hasAccessKey(element->accessCaption(), cluster.front())) {
            tried_ = element.get();
        }
    }
}

void TerminalWindow::take(const Stroke &stroke) {
    const bool endsAccessKey = std::exchange(awaitsAccessKey_, false);
    ControlView *view = viewOf(focus());
    switch (stroke.key) {
    case Key::accessKey:
        awaitsAccessKey_ = !endsAccessKey;
        return;
    case Key::suspend:
        desktop_.suspend();
        return;
    case Key::escape:
        if (endsAccessKey) {
            return;
        }
        break;
    case Key::pageUp:
    case Key::pageDown:
        // Where nothing else has pages, the window does.
        if (view == nullptr || !view->hasPages()) {
            scrollPane(stroke.key == Key::pageUp ? -arrangement_.pane.rows
                                                 : arrangement_.pane.rows);
            return;
        }
        break;
    default:
        break;
    }
    followsFocus_ = true;
    if (view == nullptr || !view->press(stroke.key)) {
        press(stroke.key);
    }
}

void TerminalWindow::take(const Pasted &pasted) {
    awaitsAccessKey_ = false;
    followsFocus_ = true;
    ControlView *view = viewOf(focus());
    if (view == nullptr || !view->paste(pasted.text)) {
        paste(pasted.text);
    }
}

void TerminalWindow::take(const MouseEvent &mouse) {
    awaitsAccessKey_ = false;
    const bool isWheel =
        mouse.kind == MouseEvent::Kind::wheelUp || mouse.kind == MouseEvent::Kind::wheelDown;
    if (!isWheel && closeMark_.contains(mouse.at)) {
        close();
        return;
    }
    const auto isThere = [&](const Placed &placed) {
        return visiblePart(placed).contains(mouse.at);
    };
    const auto found =
        std::find_if(arrangement_.placed.rbegin(), arrangement_.placed.rend(), isThere);
    if (isWheel) {
        const int rows = mouse.kind == MouseEvent::Kind::wheelUp ? -wheelRows : wheelRows;
        if (found == arrangement_.placed.rend() ||
            !static_cast<ControlView *>(found->control)->scroll(rows)) {
            scrollPane(rows);
        }
    } else if (found != arrangement_.placed.rend()) {
        click(*found, mouse.at, mouse.kind == MouseEvent::Kind::doubleClick);
    }
}

void TerminalWindow::click(const Placed &placed, Point at, bool twice) {
    auto &view = static_cast<ControlView &>(*placed.control);
    lightweight::Element &element = view.element();
    if (element.isUsable() && element.takesFocus()) {
        element.takeFocus();
        view.click(at, twice);
    } else {
        tried_ = &element;
    }
}

const lightweight::Element *TerminalWindow::explained() const {
    return tried_ != nullptr && !tried_->status().empty() ? tried_ : elementToExplain();
}

std::u16string TerminalWindow::statusLine(int columns) const {
    const auto fits = [&](const std::u16string &text) {
        return shownColumns(text, desktop_.ability().characters) <= columns;
    };
    std::u16string said;
    if (awaitsAccessKey_) {
        said = u"Press an underlined letter";
    } else if (const lightweight::Element *about = explained()) {
        said = about->namedStatus();
        if (!fits(said)) {
            said = about->status();
        }
    } else {
        for (const char16_t *const key :
             {u"Tab: next", u"  Esc: cancel", u"  Alt+letter or F2, letter: underlined letter"}) {
            if (fits(said + key)) {
                said += key;
            }
        }
    }
    if (fits(said)) {
        return said;
    }
    constexpr std::u16string_view more = u"...";
    const int room = columns - static_cast<int>(more.size());
    std::u16string_view part = beginning(said, room, desktop_.ability().characters);
    // A half word would mislead.
    if (const std::size_t blank = said.rfind(u' ', part.size()); blank != std::u16string::npos) {
        part = part.substr(0, blank);
    }
    return std::u16string(part).append(more);
}

} // namespace kvex::terminal
