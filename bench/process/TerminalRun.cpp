#include "bench/process/TerminalRun.h"

#include "bench/process/Processes.h"
#include "tests/support/ArgumentPointers.h"
#include "tests/support/Terminal.h"

#include <array>
#include <csignal>
#include <fstream>
#include <spawn.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kvex::bench {
namespace {

pid_t start(const std::filesystem::path &program, std::vector<std::string> arguments,
            const test::Terminal &terminal) {
    arguments.insert(arguments.begin(), program.string());
    std::vector<std::string> environment{"TERM=xterm-256color", "LC_ALL=C.UTF-8",
                                         "PATH=/usr/bin:/bin", "HOME=/nonexistent"};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        posix_spawn_file_actions_adddup2(&actions, terminal.program, stream);
    }
    pid_t child = 0;
    const int failure = posix_spawnp(&child, program.c_str(), &actions, nullptr,
                                     test::argumentPointers(arguments).data(),
                                     test::argumentPointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        throw std::runtime_error("cannot start " + program.string());
    }
    return child;
}

/// Returns false when the program has ended.
bool readUntil(int terminal, std::string_view last) {
    std::string text;
    std::array<char, 65536> part{};
    while (text.find(last) == std::string::npos) {
        const ssize_t count = read(terminal, part.data(), part.size());
        if (count <= 0) {
            return false;
        }
        text.append(part.data(), static_cast<std::size_t>(count));
    }
    return true;
}

std::size_t residentBytes(pid_t process) {
    std::size_t size = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/" + std::to_string(process) + "/statm") >> size >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

} // namespace

FirstScreen firstScreen(const std::filesystem::path &program, std::vector<std::string> arguments,
                        std::string_view last) {
    test::Terminal terminal;
    const winsize size{.ws_row = 24, .ws_col = 80, .ws_xpixel = 0, .ws_ypixel = 0};
    ioctl(terminal.program, TIOCSWINSZ, &size);
    const double before = now();
    const pid_t process = start(program, std::move(arguments), terminal);
    close(terminal.program);
    terminal.program = -1;
    const bool isComplete = readUntil(terminal.master, last);
    const FirstScreen screen{now() - before, isComplete ? residentBytes(process) : 0};
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    if (!isComplete) {
        throw std::runtime_error(program.string() + " ended without a screen");
    }
    return screen;
}

} // namespace kvex::bench
