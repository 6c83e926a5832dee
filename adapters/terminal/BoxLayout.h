// Gives each control of a window its place in cells.
#pragma once

#include "adapters/terminal/Placeable.h"
#include "adapters/terminal/io/Geometry.h"
#include "platform/controls/WindowDesign.h"

#include <functional>
#include <string_view>
#include <vector>

namespace kvex::terminal {

struct Placed {
    Placeable *control;
    /// In the pane's content if it is in the pane, else in the window.
    Rect at;
    bool inPane;
};

/// Where everything stands in a window of some size.
struct Arrangement {
    Economy economy = Economy::none;
    /// The part of the window that scrolls.
    Rect pane;
    /// The height of what the pane shows. The pane scrolls if it is lower than that.
    int contentRows = 0;
    /// A frame comes before what it surrounds.
    std::vector<Placed> placed;
};

/// Sizes come from the controls each time, so an arrangement fits their present captions.
class BoxLayout {
public:
    /// Returns the control of this name, or null.
    using Find = std::function<Placeable *(std::u16string_view name)>;

    /// Without a box that scrolls, the whole layout does.
    BoxLayout(Layout layout, Find find);

    /// Fills `room`. Gives up gaps and frames before anything shrinks. Then lists and texts shrink,
    /// and at last the pane scrolls. Pieces of a row that is too wide stand below each other.
    [[nodiscard]] Arrangement arrange(const Rect &room) const;
    /// The size that the content takes by itself, at most so many columns wide.
    [[nodiscard]] Size naturalSize(int mostColumns) const;

private:
    Layout layout_;
    Find find_;
};

} // namespace kvex::terminal
