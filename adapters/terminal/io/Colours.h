// The colours of a terminal.
#pragma once

#include "platform/TextRun.h"

#include <optional>

namespace kvex::terminal {

/// The number of the colour that comes nearest, for a terminal that has `colours` of them. No value
/// stands for the terminal's own colour: for black, and where there are fewer than eight.
[[nodiscard]] std::optional<int> nearestColour(Colour colour, int colours);

} // namespace kvex::terminal
