// Gives terminals back, whatever ends the process.
#pragma once

#include <atomic>
#include <string_view>
#include <termios.h>

namespace kvex::terminal {

/// A terminal that a device uses. Signal handlers read it, so all of it is prepared in advance, and
/// it never moves.
struct UsedTerminal {
    int input = -1;
    int output = -1;
    termios before{};
    termios raw{};
    std::string_view enter;
    std::string_view leave;
    /// A handler writes here to end a wait for the user.
    int wake = -1;
    /// What the process writes to its diagnostic stream goes to `held`; -1 if it need not.
    int diagnostics = -1;
    int held = -1;

    /// True while the terminal shows windows.
    std::atomic<bool> isEntered = false;
    std::atomic<bool> wasResumed = false;
    std::atomic<bool> hasHungUp = false;
};

/// While one of these exists, the process gives the terminal back when it ends by exit() or by a
/// signal, and when it is stopped. When it continues it takes the terminal again.
class Restoring {
public:
    /// Enters the terminal. Throws Error when the process already uses as many as it can.
    explicit Restoring(UsedTerminal &terminal);
    /// Leaves the terminal.
    ~Restoring();
    Restoring(const Restoring &) = delete;
    Restoring &operator=(const Restoring &) = delete;

private:
    UsedTerminal &terminal_;
};

/// Writes all bytes, and returns false when the file takes no more. A signal handler may call it.
bool writeAll(int file, std::string_view bytes) noexcept;

} // namespace kvex::terminal
