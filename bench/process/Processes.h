// Starts programs for benchmarks.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kvex::bench {

struct Run {
    std::string output;
    /// The time from before the start until the end.
    double seconds;
};

/// Runs the program to its end. Its environment is this process's, with `variables` added. Throws
/// when the program cannot be started or fails.
[[nodiscard]] Run runProgram(const std::filesystem::path &program,
                             std::vector<std::string> arguments,
                             const std::map<std::string, std::string> &variables = {});

/// The path of a program or library that is built beside the benchmarks.
[[nodiscard]] std::filesystem::path besideBenchmarks(const char *name);

/// Gives the programs a virtual display. It stays until this process ends.
void requireVirtualDisplay();

/// The time in seconds, on a clock that all processes share.
[[nodiscard]] double now();

} // namespace kvex::bench
