// The contents of a terminal's screen.
#pragma once

#include "adapters/terminal/io/Cluster.h"
#include "adapters/terminal/io/Geometry.h"
#include "adapters/terminal/io/ShownText.h"
#include "platform/TextRun.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace kvex::terminal {

struct Style {
    bool bold = false;
    bool dim = false;
    bool reverse = false;
    bool underline = false;
    /// Black is the terminal's own colour: its ground may be black.
    Colour colour = colour::black;
    friend bool operator==(const Style &, const Style &) = default;
};

struct Cell {
    /// Nothing is the right half of the cluster in the cell to the left.
    Cluster cluster{u' '};
    Style style;
    friend bool operator==(const Cell &, const Cell &) = default;
};

[[nodiscard]] bool sameCells(std::span<const Cell> some, std::span<const Cell> others);

class CellGrid {
public:
    /// All cells are blank.
    explicit CellGrid(Size size, Characters characters = Characters::unicode);

    [[nodiscard]] Size size() const noexcept { return size_; }
    [[nodiscard]] Characters characters() const noexcept { return characters_; }
    /// The cell at a point of the grid.
    [[nodiscard]] const Cell &at(Point point) const { return cells_[indexOf(point)]; }
    [[nodiscard]] std::span<const Cell> row(int row) const;
    /// All rows, one after the other.
    [[nodiscard]] std::span<const Cell> cells() const noexcept { return cells_; }

    /// Puts the clusters of one line as shownCluster() gives them, and returns their columns, those
    /// that `clip` cuts off included. Nothing outside `clip` and the grid changes. A wide cluster
    /// becomes blanks where an edge or another put would leave a half of it.
    int put(Point at, std::u16string_view text, const Style &style, const Rect &clip);
    /// Puts the same into every cell: a blank, or another cluster of one column.
    void fill(const Rect &area, const Style &style, std::u16string_view cluster = u" ");

    /// Where the terminal's cursor stands; without a value it is hidden.
    std::optional<Point> cursor;

private:
    /// The cells of a part of a line that lies in the grid. Their neighbours keep no half of a wide
    /// cluster.
    [[nodiscard]] std::span<Cell> cleared(const Rect &part);
    [[nodiscard]] std::size_t indexOf(Point point) const {
        return static_cast<std::size_t>(point.row) * static_cast<std::size_t>(size_.columns) +
               static_cast<std::size_t>(point.column);
    }

    Size size_;
    Characters characters_;
    std::vector<Cell> cells_;
};

} // namespace kvex::terminal
