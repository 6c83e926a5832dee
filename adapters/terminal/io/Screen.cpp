#include "adapters/terminal/io/Screen.h"

#include "adapters/terminal/io/Colours.h"

#include <algorithm>
#include <cstdlib>
#include <span>

namespace kvex::terminal {
namespace {

const Cell blank;

/// True for clusters that terminals give different columns.
bool isDisputed(const Cell &cell) {
    return cell.cluster.isLong();
}

/// A sequence with numbers in it has at least this length, "\x1b[5G".
constexpr std::size_t shortestFilled = 4;
/// More steps to a place are longer than the place's numbers.
constexpr int mostSteps = 8;

std::string repeated(const std::string &sequence, int times) {
    std::string result;
    for (int time = 0; time < times; ++time) {
        result += sequence;
    }
    return result;
}

} // namespace

Screen::Screen(const Capabilities &capabilities, int colours)
    : capabilities_(capabilities), colours_(colours) {}

void Screen::forget(Size size) {
    size_ = size;
    isKnown_ = false;
}

Cell &Screen::shown(Point at) {
    return shown_[static_cast<std::size_t>(at.row) * static_cast<std::size_t>(size_.columns) +
                  static_cast<std::size_t>(at.column)];
}

const Cell &Screen::shown(Point at) const {
    return shown_[static_cast<std::size_t>(at.row) * static_cast<std::size_t>(size_.columns) +
                  static_cast<std::size_t>(at.column)];
}

std::string Screen::update(const CellGrid &grid) {
    bytes_.clear();
    if (!isKnown_) {
        bytes_ = capabilities_.plain + capabilities_.clear + capabilities_.hideCursor;
        shown_.assign(
            static_cast<std::size_t>(size_.columns) * static_cast<std::size_t>(size_.rows), blank);
        forgetCursor();
        isCursorShown_ = capabilities_.hideCursor.empty();
        style_ = {};
        isKnown_ = true;
    }
    if (!capabilities_.scrollRegion.empty() && grid.size() == size_) {
        if (const auto scrolling = scrollingBetween(shown_, grid.cells(), size_)) {
            scroll(*scrolling);
        }
    }
    for (int row = 0; row < size_.rows; ++row) {
        updateRow(grid, row);
    }
    const Rect screen{0, 0, size_.columns, size_.rows};
    const bool showsCursor = grid.cursor && screen.contains(*grid.cursor);
    if (showsCursor) {
        moveTo(*grid.cursor);
    }
    if (showsCursor != isCursorShown_ && !capabilities_.hideCursor.empty()) {
        bytes_ += showsCursor ? capabilities_.showCursor : capabilities_.hideCursor;
        isCursorShown_ = showsCursor;
    }
    return bytes_;
}

void Screen::scroll(const Scrolling &scrolling) {
    const auto &[top, bottom, lines] = scrolling;
    // Some terminals fill the blank lines with the present attributes.
    setStyle({});
    bytes_ += filled(capabilities_.scrollRegion, top, bottom);
    forgetCursor();
    moveTo({0, lines > 0 ? bottom : top});
    bytes_ +=
        repeated(lines > 0 ? capabilities_.scrollUp : capabilities_.scrollDown, std::abs(lines)) +
        capabilities_.scrollAll;
    forgetCursor();

    const std::ptrdiff_t columns = size_.columns;
    const auto begin = shown_.begin() + top * columns;
    const auto end = shown_.begin() + (bottom + 1) * columns;
    const std::ptrdiff_t left = std::abs(lines) * columns;
    if (lines > 0) {
        std::fill(std::shift_left(begin, end, left), end, blank);
    } else {
        std::fill(begin, std::shift_right(begin, end, left), blank);
    }
}

void Screen::updateRow(const CellGrid &grid, int row) {
    const bool isInGrid = row < grid.size().rows;
    const std::span shownRow(&shown({0, row}), static_cast<std::size_t>(size_.columns));
    if (isInGrid && sameCells(grid.row(row), shownRow)) {
        return;
    }
    const int gridColumns = isInGrid ? std::min(grid.size().columns, size_.columns) : 0;
    // The screen's edge may leave a half of a wide cluster.
    const bool isCut = gridColumns > 0 && gridColumns < grid.size().columns &&
                       grid.at({gridColumns, row}).cluster.isNothing();
    const int seenColumns = gridColumns - (isCut ? 1 : 0);
    const auto wanted = [&](int column) -> const Cell & {
        return column < seenColumns ? grid.at({column, row}) : blank;
    };
    // From here on the line is to be blank and plain.
    int blankFrom = size_.columns;
    while (blankFrom > 0 && wanted(blankFrom - 1) == blank) {
        --blankFrom;
    }
    // A cell that may be covered by what the terminal wrote for the cluster before it.
    int covered = -1;
    for (int column = 0; column < size_.columns;) {
        const Cell &cell = wanted(column);
        if (column != covered && cell == shown({column, row})) {
            ++column;
            continue;
        }
        if (column >= blankFrom && !capabilities_.eraseToEndOfLine.empty()) {
            eraseRest({column, row});
            return;
        }
        const bool isWide = column + 1 < size_.columns && wanted(column + 1).cluster.isNothing();
        writeCell({column, row}, cell, isWide ? 2 : 1, column == covered);
        column += isWide ? 2 : 1;
        covered = -1;
        if (column < size_.columns && isDisputed(cell)) {
            if (isDisputed(wanted(column))) {
                covered = column;
            } else {
                eraseRest({column, row});
            }
        }
    }
}

void Screen::writeCell(Point at, const Cell &wanted, int columns, bool mayBeCovered) {
    const bool isLast = at.row + 1 == size_.rows && at.column + columns == size_.columns;
    const bool scrolls = capabilities_.wrapsAtOnce && capabilities_.leaveWrapping.empty();
    if (isLast && scrolls) {
        return;
    }
    moveTo(at);
    setStyle(wanted.style);
    const Cell &old = shown(at);
    if (isDisputed(wanted) && wanted.cluster != old.cluster &&
        (mayBeCovered || !isBlank(at, columns))) {
        // A terminal that takes fewer columns would keep something of what stands there.
        bytes_.append(static_cast<std::size_t>(columns), ' ');
        column_ = at.column + columns;
        forgetColumnAtEdge();
        moveTo(at);
    }
    wanted.cluster.appendTo(bytes_);
    if (wanted.cluster.isAscii()) {
        column_ = at.column + 1;
        forgetColumnAtEdge();
    } else {
        forgetColumn();
    }
    shown(at) = wanted;
    if (columns == 2) {
        shown({at.column + 1, at.row}) = {Cluster(), wanted.style};
    }
}

bool Screen::isBlank(Point at, int columns) const {
    for (int column = at.column; column < at.column + columns; ++column) {
        if (shown({column, at.row}).cluster != blank.cluster) {
            return false;
        }
    }
    return true;
}

void Screen::eraseRest(Point from) {
    moveTo(from);
    setStyle({});
    bytes_ += capabilities_.eraseToEndOfLine;
    for (int column = from.column; column < size_.columns; ++column) {
        // Without a way to erase, no cell shows what is wanted, so each one is written.
        shown({column, from.row}) =
            capabilities_.eraseToEndOfLine.empty() ? Cell{Cluster(u'\uFFFF'), {}} : blank;
    }
}

void Screen::forgetCursor() {
    row_.reset();
    column_.reset();
}

void Screen::forgetColumn() {
    column_.reset();
    if (capabilities_.leaveWrapping.empty()) {
        row_.reset();
    }
}

/// After the last column some terminals have gone to the next line, and some wait there.
void Screen::forgetColumnAtEdge() {
    if (column_ >= size_.columns) {
        forgetColumn();
    }
}

void Screen::moveTo(Point to) {
    if (row_ != to.row || column_ != to.column) {
        bytes_ += cheapestWay(to);
        row_ = to.row;
        column_ = to.column;
    }
}

std::string Screen::cheapestWay(Point to) const {
    std::string best;
    const auto offer = [&best](const std::string &way) {
        if (!way.empty() && (best.empty() || way.size() < best.size())) {
            best = way;
        }
    };
    const bool isSameRow = row_ == to.row;
    if (isSameRow && column_) {
        const int distance = to.column - *column_;
        if (std::abs(distance) <= mostSteps) {
            offer(repeated(distance > 0 ? capabilities_.right : capabilities_.left,
                           std::abs(distance)));
        }
        offer(rewritten(to));
    }
    if (row_ && to.column == 0 && to.row >= *row_) {
        const std::string down = repeated(capabilities_.down, to.row - *row_);
        if (isSameRow || !down.empty()) {
            offer(capabilities_.toFirstColumn + down);
        }
    }
    // To fill in numbers takes longer than all of the above.
    const auto offerFilled = [&](const std::string &sequence, int first, int second) {
        if (!sequence.empty() && (best.empty() || best.size() > shortestFilled)) {
            offer(filled(sequence, first, second));
        }
    };
    if (isSameRow) {
        offerFilled(capabilities_.toColumn, to.column, 0);
    }
    offerFilled(capabilities_.placeCursor, to.row, to.column);
    return best;
}

/// The cells between the cursor and a place to its right, where writing them again is possible.
std::string Screen::rewritten(Point to) const {
    std::string result;
    for (int column = *column_; column < to.column; ++column) {
        const Cell &cell = shown({column, to.row});
        if (!cell.cluster.isAscii() || cell.style != style_ || result.size() > 4) {
            return {};
        }
        cell.cluster.appendTo(result);
    }
    return result;
}

void Screen::setStyle(const Style &style) {
    if (style == style_) {
        return;
    }
    const auto before = nearestColour(style_.colour, colours_);
    const auto colour = nearestColour(style.colour, colours_);
    const bool mustEnd = (style_.bold && !style.bold) || (style_.dim && !style.dim) ||
                         (style_.reverse && !style.reverse) ||
                         (style_.underline && !style.underline) || (before && !colour);
    if (mustEnd) {
        bytes_ += capabilities_.plain;
        style_ = {};
    }
    const auto begin = [this](bool is, bool wanted, const std::string &sequence) {
        bytes_ += wanted && !is ? sequence : std::string();
    };
    begin(style_.bold, style.bold, capabilities_.bold);
    begin(style_.dim, style.dim, capabilities_.dim);
    begin(style_.reverse, style.reverse, capabilities_.reverse);
    begin(style_.underline, style.underline, capabilities_.underline);
    if (colour && (mustEnd || colour != before)) {
        bytes_ += filled(capabilities_.foreground, *colour);
    }
    style_ = style;
}

} // namespace kvex::terminal
