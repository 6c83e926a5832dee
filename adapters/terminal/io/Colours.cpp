#include "adapters/terminal/io/Colours.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace kvex::terminal {
namespace {

using Components = std::array<int, 3>; // red, green, blue

/// One of the eight basic colours. Users choose how these look, so that they can read them.
int basicColour(const Components &rgb) {
    const int brightest = std::ranges::max(rgb);
    int number = 0;
    for (std::size_t at = 0; at < rgb.size(); ++at) {
        number |= rgb[at] * 2 > brightest ? 1 << at : 0;
    }
    return number;
}

/// One of the 216 colours that 256 begin with, after the sixteen basic ones.
int cubeColour(const Components &rgb) {
    constexpr std::array levels{0, 95, 135, 175, 215, 255};
    int number = 0;
    for (const int component : rgb) {
        const auto nearest = std::ranges::min_element(
            levels, {}, [component](int level) { return std::abs(level - component); });
        number = number * 6 + static_cast<int>(nearest - levels.begin());
    }
    return 16 + number;
}

bool isPure(const Components &rgb) {
    return std::ranges::all_of(rgb, [](int part) { return part == 0 || part == 255; });
}

} // namespace

std::optional<int> nearestColour(Colour colour, int colours) {
    if (colour == colour::black || colours < 8) {
        return std::nullopt;
    }
    const Components rgb{static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                         static_cast<int>((colour >> 16) & 0xFF)};
    return colours < 256 || isPure(rgb) ? basicColour(rgb) : cubeColour(rgb);
}

} // namespace kvex::terminal
