#include "adapters/terminal/io/Screen.h"

#include "adapters/terminal/io/Colours.h"
#include "platform/Text.h"

#include <algorithm>
#include <cstdlib>
#include <span>

namespace kvex::terminal {
namespace {

const Cell blank;

bool isAscii(const Cell &cell) {
    return cell.text.size() == 1 && cell.text.front() < 0x80;
}

/// True for clusters that terminals give different columns.
bool isDisputed(const Cell &cell) {
    return cell.text.size() > 1;
}

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
        row_.reset();
        column_.reset();
        isCursorShown_ = capabilities_.hideCursor.empty();
        pen_ = {};
        isKnown_ = true;
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

void Screen::updateRow(const CellGrid &grid, int row) {
    const bool isInGrid = row < grid.size().rows;
    const std::span shownRow(&shown({0, row}), static_cast<std::size_t>(size_.columns));
    if (isInGrid && std::ranges::equal(grid.row(row), shownRow)) {
        return;
    }
    const int gridColumns = isInGrid ? std::min(grid.size().columns, size_.columns) : 0;
    // The screen's edge may leave a half of a wide cluster.
    const bool isCut = gridColumns > 0 && gridColumns < grid.size().columns &&
                       grid.at({gridColumns, row}).text.empty();
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
        const bool isWide = column + 1 < size_.columns && wanted(column + 1).text.empty();
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
    if (!(isLast && scrolls)) {
        moveTo(at);
        setPen(penOf(wanted.style));
        const Cell &old = shown(at);
        if (isDisputed(wanted) && wanted.text != old.text &&
            (mayBeCovered || !isBlank(at, columns))) {
            // A terminal that takes fewer columns would keep something of what stands there.
            bytes_.append(static_cast<std::size_t>(columns), ' ');
            column_ = at.column + columns;
            forgetColumnAtEdge();
            moveTo(at);
        }
        bytes_ += toUtf8(wanted.text);
        if (isAscii(wanted)) {
            column_ = at.column + 1;
            forgetColumnAtEdge();
        } else {
            forgetColumn();
        }
    }
    shown(at) = wanted;
    if (columns == 2) {
        shown({at.column + 1, at.row}) = {u"", wanted.style};
    }
}

bool Screen::isBlank(Point at, int columns) const {
    for (int column = at.column; column < at.column + columns; ++column) {
        if (shown({column, at.row}).text != blank.text) {
            return false;
        }
    }
    return true;
}

void Screen::eraseRest(Point from) {
    moveTo(from);
    setPen({});
    bytes_ += capabilities_.eraseToEndOfLine;
    for (int column = from.column; column < size_.columns; ++column) {
        // Without a way to erase, no cell shows what is wanted, so each one is written.
        shown({column, from.row}) =
            capabilities_.eraseToEndOfLine.empty() ? Cell{u"\uFFFF", {}} : blank;
    }
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
    std::string best = filled(capabilities_.placeCursor, to.row, to.column);
    const auto offer = [&best](const std::string &way) {
        if (!way.empty() && way.size() < best.size()) {
            best = way;
        }
    };
    if (!row_) {
        return best;
    }
    if (*row_ == to.row) {
        if (!capabilities_.toColumn.empty()) {
            offer(filled(capabilities_.toColumn, to.column));
        }
        if (column_) {
            const int distance = to.column - *column_;
            offer(repeated(distance > 0 ? capabilities_.right : capabilities_.left,
                           std::abs(distance)));
            offer(rewritten(to));
        }
    }
    if (to.column == 0 && to.row >= *row_) {
        const std::string down = repeated(capabilities_.down, to.row - *row_);
        if (to.row == *row_ || !down.empty()) {
            offer(capabilities_.toFirstColumn + down);
        }
    }
    return best;
}

/// The cells between the cursor and a place to its right, where writing them again is possible.
std::string Screen::rewritten(Point to) const {
    std::string result;
    for (int column = *column_; column < to.column; ++column) {
        const Cell &cell = shown({column, to.row});
        if (!isAscii(cell) || penOf(cell.style) != pen_ || result.size() > 4) {
            return {};
        }
        result += static_cast<char>(cell.text.front());
    }
    return result;
}

void Screen::setPen(const Pen &pen) {
    if (pen == pen_) {
        return;
    }
    const bool mustEnd = (pen_.bold && !pen.bold) || (pen_.dim && !pen.dim) ||
                         (pen_.reverse && !pen.reverse) || (pen_.underline && !pen.underline) ||
                         (pen_.colour && !pen.colour);
    if (mustEnd) {
        bytes_ += capabilities_.plain;
        pen_ = {};
    }
    const auto begin = [this](bool is, bool wanted, const std::string &sequence) {
        bytes_ += wanted && !is ? sequence : std::string();
    };
    begin(pen_.bold, pen.bold, capabilities_.bold);
    begin(pen_.dim, pen.dim, capabilities_.dim);
    begin(pen_.reverse, pen.reverse, capabilities_.reverse);
    begin(pen_.underline, pen.underline, capabilities_.underline);
    if (pen.colour && pen.colour != pen_.colour) {
        bytes_ += filled(capabilities_.foreground, *pen.colour);
    }
    pen_ = pen;
}

Screen::Pen Screen::penOf(const Style &style) const {
    const std::optional<int> colour =
        style.colour ? nearestColour(*style.colour, colours_) : std::nullopt;
    return {style.bold, style.dim, style.reverse, style.underline, colour};
}

} // namespace kvex::terminal
