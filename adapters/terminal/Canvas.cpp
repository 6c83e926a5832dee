#include "adapters/terminal/Canvas.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace kvex::terminal {
namespace {

struct Lines {
    const char16_t *across, *down, *topLeft, *topRight, *bottomLeft, *bottomRight, *thumb;
};

constexpr Lines drawn{u"─", u"│", u"┌", u"┐", u"└", u"┘", u"█"};
constexpr Lines plain{u"-", u"|", u"+", u"+", u"+", u"+", u"#"};

const Lines &linesOf(const CellGrid &grid) {
    return grid.characters() == Characters::unicode ? drawn : plain;
}

} // namespace

Canvas Canvas::within(const Rect &rect) const {
    return {grid_, intersection(clip_, rect)};
}

int Canvas::put(Point at, std::u16string_view text, const Style &style) {
    return grid_.put(at, text, style, clip_);
}

void Canvas::fill(const Rect &rect, const Style &style, std::u16string_view cluster) {
    grid_.fill(intersection(clip_, rect), style, cluster);
}

void Canvas::border(const Rect &rect, std::u16string_view title) {
    const Lines &lines = linesOf(grid_);
    const int right = rect.column + rect.columns - 1;
    const int bottom = rect.row + rect.rows - 1;
    lineAcross({rect.column, rect.row}, rect.columns);
    lineAcross({rect.column, bottom}, rect.columns);
    lineDown({rect.column, rect.row}, rect.rows);
    lineDown({right, rect.row}, rect.rows);
    put({rect.column, rect.row}, lines.topLeft);
    put({right, rect.row}, lines.topRight);
    put({rect.column, bottom}, lines.bottomLeft);
    put({right, bottom}, lines.bottomRight);
    if (!title.empty()) {
        Canvas inside = within({rect.column + 2, rect.row, rect.columns - 4, 1});
        inside.put({rect.column + 2, rect.row}, u" " + std::u16string(title) + u" ");
    }
}

void Canvas::lineAcross(Point from, int columns) {
    fill({from.column, from.row, columns, 1}, {}, linesOf(grid_).across);
}

void Canvas::lineDown(Point from, int rows) {
    fill({from.column, from.row, 1, rows}, {}, linesOf(grid_).down);
}

void Canvas::scrollBar(Point from, int rows, int first, int seen, int all) {
    lineDown(from, rows);
    if (seen >= all || rows < 1) {
        return;
    }
    const int thumb = std::clamp(rows * seen / all, 1, rows);
    const int travel = static_cast<int>(std::int64_t{rows - thumb} * std::min(first, all - seen) /
                                        std::max(all - seen, 1));
    fill({from.column, from.row + travel, 1, thumb}, {}, linesOf(grid_).thumb);
}

void Canvas::setCursor(Point at) {
    const Rect cell{at.column, at.row, 1, 1};
    if (intersection(clip_, cell) == cell) {
        grid_.cursor = at;
    }
}

} // namespace kvex::terminal
