// What the reports of a terminal's mouse mean.
#pragma once

#include "adapters/terminal/io/Input.h"

#include <chrono>
#include <optional>

namespace kvex::terminal {

class Mouse {
public:
    using Time = std::chrono::steady_clock::time_point;

    static constexpr std::chrono::milliseconds doubleClickTime{400};

    /// A press as xterm reports it. `buttons` is the button's number, with 32 for a move and 64 for
    /// the wheel. Only the left button and the wheel have a meaning.
    [[nodiscard]] std::optional<MouseEvent> press(int buttons, Point at, Time now);

private:
    std::optional<Point> lastPress_;
    Time lastPressTime_;
};

} // namespace kvex::terminal
