// Programs that benchmarks start.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kvex::bench {

struct Run {
    std::string output;
    /// From before the start until the end.
    double seconds;
};

/// Runs the program to its end, with these variables beside this process's own. Throws where it
/// cannot be started or fails.
[[nodiscard]] Run runProgram(const std::filesystem::path &program,
                             std::vector<std::string> arguments,
                             const std::map<std::string, std::string> &variables = {});

/// A program or library that is built beside the benchmarks.
[[nodiscard]] std::filesystem::path besideBenchmarks(const char *name);

/// Gives the programs a virtual display; it stays until this one ends.
void requireVirtualDisplay();

/// In seconds, on the clock that all processes share.
[[nodiscard]] double now();

} // namespace kvex::bench
