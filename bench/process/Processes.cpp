#include "bench/process/Processes.h"

#include "tests/support/ArgumentPointers.h"
#include "tests/support/VirtualDisplay.h"

#include <array>
#include <chrono>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace kvex::bench {
namespace {

std::vector<std::string> environmentWith(const std::map<std::string, std::string> &variables) {
    std::vector<std::string> all;
    for (char **variable = environ; *variable != nullptr; ++variable) {
        all.emplace_back(*variable);
    }
    for (const auto &[name, value] : variables) {
        all.push_back(name + "=" + value);
    }
    return all;
}

std::string readAll(int pipe) {
    std::string text;
    std::array<char, 65536> part{};
    for (ssize_t count = 0; (count = read(pipe, part.data(), part.size())) > 0;) {
        text.append(part.data(), static_cast<std::size_t>(count));
    }
    return text;
}

} // namespace

Run runProgram(const std::filesystem::path &program, std::vector<std::string> arguments,
               const std::map<std::string, std::string> &variables) {
    arguments.insert(arguments.begin(), program.string());
    std::vector<std::string> environment = environmentWith(variables);
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        throw std::runtime_error("cannot create a pipe");
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    posix_spawn_file_actions_addclose(&actions, ends[1]);
    pid_t child = 0;
    const double start = now();
    const int failure = posix_spawnp(&child, program.c_str(), &actions, nullptr,
                                     test::argumentPointers(arguments).data(),
                                     test::argumentPointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    Run run{readAll(ends[0]), 0};
    close(ends[0]);
    int status = 0;
    if (failure != 0 || waitpid(child, &status, 0) != child || status != 0) {
        throw std::runtime_error(program.string() + " failed");
    }
    run.seconds = now() - start;
    return run;
}

std::filesystem::path besideBenchmarks(const char *name) {
    std::filesystem::path file =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / name;
    if (!std::filesystem::exists(file)) {
        throw std::runtime_error(file.string() + " is missing");
    }
    return file;
}

void requireVirtualDisplay() {
    static const test::VirtualDisplay display;
}

double now() {
    const std::chrono::duration<double> passed =
        std::chrono::steady_clock::now().time_since_epoch();
    return passed.count();
}

} // namespace kvex::bench
