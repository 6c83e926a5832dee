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

/// What a closed or redirected standard output is for the program.
enum class Output { captured, closed, full, withoutReader };

/// Runs `program` to its end with `environment` as its whole environment, in the directory
/// `folder`. Raises std::runtime_error when it cannot be started or ends by a signal.
[[nodiscard]] Outcome run(const std::filesystem::path &program,
                          const std::vector<std::string> &arguments,
                          const std::map<std::string, std::string> &environment,
                          const std::filesystem::path &folder, Output output = Output::captured);

/// The same on a terminal of the program's own, with `typed` as what its user types. The terminal
/// shows as the outcome's output what the program writes to any standard stream, not what is typed.
[[nodiscard]] Outcome runAtTerminal(const std::filesystem::path &program,
                                    const std::vector<std::string> &arguments,
                                    const std::map<std::string, std::string> &environment,
                                    const std::filesystem::path &folder,
                                    const std::string &typed = {});

} // namespace kvex::process
