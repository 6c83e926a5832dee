#include "adapters/terminal/io/CellGrid.h"

#include "platform/Unicode.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace kvex::terminal {

// Without padding two equal cells have the same bytes.
static_assert(std::has_unique_object_representations_v<Cell>);

bool sameCells(std::span<const Cell> some, std::span<const Cell> others) {
    return some.size() == others.size() &&
           std::memcmp(some.data(), others.data(), some.size_bytes()) == 0;
}

CellGrid::CellGrid(Size size, Characters characters)
    : size_{std::max(0, size.columns), std::max(0, size.rows)}, characters_(characters),
      cells_(static_cast<std::size_t>(size_.columns) * static_cast<std::size_t>(size_.rows)) {}

std::span<const Cell> CellGrid::row(int row) const {
    return {&cells_[indexOf({0, row})], static_cast<std::size_t>(size_.columns)};
}

int CellGrid::put(Point at, std::u16string_view text, const Style &style, const Rect &clip) {
    const Rect area = intersection(clip, {0, 0, size_.columns, size_.rows});
    const int begin = at.column;
    const auto putPlain = [&](std::u16string_view run) {
        const int columns = static_cast<int>(run.size());
        const Rect seen = intersection(area, {at.column, at.row, columns, 1});
        if (seen.columns > 0 && seen.rows > 0) {
            auto unit = run.begin() + (seen.column - at.column);
            for (Cell &cell : cleared(seen)) {
                cell = {Cluster(*unit++), style};
            }
        }
        at.column += columns;
    };
    for (std::size_t from = 0; from < text.size();) {
        std::size_t end = from;
        while (end < text.size() && isPlainAt(text, end)) {
            ++end;
        }
        if (end > from) {
            putPlain(text.substr(from, end - from));
            from = end;
            continue;
        }
        end = clusterEnd(text, from);
        const ShownCluster shown = shownCluster(text.substr(from, end - from), characters_);
        from = end;
        if (shown.isAscii) {
            putPlain(shown.text);
            continue;
        }
        const Rect seen = intersection(area, {at.column, at.row, shown.columns, 1});
        if (shown.columns > 0 && seen.columns == shown.columns && seen.rows == 1) {
            const std::span<Cell> cells = cleared(seen);
            cells.front() = {Cluster(shown.text), style};
            std::ranges::fill(cells.subspan(1), Cell{Cluster(), style});
        } else {
            fill(seen, style);
        }
        at.column += shown.columns;
    }
    return at.column - begin;
}

void CellGrid::fill(const Rect &area, const Style &style, std::u16string_view cluster) {
    const Rect seen = intersection(area, {0, 0, size_.columns, size_.rows});
    const Cell cell{Cluster(cluster), style};
    for (int row = seen.row; seen.columns > 0 && row < seen.row + seen.rows; ++row) {
        std::ranges::fill(cleared({seen.column, row, seen.columns, 1}), cell);
    }
}

std::span<Cell> CellGrid::cleared(const Rect &part) {
    const std::size_t first = indexOf({part.column, part.row});
    const std::size_t after = first + static_cast<std::size_t>(part.columns);
    constexpr Cluster blank(u' ');
    if (cells_[first].cluster.isNothing()) {
        cells_[first - 1].cluster = blank;
    }
    if (part.column + part.columns < size_.columns && cells_[after].cluster.isNothing()) {
        cells_[after].cluster = blank;
    }
    return std::span(cells_).subspan(first, after - first);
}

} // namespace kvex::terminal
