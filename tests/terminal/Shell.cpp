#include "tests/terminal/Shell.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace kvex::test {
namespace {

/// Only a hang lasts so long.
constexpr int limit = 30000; // milliseconds

bool isReadable(int file, int timeout) {
    pollfd wait{file, POLLIN, 0};
    return poll(&wait, 1, timeout) > 0;
}

void mustWrite(int file, const void *bytes, std::size_t size) {
    if (write(file, bytes, size) != static_cast<ssize_t>(size)) {
        throw std::runtime_error("cannot write");
    }
}

template <class Value> Value mustRead(int file) {
    Value value{};
    if (!isReadable(file, limit) || read(file, &value, sizeof value) != sizeof value) {
        throw std::runtime_error("nothing came from the shell");
    }
    return value;
}

/// Signals that a test or its runner ignores are not ignored in a shell.
void defaultSignals() {
    for (int number = 1; number < NSIG; ++number) {
        std::signal(number, SIG_DFL);
    }
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
}

pid_t startProgram(const std::function<void()> &program) {
    // The program would write what its parent has not written yet.
    std::fflush(nullptr);
    const pid_t process = fork();
    if (process == 0) {
        setpgid(0, 0);
        tcsetpgrp(STDIN_FILENO, getpid());
        defaultSignals();
        program();
        std::_Exit(0);
    }
    setpgid(process, process);
    tcsetpgrp(STDIN_FILENO, process);
    return process;
}

/// Reports each ending of the program, and continues it when it is told to.
[[noreturn]] void playShell(int terminal, int reports, int orders,
                            const std::function<void()> &program) {
    setsid();
    ioctl(terminal, TIOCSCTTY, 0);
    for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        dup2(terminal, file);
    }
    for (const int number : {SIGHUP, SIGTTOU, SIGTTIN, SIGTSTP}) {
        std::signal(number, SIG_IGN);
    }
    const pid_t process = startProgram(program);
    mustWrite(reports, &process, sizeof process);
    Ending ending;
    while (waitpid(process, &ending.status, WUNTRACED) == process) {
        tcsetpgrp(STDIN_FILENO, getpid());
        tcgetattr(STDIN_FILENO, &ending.settings);
        mustWrite(reports, &ending, sizeof ending);
        char order = 0;
        if (read(orders, &order, 1) != 1 || !WIFSTOPPED(ending.status)) {
            break;
        }
        if (order == 'f') {
            tcsetpgrp(STDIN_FILENO, process);
        }
        ::kill(-process, SIGCONT);
    }
    ::kill(process, SIGKILL);
    std::_Exit(0);
}

} // namespace

Shell::Shell(const std::function<void()> &program, terminal::Size size) {
    int programSide = -1;
    winsize window{static_cast<unsigned short>(size.rows),
                   static_cast<unsigned short>(size.columns), 0, 0};
    std::array<int, 2> reports{};
    std::array<int, 2> orders{};
    if (openpty(&terminal_, &programSide, nullptr, nullptr, &window) != 0 ||
        pipe2(reports.data(), O_CLOEXEC) != 0 || pipe2(orders.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("cannot open a terminal");
    }
    // Settings that no program would choose by itself.
    tcgetattr(programSide, &settings_);
    settings_.c_cc[VERASE] = '#';
    settings_.c_lflag |= ECHOK;
    settings_.c_iflag |= IXANY;
    tcsetattr(programSide, TCSANOW, &settings_);
    tcgetattr(programSide, &settings_);
    shell_ = fork();
    if (shell_ == 0) {
        close(terminal_);
        close(reports[0]);
        close(orders[1]);
        playShell(programSide, reports[1], orders[0], program);
    }
    close(programSide);
    close(reports[1]);
    close(orders[0]);
    reports_ = reports[0];
    orders_ = orders[1];
    program_ = mustRead<pid_t>(reports_);
}

Shell::~Shell() {
    ::kill(program_, SIGKILL);
    ::kill(shell_, SIGKILL);
    waitpid(shell_, nullptr, 0);
    for (const int file : {terminal_, reports_, orders_}) {
        if (file >= 0) {
            close(file);
        }
    }
}

termios Shell::settingsNow() const {
    termios settings{};
    tcgetattr(terminal_, &settings);
    return settings;
}

void Shell::type(std::string_view bytes) const {
    mustWrite(terminal_, bytes.data(), bytes.size());
}

void Shell::resize(terminal::Size size) const {
    const winsize window{static_cast<unsigned short>(size.rows),
                         static_cast<unsigned short>(size.columns), 0, 0};
    ioctl(terminal_, TIOCSWINSZ, &window);
}

void Shell::kill(int signal) const {
    ::kill(program_, signal);
}

std::string Shell::readUntil(std::string_view text) {
    std::size_t found = read_.find(text);
    while (found == std::string::npos) {
        std::array<char, 4096> buffer{};
        if (!isReadable(terminal_, limit)) {
            throw std::runtime_error("the program did not write " + std::string(text) + " after " +
                                     read_);
        }
        const ssize_t count = read(terminal_, buffer.data(), buffer.size());
        if (count <= 0) {
            throw std::runtime_error("the program ended before " + std::string(text));
        }
        read_.append(buffer.data(), static_cast<std::size_t>(count));
        found = read_.find(text);
    }
    std::string result = read_.substr(0, found + text.size());
    read_.erase(0, found + text.size());
    return result;
}

Ending Shell::wait() {
    return mustRead<Ending>(reports_);
}

std::string Shell::rest() {
    std::array<char, 4096> buffer{};
    ssize_t count = 1;
    while (count > 0 && isReadable(terminal_, 0)) {
        count = read(terminal_, buffer.data(), buffer.size());
        read_.append(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(0, count)));
    }
    return std::exchange(read_, {});
}

void Shell::foreground() const {
    mustWrite(orders_, "f", 1);
}

void Shell::background() const {
    mustWrite(orders_, "b", 1);
}

void Shell::hangUp() {
    close(std::exchange(terminal_, -1));
}

bool areEqual(const termios &a, const termios &b) {
    return a.c_iflag == b.c_iflag && a.c_oflag == b.c_oflag && a.c_cflag == b.c_cflag &&
           a.c_lflag == b.c_lflag && std::equal(std::begin(a.c_cc), std::end(a.c_cc), b.c_cc);
}

} // namespace kvex::test
