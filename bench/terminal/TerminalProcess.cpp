#include "bench/terminal/TerminalProcess.h"

#include "bench/process/Processes.h"
#include "tests/support/ArgumentPointers.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <signal.h> // NOLINT: the standard's header lacks kill.
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>

namespace kvex::bench {
namespace {

/// So long a silence says that the screen is whole.
constexpr int silence = 300;
/// This ends the wait for a program that shows something else.
constexpr double patience = 60;

} // namespace

TerminalProcess::TerminalProcess(std::vector<std::string> command) : start_(now()) {
    std::vector<std::string> environment =
        environmentWith({{"TERM", "xterm-256color"}, {"LC_ALL", "C.UTF-8"}});
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
    // The first terminal that the leader of a session opens controls the session.
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, ttyname(terminal_.program), O_RDWR, 0);
    posix_spawn_file_actions_adddup2(&actions, STDIN_FILENO, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, STDIN_FILENO, STDERR_FILENO);
    const int failure = posix_spawnp(&process_, command.front().c_str(), &actions, &attributes,
                                     test::argumentPointers(command).data(),
                                     test::argumentPointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    if (failure != 0) {
        throw std::runtime_error("cannot start " + command.front());
    }
}

TerminalProcess::~TerminalProcess() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

double TerminalProcess::secondsToScreen(std::string_view text) {
    std::string shown;
    double last = now();
    for (;;) {
        pollfd wait{terminal_.user, POLLIN, 0};
        std::array<char, 65536> part; // NOLINT: read() fills it.
        if (poll(&wait, 1, silence) > 0) {
            const ssize_t count = read(terminal_.user, part.data(), part.size());
            last = now();
            shown.append(part.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        } else if (shown.find(text) != std::string::npos) {
            return last - start_;
        } else if (now() - last > patience) {
            throw std::runtime_error("a program shows something else: " + shown);
        }
    }
}

std::size_t TerminalProcess::residentBytes() const {
    std::size_t size = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/" + std::to_string(process_) + "/statm") >> size >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

} // namespace kvex::bench
