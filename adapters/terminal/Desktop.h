// The windows that one terminal shows, over each other.
#pragma once

#include "adapters/lightweight/LightClipboard.h"
#include "adapters/terminal/ControlView.h"
#include "adapters/terminal/io/Terminal.h"

#include <atomic>
#include <vector>

namespace kvex::terminal {

class TerminalWindow;

class Desktop {
public:
    /// Fails with cannotCreateObject if a terminal of this kind cannot show windows. The device
    /// and the clipboard must outlive the desktop.
    Desktop(Device &device, const TerminalKind &kind, lightweight::LightClipboard &clipboard)
        : terminal_(device, kind), clipboard_(clipboard) {}

    [[nodiscard]] Ability ability() const;
    [[nodiscard]] bool hasMouse() const { return terminal_.hasMouse(); }
    [[nodiscard]] lightweight::LightClipboard &clipboard() { return clipboard_; }

    /// Shows the window over the others and handles the user's input until it is closed.
    void run(TerminalWindow &window);
    /// Waits for one input of the user, with the present picture on the terminal, and gives it to
    /// the active window. Throws nothing that comes from a handler.
    void handleNext();
    /// What the terminal shows now. Also gives every control its place.
    [[nodiscard]] CellGrid picture() const;
    void suspend() { terminal_.suspend(); }
    /// Null if no window is shown.
    [[nodiscard]] TerminalWindow *active() const {
        return shown_.empty() ? nullptr : shown_.back();
    }

    /// Called for each window when it is made, and when it will not be shown or shown longer.
    /// Between two windows the terminal is not given back.
    void windowMade() { ++windows_; }
    void windowDone();
    /// Any thread may call it.
    [[nodiscard]] bool hasWindows() const { return windows_ > 0; }

private:
    class Showing;

    void holdTerminalAsNeeded(int windows);
    void closeAll();

    Terminal terminal_;
    lightweight::LightClipboard &clipboard_;
    /// The active window is the last one.
    std::vector<TerminalWindow *> shown_;
    std::atomic<int> windows_ = 0;
    bool holdsTerminal_ = false;
};

} // namespace kvex::terminal
