// One run in a process of its own, so that a crash is a finding like any other.
#pragma once

#include "tests/torture/monkey/Script.h"
#include "tests/torture/monkey/Watch.h"

#include <cstdint>
#include <string>

namespace kvex::torture {

struct RunResult {
    /// "" when every property held.
    std::string finding;
    /// What a run that crashed wrote to its diagnostic stream.
    std::string diagnostics;
    Counts counts;
    /// The events that took place, as lines.
    Lines script;

    /// The finding without its details.
    [[nodiscard]] std::string property() const { return finding.substr(0, finding.find(':')); }
};

/// Lets the monkey of this seed play `events` events.
[[nodiscard]] RunResult playSeed(std::uint64_t seed, int events);
/// Plays a script. An event that nobody could do where it stands is left out.
[[nodiscard]] RunResult playScript(const Lines &script);

} // namespace kvex::torture
