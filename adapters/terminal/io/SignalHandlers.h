// What the signals of a process mean for its terminals.
#pragma once

#include <cstdint>

namespace kvex::terminal {

/// A set of terminals, one bit for each.
using Terminals = std::uint32_t;

/// Signal handlers call these, so they do only what POSIX allows there.
struct SignalReactions {
    /// Gives the terminals back, and returns which ones.
    Terminals (*leave)() noexcept;
    void (*enterAgain)(Terminals left) noexcept;
    void (*continued)() noexcept;
    void (*hungUp)() noexcept;
    void (*resized)() noexcept;
};

/// From now on each signal that ends or stops the process leaves the terminals first. Then it does
/// what it did before. If the process still runs after that, it enters the terminals again. Signals
/// that the process ignores stay ignored. SIGHUP means hungUp and nothing else.
void takeSignals(const SignalReactions &reactions) noexcept;

/// Puts the handlers of the time before back, where nobody has replaced ours meanwhile.
void giveSignalsBack() noexcept;

} // namespace kvex::terminal
