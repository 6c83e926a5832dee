// How much a torture program does: a short fixed share, or what fits into the minutes it is given.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace kvex::torture {

/// Runs are numbered by their seeds: the first one has the seed of the command line, each further
/// one the next number. So the seed of a failed run repeats it as the first run.
class Share {
public:
    /// Reads `--minutes M` (a fraction is allowed) and `--seed S`. Without minutes the share has
    /// `shortRuns` runs; without a seed it begins with 1. Prints the usage and ends the program
    /// with 2 for any other arguments.
    Share(std::span<const char *const> arguments, std::uint64_t shortRuns);

    /// Begins the next run. Returns false when the share is done. There is always a first run.
    bool next();

    /// The seed of the current run.
    [[nodiscard]] std::uint64_t seed() const noexcept { return firstSeed_ + runs_ - 1; }
    /// How many runs have begun.
    [[nodiscard]] std::uint64_t runs() const noexcept { return runs_; }
    /// The command that repeats the current run: "NAME_torture --seed S".
    [[nodiscard]] std::string repeatCommand() const;

private:
    using Clock = std::chrono::steady_clock;

    std::string program_;
    std::uint64_t shortRuns_;
    std::uint64_t firstSeed_ = 1;
    std::uint64_t runs_ = 0;
    std::optional<Clock::time_point> end_;
};

} // namespace kvex::torture
