#include "tests/process/Program.h"

#include "tests/support/ArgumentPointers.h"
#include "tests/support/Terminal.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace kvex::process {
namespace {

struct Pipe {
    int reader = -1;
    int writer = -1;
    Pipe() {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("cannot create a pipe");
        }
        reader = ends[0];
        writer = ends[1];
    }
    ~Pipe() {
        close(reader);
        close(writer);
    }
    Pipe(const Pipe &) = delete;
    Pipe &operator=(const Pipe &) = delete;
};

void connectOutput(Output output, int captured) {
    switch (output) {
    case Output::closed:
        close(STDOUT_FILENO);
        break;
    case Output::full:
        dup2(open("/dev/full", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
        break;
    case Output::captured:
    case Output::withoutReader:
        dup2(captured, STDOUT_FILENO);
        break;
    }
}

/// Reads both streams until the program has closed them.
void collect(int output, int errors, Outcome &outcome) {
    std::array<pollfd, 2> streams{pollfd{output, POLLIN, 0}, pollfd{errors, POLLIN, 0}};
    const std::array<std::string *, 2> texts{&outcome.output, &outcome.errors};
    while (streams[0].fd >= 0 || streams[1].fd >= 0) {
        poll(streams.data(), streams.size(), -1);
        for (std::size_t i = 0; i < streams.size(); ++i) {
            if (streams[i].fd < 0 || streams[i].revents == 0) {
                continue;
            }
            std::array<char, 4096> buffer{};
            const ssize_t count = read(streams[i].fd, buffer.data(), buffer.size());
            if (count > 0) {
                texts[i]->append(buffer.data(), static_cast<std::size_t>(count));
            } else if (count == 0 || errno != EINTR) {
                streams[i].fd = -1;
            }
        }
    }
}

/// Starts the program in a new process, which calls `connect` first.
template <class Connect>
pid_t start(const std::filesystem::path &program, const std::vector<std::string> &arguments,
            const std::map<std::string, std::string> &environment,
            const std::filesystem::path &folder, const Connect &connect) {
    std::vector<std::string> words{program.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables;
    variables.reserve(environment.size());
    for (const auto &[name, value] : environment) {
        variables.push_back(std::string(name).append("=").append(value));
    }
    const std::vector<char *> argumentPointers = test::argumentPointers(words);
    const std::vector<char *> variablePointers = test::argumentPointers(variables);
    const pid_t child = fork();
    if (child == 0) {
        connect();
        if (chdir(folder.c_str()) == 0) {
            execve(program.c_str(), argumentPointers.data(), variablePointers.data());
        }
        _exit(127);
    }
    if (child < 0) {
        throw std::runtime_error("cannot start a process");
    }
    return child;
}

void waitFor(pid_t child, const std::filesystem::path &program, Outcome &outcome) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) == 127) {
        throw std::runtime_error(program.string() + " did not run to its end: " + outcome.errors);
    }
    outcome.status = WEXITSTATUS(status);
}

} // namespace

Outcome run(const std::filesystem::path &program, const std::vector<std::string> &arguments,
            const std::map<std::string, std::string> &environment,
            const std::filesystem::path &folder, Output output) {
    Pipe outputPipe;
    Pipe errorPipe;
    if (output == Output::withoutReader) {
        close(std::exchange(outputPipe.reader, -1));
    }
    const pid_t child = start(program, arguments, environment, folder, [&] {
        connectOutput(output, outputPipe.writer);
        dup2(errorPipe.writer, STDERR_FILENO);
    });
    close(std::exchange(outputPipe.writer, -1));
    close(std::exchange(errorPipe.writer, -1));
    Outcome outcome;
    collect(outputPipe.reader, errorPipe.reader, outcome);
    waitFor(child, program, outcome);
    return outcome;
}

void runAndKill(const std::filesystem::path &program, const std::vector<std::string> &arguments,
                const std::map<std::string, std::string> &environment,
                const std::filesystem::path &folder, std::chrono::microseconds after) {
    const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
    const pid_t child = start(program, arguments, environment, folder, [&] {
        dup2(nothing, STDOUT_FILENO);
        dup2(nothing, STDERR_FILENO);
    });
    close(nothing);
    std::this_thread::sleep_for(after);
    kill(child, SIGKILL);
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

namespace {

void type(const test::Terminal &terminal, const std::string &typed) {
    if (write(terminal.master, typed.data(), typed.size()) < 0) {
        throw std::runtime_error("cannot type into the terminal");
    }
}

/// Reads up to the question, or up to the end of a program that does not ask.
void awaitQuestion(const test::Terminal &terminal, std::string &output) {
    char character = 0;
    while (!output.ends_with("[y/N] ") && read(terminal.master, &character, 1) == 1) {
        output += character;
    }
}

/// Calls `use` with the terminal and the outcome while the program runs.
template <class Use>
Outcome onTerminal(const std::filesystem::path &program, const std::vector<std::string> &arguments,
                   const std::map<std::string, std::string> &environment,
                   const std::filesystem::path &folder, const Use &use) {
    test::Terminal terminal;
    const pid_t child = start(program, arguments, environment, folder, [&] {
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
            dup2(terminal.program, stream);
        }
    });
    close(std::exchange(terminal.program, -1));
    Outcome outcome;
    use(terminal, outcome);
    // At its end, read() fails: no process holds the terminal's other side any more.
    collect(terminal.master, -1, outcome);
    waitFor(child, program, outcome);
    return outcome;
}

} // namespace

Outcome runAtTerminal(const std::filesystem::path &program,
                      const std::vector<std::string> &arguments,
                      const std::map<std::string, std::string> &environment,
                      const std::filesystem::path &folder, const std::string &typed) {
    return onTerminal(
        program, arguments, environment, folder,
        [&](const test::Terminal &terminal, Outcome & /*outcome*/) { type(terminal, typed); });
}

Outcome runAtTerminal(const std::filesystem::path &program,
                      const std::vector<std::string> &arguments,
                      const std::map<std::string, std::string> &environment,
                      const std::filesystem::path &folder,
                      const std::function<std::string()> &answer) {
    return onTerminal(program, arguments, environment, folder,
                      [&](const test::Terminal &terminal, Outcome &outcome) {
                          awaitQuestion(terminal, outcome.output);
                          type(terminal, answer());
                      });
}

} // namespace kvex::process
