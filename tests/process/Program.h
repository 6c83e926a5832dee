// Runs a program as a process of its own, in an environment of the test's own.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kvex::process {

struct Outcome {
    int status = -1;
    std::string output;
    std::string errors;
};

/// Where the standard output of the program goes, or that it is closed.
enum class Output { captured, closed, full, withoutReader };

/// Runs `program` to its end with `environment` as its whole environment, in the directory
/// `folder`. Raises std::runtime_error when it cannot be started or ends by a signal.
[[nodiscard]] Outcome run(const std::filesystem::path &program,
                          const std::vector<std::string> &arguments,
                          const std::map<std::string, std::string> &environment,
                          const std::filesystem::path &folder, Output output = Output::captured);

/// Runs it on a terminal of its own, on which its user types `typed`. The outcome's output is what
/// the program writes to any standard stream, without what is typed.
[[nodiscard]] Outcome runAtTerminal(const std::filesystem::path &program,
                                    const std::vector<std::string> &arguments,
                                    const std::map<std::string, std::string> &environment,
                                    const std::filesystem::path &folder,
                                    const std::string &typed = {});

} // namespace kvex::process
