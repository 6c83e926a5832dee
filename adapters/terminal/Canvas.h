// Draws text and lines into a part of a grid.
#pragma once

#include "adapters/terminal/io/CellGrid.h"

#include <string_view>

namespace kvex::terminal {

class Canvas {
public:
    /// `grid` must outlive the canvas.
    Canvas(CellGrid &grid, const Rect &clip) : grid_(grid), clip_(clip) {}

    /// A canvas that draws only where this one does and `rect` is.
    [[nodiscard]] Canvas within(const Rect &rect) const;

    /// Returns the columns taken, even of what is not visible.
    int put(Point at, std::u16string_view text, const Style &style = {});
    /// The same in every cell: a blank, or another cluster of one column.
    void fill(const Rect &rect, const Style &style = {}, std::u16string_view cluster = u" ");
    /// A border just inside `rect`, with `title` in its upper edge.
    void border(const Rect &rect, std::u16string_view title = {});
    void lineAcross(Point from, int columns);
    /// `rows` rows of one column.
    void lineDown(Point from, int rows);
    /// A scroll bar of `rows` rows for `seen` of `all` lines, from the line `first`. All lines in
    /// view give a plain line.
    void scrollBar(Point from, int rows, int first, int seen, int all);
    /// Puts the terminal's cursor here if the place is visible.
    void setCursor(Point at);

private:
    CellGrid &grid_;
    Rect clip_;
};

} // namespace kvex::terminal
