// Text in colours.
#pragma once

#include <cstdint>
#include <string>

namespace kvex {

/// 0x00BBGGRR.
using Colour = std::uint32_t;

namespace colour {
inline constexpr Colour black = 0x000000;
inline constexpr Colour blue = 0xFF0000;
inline constexpr Colour red = 0x0000FF;
} // namespace colour

/// A piece of text in one colour.
struct TextRun {
    std::u16string text;
    Colour colour;
    friend bool operator==(const TextRun &, const TextRun &) = default;
};

} // namespace kvex
