// Writes a screen as a program without a library does: all of it, each line where it stands.
#pragma once

#include "adapters/terminal/io/Geometry.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex::bench {

class HandPainter {
public:
    /// Takes over what a terminal of 80 x 24 shows after these bytes.
    explicit HandPainter(std::string_view bytes);

    /// The bytes that show the whole screen.
    [[nodiscard]] std::string painted() const;

private:
    /// A part of a line whose characters have the same attributes.
    struct Part {
        terminal::Point at;
        std::string attributes;
        std::u16string text;
    };

    std::vector<Part> parts_;
    terminal::Point cursor_;
};

} // namespace kvex::bench
