#include "adapters/terminal/io/CellGrid.h"

#include "platform/Unicode.h"

namespace kvex::terminal {
namespace {

/// Nearly all cells show one unit all the time.
void setText(Cell &cell, std::u16string_view text) {
    if (text.size() == 1 && cell.text.size() == 1) {
        cell.text.front() = text.front();
    } else {
        cell.text = text;
    }
}

} // namespace

CellGrid::CellGrid(Size size, Characters characters)
    : size_{std::max(0, size.columns), std::max(0, size.rows)}, characters_(characters),
      cells_(static_cast<std::size_t>(size_.columns) * static_cast<std::size_t>(size_.rows)) {}

std::span<const Cell> CellGrid::row(int row) const {
    return {&cells_[indexOf({0, row})], static_cast<std::size_t>(size_.columns)};
}

int CellGrid::put(Point at, std::u16string_view text, const Style &style, const Rect &clip) {
    const Rect area = intersection(clip, {0, 0, size_.columns, size_.rows});
    const int begin = at.column;
    const auto putPiece = [&](std::u16string_view piece, int columns) {
        const Rect seen = intersection(area, {at.column, at.row, columns, 1});
        if (seen.columns == columns && seen.rows == 1) {
            putCells(at, piece, columns, style);
        } else {
            fill(seen, style);
        }
        at.column += columns;
    };
    for (std::size_t from = 0; from < text.size();) {
        if (isPlainAt(text, from)) {
            putPiece(text.substr(from++, 1), 1);
            continue;
        }
        const std::size_t end = clusterEnd(text, from);
        const ShownCluster shown = shownCluster(text.substr(from, end - from), characters_);
        if (shown.isAscii) {
            for (const char16_t unit : shown.text) {
                putPiece({&unit, 1}, 1);
            }
        } else if (shown.columns > 0) {
            putPiece(shown.text, shown.columns);
        }
        from = end;
    }
    return at.column - begin;
}

void CellGrid::fill(const Rect &area, const Style &style, std::u16string_view cluster) {
    const Rect seen = intersection(area, {0, 0, size_.columns, size_.rows});
    if (seen.columns < 1) {
        return;
    }
    for (int row = seen.row; row < seen.row + seen.rows; ++row) {
        // Only the edges can leave a half of a wide cluster.
        putCells({seen.column, row}, cluster, 1, style);
        putCells({seen.column + seen.columns - 1, row}, cluster, 1, style);
        const auto cells = std::span(cells_).subspan(indexOf({seen.column, row}),
                                                     static_cast<std::size_t>(seen.columns));
        for (Cell &cell : cells) {
            setText(cell, cluster);
            cell.style = style;
        }
    }
}

void CellGrid::putCells(Point at, std::u16string_view text, int columns, const Style &style) {
    const std::size_t first = indexOf(at);
    if (cells_[first].text.empty()) {
        cells_[first - 1].text = u" ";
    }
    const std::size_t after = first + static_cast<std::size_t>(columns);
    if (at.column + columns < size_.columns && cells_[after].text.empty()) {
        cells_[after].text = u" ";
    }
    setText(cells_[first], text);
    cells_[first].style = style;
    if (columns == 2) {
        cells_[first + 1] = {u"", style};
    }
}

} // namespace kvex::terminal
