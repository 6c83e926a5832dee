// What a terminal's window does with the user's input, and what its status line says.
#include "adapters/terminal/TerminalWindow.h"

#include "adapters/controls/Keys.h"
#include "adapters/terminal/KeysBox.h"

#include <algorithm>

namespace kvex::terminal {
namespace {

constexpr int wheelRows = 3;

/// A caption without the mark of its access key.
std::u16string shownCaption(const lightweight::Element &element) {
    return controls::parseCaption(element.accessCaption()).shown;
}

bool isWaiting(const lightweight::Element &element) {
    return element.isVisible() && !element.isEnabled() && !element.design().disabledHint.empty();
}

std::u16string waitingText(const lightweight::Element &element) {
    const std::u16string caption = shownCaption(element);
    const std::u16string &hint = element.design().disabledHint;
    return caption.empty() ? hint : caption + u": " + hint;
}

} // namespace

void TerminalWindow::handle(const Input &input) {
    answer_.clear();
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
    const auto isMeant = [cluster](const auto &element) {
        return isWaiting(*element) &&
               controls::hasAccessKey(element->accessCaption(), cluster.front());
    };
    const auto found = std::ranges::find_if(elements(), isMeant);
    if (found != elements().end()) {
        explain(**found);
    }
}

void TerminalWindow::explain(const lightweight::Element &disabled) {
    answer_ = waitingText(disabled);
}

void TerminalWindow::take(const Stroke &stroke) {
    const bool endsAccessKey = std::exchange(awaitsAccessKey_, false);
    ControlView *view = viewOf(focus());
    switch (stroke.key) {
    case Key::help:
        showKeysBox(desktop_);
        return;
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
        if (view == nullptr || !view->growsDown()) {
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
    paste(pasted.text);
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
    const auto found = std::find_if(arrangement_.placed.rbegin(), arrangement_.placed.rend(),
                                    isThere);
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
    } else if (isWaiting(element)) {
        explain(element);
    }
}

/// What the first disabled control after the focus waits for, or else the default button.
std::u16string TerminalWindow::waitingHint() const {
    auto next = std::ranges::find_if(
        elements(), [this](const auto &element) { return element.get() == focus(); });
    if (next != elements().end()) {
        ++next;
    }
    for (; next != elements().end() && !((*next)->isUsable() && (*next)->isTabStop()); ++next) {
        if (isWaiting(**next)) {
            return waitingText(**next);
        }
    }
    const auto isWaitingDefault = [](const auto &element) {
        return element->design().isDefault && isWaiting(*element);
    };
    const auto found = std::ranges::find_if(elements(), isWaitingDefault);
    return found == elements().end() ? std::u16string() : waitingText(**found);
}

std::u16string TerminalWindow::status() const {
    if (awaitsAccessKey_) {
        return u"Press an underlined letter   Esc: back";
    }
    if (!answer_.empty()) {
        return answer_;
    }
    const ControlView *view = viewOf(focus());
    const std::u16string hint = view != nullptr ? view->hint() : std::u16string();
    if (!hint.empty()) {
        return hint;
    }
    const std::u16string waiting = waitingHint();
    if (!waiting.empty()) {
        return waiting;
    }
    return u"F1: keys   Tab: next   Alt or F2 and letter: access key   Esc: cancel";
}

} // namespace kvex::terminal
