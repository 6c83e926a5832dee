// Makes a terminal show a grid with few bytes.
#pragma once

#include "adapters/terminal/io/Capabilities.h"
#include "adapters/terminal/io/CellGrid.h"
#include "adapters/terminal/io/Scrolling.h"

#include <optional>
#include <string>
#include <vector>

namespace kvex::terminal {

/// Knows what the terminal shows, and writes only what differs. Lines that moved are scrolled where
/// the terminal can do so.
///
/// Terminals disagree about the columns of many clusters. So the cursor is placed anew after each
/// one that is not ASCII. A cluster of several characters may take more columns than expected. So
/// the rest of its line is erased and written again.
class Screen {
public:
    /// `colours` is 0 when the user wants none.
    Screen(const Capabilities &capabilities, int colours);

    /// The terminal shows anything, and has this size: the next update writes everything.
    void forget(Size size);
    /// The bytes that make the terminal show the grid; "" when it does already. A grid of another
    /// size is cut, or has blanks around it.
    [[nodiscard]] std::string update(const CellGrid &grid);

private:
    void scroll(const Scrolling &scrolling);
    void updateRow(const CellGrid &grid, int row);
    void writeCell(Point at, const Cell &wanted, int columns, bool mayBeCovered);
    [[nodiscard]] bool isBlank(Point at, int columns) const;
    void eraseRest(Point from);
    void forgetCursor();
    void forgetColumn();
    void forgetColumnAtEdge();
    void moveTo(Point to);
    [[nodiscard]] std::string cheapestWay(Point to) const;
    [[nodiscard]] std::string rewritten(Point to) const;
    void setStyle(const Style &style);
    [[nodiscard]] Cell &shown(Point at);
    [[nodiscard]] const Cell &shown(Point at) const;

    const Capabilities &capabilities_;
    int colours_;
    Size size_;
    bool isKnown_ = false;
    std::vector<Cell> shown_;
    /// Where the cursor is, if all terminals agree about it.
    std::optional<int> row_;
    std::optional<int> column_;
    bool isCursorShown_ = true;
    /// With which the terminal writes.
    Style style_;
    std::string bytes_;
};

} // namespace kvex::terminal
