// Places and sizes on a terminal's screen. Columns and rows count from 0.
#pragma once

#include <algorithm>

namespace kvex::terminal {

struct Size {
    int columns = 0;
    int rows = 0;
    friend bool operator==(const Size &, const Size &) = default;
};

struct Point {
    int column = 0;
    int row = 0;
    friend bool operator==(const Point &, const Point &) = default;
};

struct Rect {
    int column = 0;
    int row = 0;
    int columns = 0;
    int rows = 0;
    friend bool operator==(const Rect &, const Rect &) = default;

    [[nodiscard]] bool contains(Point point) const noexcept {
        return point.column >= column && point.column < column + columns && point.row >= row &&
               point.row < row + rows;
    }
};

/// What both have in common; without columns or rows when that is nothing.
[[nodiscard]] inline Rect intersection(const Rect &a, const Rect &b) noexcept {
    const int column = std::max(a.column, b.column);
    const int row = std::max(a.row, b.row);
    const int right = std::min(a.column + a.columns, b.column + b.columns);
    const int below = std::min(a.row + a.rows, b.row + b.rows);
    return {column, row, std::max(0, right - column), std::max(0, below - row)};
}

} // namespace kvex::terminal
