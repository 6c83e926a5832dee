// The coloured parts of a headless rich text box.
#pragma once

#include "platform/controls/RichTextBox.h"

#include <memory>
#include <string>
#include <vector>

namespace kvex::headless {

struct Run {
    std::u16string text;
    Colour colour;
    friend bool operator==(const Run &, const Run &) = default;
};

/// The box's text in pieces of one colour, neighbours of one colour joined. `box` must be of the
/// headless toolkit.
[[nodiscard]] const std::vector<Run> &runsOf(const RichTextBox &box);

/// A box that belongs to no window: its colours can be read, nothing else happens to it.
[[nodiscard]] std::unique_ptr<RichTextBox> createRichTextBox();

} // namespace kvex::headless
