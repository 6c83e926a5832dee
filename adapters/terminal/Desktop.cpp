#include "adapters/terminal/Desktop.h"

#include "adapters/terminal/TerminalWindow.h"

#include <algorithm>

namespace kvex::terminal {

/// While it lives, its window is the active one.
class Desktop::Showing {
public:
    Showing(Desktop &desktop, TerminalWindow &window) : desktop_(desktop), window_(window) {
        desktop_.shown_.push_back(&window);
        try {
            desktop_.holdTerminalAsNeeded(desktop_.windows_);
        } catch (...) {
            desktop_.shown_.pop_back();
            throw;
        }
    }
    ~Showing() {
        window_.close();
        desktop_.shown_.pop_back();
        desktop_.holdTerminalAsNeeded(desktop_.windows_);
    }
    Showing(const Showing &) = delete;
    Showing &operator=(const Showing &) = delete;

private:
    Desktop &desktop_;
    TerminalWindow &window_;
};

Ability Desktop::ability() const {
    return {terminal_.characters(), terminal_.hasColours()};
}

void Desktop::run(TerminalWindow &window) {
    const Showing showing(*this, window);
    while (window.isOpen()) {
        handleNext();
    }
}

void Desktop::handleNext() {
    // Nobody would see a picture before the next one.
    if (!terminal_.hasInput()) {
        terminal_.show(picture());
    }
    const Input input = terminal_.next();
    if (std::holds_alternative<HungUp>(input)) {
        closeAll();
    } else if (TerminalWindow *window = active(); window != nullptr && window->isOpen()) {
        window->handle(input);
    }
}

/// As if the user closed each window by its frame.
void Desktop::closeAll() {
    for (TerminalWindow *window : shown_) {
        window->close();
    }
}

CellGrid Desktop::picture() const {
    CellGrid grid(terminal_.size(), terminal_.characters());
    const auto fillsTerminal = [](const TerminalWindow *window) { return window->fillsTerminal(); };
    // Nothing below such a window can be seen.
    const auto highest = std::find_if(shown_.rbegin(), shown_.rend(), fillsTerminal);
    auto window = highest == shown_.rend() ? shown_.begin() : highest.base() - 1;
    for (; window != shown_.end(); ++window) {
        grid.cursor.reset();
        (*window)->paint(grid, *window == shown_.back());
    }
    return grid;
}

void Desktop::windowDone() {
    holdTerminalAsNeeded(windows_ - 1);
    // From now on another thread may have the terminal.
    --windows_;
}

/// The terminal stays for so many windows.
void Desktop::holdTerminalAsNeeded(int windows) {
    const bool needed = !shown_.empty() || (holdsTerminal_ && windows > 0);
    if (needed && !holdsTerminal_) {
        terminal_.open();
    } else if (!needed && holdsTerminal_) {
        terminal_.close();
    }
    holdsTerminal_ = needed;
}

} // namespace kvex::terminal
