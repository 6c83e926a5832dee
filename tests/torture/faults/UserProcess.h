// A user in a process of its own, who meets one fault and presses the button again.
#pragma once

#include "tests/torture/faults/Faults.h"
#include "tests/torture/storage/Scenarios.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace kvex::torture {

struct Point {
    const Scenario &scenario;
    const FaultKind &kind;
    /// Which of the press's points fails, from 0.
    std::uint64_t number;
};

/// A number that no press reaches.
inline constexpr std::uint64_t noPoint = 1'000'000'000;

struct Course {
    /// False when the press has fewer points.
    bool hasStruck;
    /// The first press ended with a message or an error.
    bool wasTold;
    /// What the database held after the first press, and when the process had ended.
    std::string afterFirst;
    std::string afterSecond;
    /// How the process ended, when it did not end well: its signal, or what it wrote.
    std::string failure;
};

/// Plays the scenario on a copy of `database` in `folder`.
[[nodiscard]] Course playUser(const Point &point, const std::filesystem::path &database,
                              const std::filesystem::path &folder);

} // namespace kvex::torture
