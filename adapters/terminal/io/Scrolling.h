// Finds lines that a terminal can move, so that nobody writes them again.
#pragma once

#include "adapters/terminal/io/CellGrid.h"

#include <optional>
#include <span>

namespace kvex::terminal {

/// The lines of a region move up by `lines`, or down if that is negative. As many lines at the end
/// that they leave become blank.
struct Scrolling {
    int top = 0;
    int bottom = 0; ///< The last row of the region.
    int lines = 0;
    friend bool operator==(const Scrolling &, const Scrolling &) = default;
};

/// The scrolling after which the fewest cells differ from the wanted ones. No value if it saves too
/// little. Both screens have `size`.
[[nodiscard]] std::optional<Scrolling> scrollingBetween(std::span<const Cell> shown,
                                                        std::span<const Cell> wanted, Size size);

} // namespace kvex::terminal
