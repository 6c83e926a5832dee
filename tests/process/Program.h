// Runs a program in a new process with an environment for the test.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace kvex::process {

struct Outcome {
    int status = -1;
    std::string output;
    std::string errors;
};

/// The kind of standard output that the program gets.
enum class Output { captured, closed, full, withoutReader };

/// Runs `program` in the directory `folder` to its end. `environment` is its whole environment.
/// Raises std::runtime_error when it cannot be started or a signal ends it.
[[nodiscard]] Outcome run(const std::filesystem::path &program,
                          const std::vector<std::string> &arguments,
                          const std::map<std::string, std::string> &environment,
                          const std::filesystem::path &folder, Output output = Output::captured);

/// Starts the program without its output, and kills it after this time, unless it has ended.
void runAndKill(const std::filesystem::path &program, const std::vector<std::string> &arguments,
                const std::map<std::string, std::string> &environment,
                const std::filesystem::path &folder, std::chrono::microseconds after);

/// Runs the program on its own terminal, where the user types `typed`. The outcome's output is what
/// the program writes to any standard stream. It does not include `typed`.
[[nodiscard]] Outcome runAtTerminal(const std::filesystem::path &program,
                                    const std::vector<std::string> &arguments,
                                    const std::map<std::string, std::string> &environment,
                                    const std::filesystem::path &folder,
                                    const std::string &typed = {});
/// The same, but the user waits for a question, "... [y/N] ", and then types what `answer` returns.
[[nodiscard]] Outcome runAtTerminal(const std::filesystem::path &program,
                                    const std::vector<std::string> &arguments,
                                    const std::map<std::string, std::string> &environment,
                                    const std::filesystem::path &folder,
                                    const std::function<std::string()> &answer);

} // namespace kvex::process
