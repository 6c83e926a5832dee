#include "adapters/terminal/io/PosixDevice.h"

#include "adapters/terminal/io/AlternateStack.h"
#include "adapters/terminal/io/OpenFile.h"
#include "adapters/terminal/io/Restoring.h"
#include "platform/Error.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <poll.h>
#include <signal.h> // NOLINT: the standard's header lacks kill.
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace kvex::terminal {
namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void refuse() {
    throw Error(error_number::cannotCreateObject,
                u"The program's input and output are no terminal; start it at a terminal, without "
                u"a redirection, or use a display.");
}

/// Every key arrives at once and as it is; nothing is echoed.
termios rawModes(const termios &before) {
    termios raw = before;
    raw.c_iflag &= ~static_cast<tcflag_t>(IGNBRK | BRKINT | PARMRK | INPCK | ISTRIP | INLCR |
                                          IGNCR | ICRNL | IXON | IXOFF);
    raw.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    raw.c_lflag &= ~static_cast<tcflag_t>(ECHO | ECHONL | ICANON | IEXTEN);
    raw.c_lflag |= ISIG;
    raw.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB);
    raw.c_cflag |= CS8;
    // Of the keys that send signals, only the one for SIGQUIT is left.
    raw.c_cc[VINTR] = _POSIX_VDISABLE;
    raw.c_cc[VSUSP] = _POSIX_VDISABLE;
    raw.c_cc[VMIN] = 1;
    raw.c_cc[VTIME] = 0;
    return raw;
}

bool isSameTerminal(int one, int other) {
    struct stat a {};
    struct stat b {};
    return fstat(one, &a) == 0 && fstat(other, &b) == 0 && S_ISCHR(a.st_mode) &&
           S_ISCHR(b.st_mode) && a.st_rdev == b.st_rdev;
}

/// A file in memory, to whose end every write goes.
OpenFile heldMessages() {
    OpenFile file(memfd_create("diagnostics", MFD_CLOEXEC));
    if (file.number() >= 0) {
        fcntl(file.number(), F_SETFL, O_APPEND);
    }
    return file;
}

} // namespace

struct PosixDevice::Use {
    Use(int input, int output, std::string_view enterBytes, std::string_view leaveBytes)
        : enter(enterBytes), leave(leaveBytes) {
        std::array<int, 2> pipe{};
        if (tcgetattr(input, &terminal.before) != 0 || isatty(output) != 1 ||
            pipe2(pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
            refuse();
        }
        wakeUp = OpenFile(pipe[0]);
        wakeSender = OpenFile(pipe[1]);
        terminal.input = input;
        terminal.output = output;
        terminal.raw = rawModes(terminal.before);
        terminal.enter = enter;
        terminal.leave = leave;
        terminal.wake = wakeSender.number();
        if (isSameTerminal(output, STDERR_FILENO)) {
            diagnostics = OpenFile(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0));
            held = heldMessages();
            if (diagnostics.number() >= 0) {
                terminal.diagnostics = diagnostics.number();
                terminal.held = held.number();
            }
        }
        restoring.emplace(terminal);
    }

    const std::string enter;
    const std::string leave;
    OpenFile wakeUp;
    OpenFile wakeSender;
    OpenFile diagnostics;
    OpenFile held;
    AlternateStack stack;
    UsedTerminal terminal;
    Size size;
    /// Goes first: it uses all of the above.
    std::optional<Restoring> restoring;
};

PosixDevice::PosixDevice(int input, int output) : input_(input), output_(output) {}

PosixDevice::~PosixDevice() = default;

void PosixDevice::acquire(std::string_view enter, std::string_view leave) {
    use_ = std::make_unique<Use>(input_, output_, enter, leave);
    use_->size = size();
}

void PosixDevice::release() noexcept {
    use_.reset();
}

Size PosixDevice::size() const {
    winsize size{};
    if (ioctl(output_, TIOCGWINSZ, &size) != 0) {
        return {};
    }
    return {size.ws_col, size.ws_row};
}

Arrival PosixDevice::read(std::optional<std::chrono::milliseconds> timeout) {
    using Kind = Arrival::Kind;
    if (!use_) {
        return {Kind::hungUp, {}};
    }
    UsedTerminal &terminal = use_->terminal;
    const auto end = Clock::now() + timeout.value_or(std::chrono::milliseconds(0));
    for (;;) {
        if (terminal.hasHungUp) {
            return {Kind::hungUp, {}};
        }
        if (terminal.wasResumed.exchange(false)) {
            use_->size = size();
            return {Kind::resumed, {}};
        }
        // Only the terminal that controls the process sends it a signal, so the size is compared.
        if (const Size now = size(); now != Size{} && now != use_->size) {
            use_->size = now;
            return {Kind::resized, {}};
        }
        using std::chrono::ceil;
        const auto left = ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        const int patience = timeout ? static_cast<int>(std::max<std::int64_t>(0, left)) : -1;
        std::array<pollfd, 2> waits{{{input_, POLLIN, 0}, {use_->wakeUp.number(), POLLIN, 0}}};
        const int ready = poll(waits.data(), waits.size(), patience);
        if (ready == 0) {
            return {};
        }
        if (ready < 0) {
            continue;
        }
        std::array<char, 65536> buffer; // NOLINT: read() fills it.
        if (waits[1].revents != 0) {
            [[maybe_unused]] const ssize_t woken =
                ::read(use_->wakeUp.number(), buffer.data(), buffer.size());
            continue;
        }
        const ssize_t count = ::read(input_, buffer.data(), buffer.size());
        if (count > 0) {
            return {Kind::bytes, std::string(buffer.data(), static_cast<std::size_t>(count))};
        }
        terminal.hasHungUp = count == 0 || (errno != EAGAIN && errno != EINTR);
    }
}

void PosixDevice::write(std::string_view bytes) {
    if (use_ && use_->terminal.isEntered && !use_->terminal.hasHungUp &&
        !writeAll(output_, bytes)) {
        use_->terminal.hasHungUp = true;
    }
}

void PosixDevice::suspend() {
    if (!use_) {
        return;
    }
    if (tcgetsid(output_) == getsid(0)) {
        // As the terminal itself would: to all programs that the shell started together.
        kill(0, SIGTSTP);
    } else {
        use_->terminal.wasResumed = true;
    }
}

bool isAtTerminal() noexcept {
    return isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1;
}

} // namespace kvex::terminal
