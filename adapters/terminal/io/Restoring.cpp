#include "adapters/terminal/io/Restoring.h"

#include "adapters/terminal/io/SignalHandlers.h"
#include "platform/Error.h"

#include <array>
#include <cerrno>
#include <mutex>
#include <poll.h>
#include <unistd.h>

namespace kvex::terminal {
namespace {

std::array<std::atomic<UsedTerminal *>, 16> terminals;
/// A child process has a copy of all this, but the terminals are not its own.
std::atomic<pid_t> owner = 0;

/// Guards the beginning and the end of a use. Handlers do not take it.
std::mutex &changes() {
    static std::mutex mutex;
    return mutex;
}

/// True when the user has another program in front. The terminal is that program's.
bool isInBackground(int file) noexcept {
    const pid_t foreground = tcgetpgrp(file);
    return foreground > 0 && foreground != getpgrp();
}

void setModes(int file, const termios &modes) noexcept {
    // In the background this stops the process, until the user brings it to the front.
    while (tcsetattr(file, TCSANOW, &modes) != 0 && errno == EINTR) {
    }
}

/// A terminal that takes nothing must not keep the process from ending.
bool takesOutput(int file) noexcept {
    constexpr int patience = 1000; // milliseconds
    pollfd wait{file, POLLOUT, 0};
    return poll(&wait, 1, patience) > 0 && (wait.revents & POLLOUT) != 0;
}

/// Shows what the process wrote to its diagnostic stream meanwhile.
void showHeld(const UsedTerminal &terminal) noexcept {
    dup2(terminal.diagnostics, STDERR_FILENO);
    char buffer[4096];
    ssize_t count = 0;
    for (off_t at = 0; (count = pread(terminal.held, buffer, sizeof buffer, at)) > 0; at += count) {
        if (!takesOutput(STDERR_FILENO) ||
            !writeAll(STDERR_FILENO, {buffer, static_cast<std::size_t>(count)})) {
            break;
        }
    }
    // Nobody can be told when this fails.
    [[maybe_unused]] const int result = ftruncate(terminal.held, 0);
}

void enter(UsedTerminal &terminal) noexcept {
    if (terminal.isEntered.exchange(true)) {
        return;
    }
    setModes(terminal.input, terminal.raw);
    if (terminal.held >= 0) {
        dup2(terminal.held, STDERR_FILENO);
    }
    writeAll(terminal.output, terminal.enter);
}

/// Returns whether it was entered.
bool leave(UsedTerminal &terminal) noexcept {
    if (owner != getpid() || !terminal.isEntered.exchange(false)) {
        return false;
    }
    if (!isInBackground(terminal.output)) {
        if (takesOutput(terminal.output)) {
            writeAll(terminal.output, terminal.leave);
        }
        setModes(terminal.input, terminal.before);
    }
    if (terminal.held >= 0) {
        showHeld(terminal);
    }
    return true;
}

void wake(const UsedTerminal &terminal) noexcept {
    // It fails when the pipe is full, and a full pipe wakes, too.
    [[maybe_unused]] const ssize_t written = write(terminal.wake, "", 1);
}

/// Calls the action for each terminal of this process.
template <class Action> void forEach(Action action) noexcept {
    if (owner != getpid()) {
        return;
    }
    for (std::size_t at = 0; at < terminals.size(); ++at) {
        UsedTerminal *const terminal = terminals[at];
        if (terminal != nullptr) {
            action(*terminal, Terminals{1} << at);
        }
    }
}

Terminals leaveAll() noexcept {
    Terminals left = 0;
    forEach([&left](UsedTerminal &terminal, Terminals bit) {
        if (leave(terminal)) {
            left |= bit;
        }
    });
    return left;
}

void enterAgain(Terminals left) noexcept {
    forEach([left](UsedTerminal &terminal, Terminals bit) {
        if ((left & bit) != 0) {
            enter(terminal);
            terminal.wasResumed = true;
            wake(terminal);
        }
    });
}

/// After a stop that no handler saw, the terminal may have any modes.
void continued() noexcept {
    Terminals entered = 0;
    forEach([&entered](UsedTerminal &terminal, Terminals bit) {
        if (terminal.isEntered.exchange(false)) {
            entered |= bit;
        }
    });
    enterAgain(entered);
}

void hungUp() noexcept {
    forEach([](UsedTerminal &terminal, Terminals) {
        terminal.hasHungUp = true;
        wake(terminal);
    });
}

void resized() noexcept {
    forEach([](UsedTerminal &terminal, Terminals) { wake(terminal); });
}

constexpr SignalReactions reactions{leaveAll, enterAgain, continued, hungUp, resized};

/// Leaves the terminals when the process exits with windows open.
struct ExitGuard {
    ~ExitGuard() { leaveAll(); }
};

bool isNoneUsed() {
    for (const std::atomic<UsedTerminal *> &place : terminals) {
        if (place != nullptr) {
            return false;
        }
    }
    return true;
}

} // namespace

bool writeAll(int file, std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            pollfd wait{file, POLLOUT, 0};
            poll(&wait, 1, -1);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

Restoring::Restoring(UsedTerminal &terminal) : terminal_(terminal) {
    static const ExitGuard guard;
    const std::lock_guard lock(changes());
    if (isNoneUsed()) {
        owner = getpid();
        takeSignals(reactions);
    }
    for (std::atomic<UsedTerminal *> &place : terminals) {
        if (place == nullptr) {
            place = &terminal;
            enter(terminal);
            return;
        }
    }
    throw Error(error_number::cannotCreateObject,
                u"This process already shows windows on as many terminals as it can.");
}

Restoring::~Restoring() {
    const std::lock_guard lock(changes());
    leave(terminal_);
    for (std::atomic<UsedTerminal *> &place : terminals) {
        if (place == &terminal_) {
            place = nullptr;
        }
    }
    if (isNoneUsed()) {
        giveSignalsBack();
    }
}

} // namespace kvex::terminal
