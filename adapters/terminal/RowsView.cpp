#include "adapters/terminal/RowsView.h"

#include "adapters/terminal/WrappedText.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace kvex::terminal {
namespace {

using lightweight::Key;

constexpr int usualLines = 5;
constexpr int leastLines = 2;
constexpr int leastColumns = 16;
/// The bars on both sides.
constexpr int barColumns = 2;
constexpr int shiftStep = 8;
constexpr int tickColumns = 4;

/// The part of `text` that is visible in a column of this width. It moves by `shift`, but a text
/// that fits stays, and none moves further than to its end.
std::u16string_view visiblePart(std::u16string_view text, int shift, int columns,
                                Characters characters) {
    int hidden = shift > 0 ? shownColumns(text, characters) - columns : 0;
    while (shift > 0 && hidden > 0) {
        const std::size_t end = clusterEnd(text, 0);
        const int gone = shownColumns(text.substr(0, end), characters);
        text.remove_prefix(end);
        shift -= gone;
        hidden -= gone;
    }
    return beginning(text, columns, characters);
}

} // namespace

Extent RowsView::columns() const {
    const int wished = std::max(element().design().columns, leastColumns) + barColumns;
    return {leastColumns + barColumns, wished};
}

Extent RowsView::rows(int, Economy economy) const {
    const int lines = element().design().lines > 0 ? element().design().lines : usualLines;
    const int around = headerRows() + (economy < Economy::noListFrames ? 2 : 0);
    return {std::min(leastLines, lines) + around, lines + around};
}

int RowsView::headerRows() const {
    return element().design().columnHeaders && list_.columnCount() > 0 ? 1 : 0;
}

std::vector<RowsView::Slot> RowsView::slots(int columns) const {
    std::vector<Slot> slots;
    int from = 0;
    for (int column = 1; column <= list_.columnCount(); ++column) {
        const double share = list_.column(column).width;
        if (share > 0) {
            const int wide = static_cast<int>(std::lround(share * columns));
            slots.push_back({column, from, std::clamp(wide, 0, std::max(columns - from, 0))});
            from += slots.back().columns;
        }
    }
    if (slots.empty() && list_.columnCount() == 0) {
        slots.push_back({1, 0, columns});
    }
    if (!slots.empty()) {
        slots.back().columns = std::max(columns - slots.back().from, 0);
    }
    return slots;
}

/// What a column's picture says, as a character. A picture of a person or an account only decorates
/// what the words say.
std::u16string_view RowsView::pictureOf(int icon) const {
    const bool isInOrder = icon >= 1 && icon <= static_cast<int>(pictures_.size()) &&
                           pictures_[static_cast<std::size_t>(icon) - 1] == Picture::inOrder;
    if (!isInOrder) {
        return {};
    }
    return characters() == Characters::unicode ? u" \u2193" : u" v";
}

/// The check box before a row's text.
std::u16string_view RowsView::prefixOf(int row) const {
    if (!element().design().checkBoxes) {
        return {};
    }
    return list_.checked(row) ? u"[x] " : u"[ ] ";
}

void RowsView::paint(Canvas &canvas, const Rect &at, const Look &look) {
    const int frame = look.economy < Economy::noListFrames ? 1 : 0;
    const Rect inside{at.column + 1, at.row + frame, std::max(at.columns - barColumns, 0),
                      std::max(at.rows - 2 * frame, 0)};
    shown_ = {inside.column, inside.row + headerRows(), inside.columns,
              std::max(inside.rows - headerRows(), 0)};
    list_.setPage(shown_.rows);
    const int top = list_.visibleRows().first();

    if (frame > 0) {
        canvas.border(at);
    } else {
        canvas.lineDown({at.column, at.row}, at.rows);
    }
    canvas.scrollBar({at.column + at.columns - 1, inside.row}, inside.rows, top - 1, shown_.rows,
                     list_.rowCount());
    Canvas content = canvas.within(inside);
    const std::vector<Slot> all = slots(inside.columns);
    if (headerRows() > 0) {
        paintHeader(content, inside, all);
    }
    if (list_.rowCount() == 0) {
        paintEmptyText(content, shown_);
    }
    const int last = std::min(list_.rowCount(), top + shown_.rows - 1);
    for (int row = top; row <= last; ++row) {
        const Rect line{shown_.column, shown_.row + row - top, shown_.columns, 1};
        paintRow(content, line, all, row, look.hasFocus);
    }
    if (look.hasFocus) {
        const int current = std::clamp(list_.currentRow(), top, std::max(last, top));
        content.setCursor({shown_.column, shown_.row + current - top});
    }
}

void RowsView::paintHeader(Canvas &canvas, const Rect &at, const std::vector<Slot> &slots) const {
    for (const Slot &slot : slots) {
        if (slot.column > list_.columnCount()) {
            continue;
        }
        const auto &column = list_.column(slot.column);
        const std::u16string text = column.header + std::u16string(pictureOf(column.icon));
        canvas.put({at.column + slot.from, at.row}, beginning(text, slot.columns - 1, characters()),
                   {.bold = true});
    }
}

void RowsView::paintRow(Canvas &canvas, const Rect &at, const std::vector<Slot> &slots, int row,
                        bool hasFocus) const {
    Style style;
    style.reverse = list_.selected(row);
    style.dim = list_.rowColour(row) == RowColour::greyText || !element().isEnabled() ||
                (style.reverse && !hasFocus);
    if (style != Style()) {
        canvas.fill(at, style);
    }
    for (const Slot &slot : slots) {
        Canvas cell = canvas.within({at.column + slot.from, at.row, slot.columns, 1});
        Point to{at.column + slot.from, at.row};
        if (slot.from == 0) {
            to.column += cell.put(to, prefixOf(row), style);
        }
        // A blank parts a text from the next column.
        const bool isLast = slot.from + slot.columns >= at.columns;
        const int room = at.column + slot.from + slot.columns - to.column - (isLast ? 0 : 1);
        const std::u16string_view text =
            slot.column == 1 ? list_.rowText(row) : list_.cell(row, slot.column);
        cell.put(to, visiblePart(text, shift_, room, characters()), style);
    }
}

void RowsView::paintEmptyText(Canvas &canvas, const Rect &at) const {
    const std::u16string &text = element().design().emptyText;
    int row = at.row;
    for (const WrappedLine &line : wrapped(text, at.columns, characters())) {
        canvas.put({at.column, row++},
                   std::u16string_view(text).substr(line.from, line.to - line.from), {.dim = true});
    }
}

void RowsView::click(Point at, bool twice) {
    if (at.column == shown_.column + shown_.columns) {
        showPartAt(at.row - shown_.row);
        return;
    }
    const int row = list_.visibleRows().first() + at.row - shown_.row;
    if (at.row < shown_.row) {
        return;
    }
    if (row > list_.rowCount()) {
        list_.clickBesideRows();
    } else if (element().design().checkBoxes && at.column >= shown_.column &&
               at.column < shown_.column + tickColumns - 1) {
        list_.tickRow(row);
    } else if (twice) {
        list_.clickRowAgain(row);
    } else {
        list_.clickRow(row);
    }
}

/// Shows the part of the list for a place on its scroll bar: the first cell stands for the first
/// rows, the last one for the last rows.
void RowsView::showPartAt(int place) {
    const int hidden = std::max(list_.rowCount() - shown_.rows, 0);
    const int last = std::max(shown_.rows - 1, 1);
    // Rounded up, because the bar rounds down: its mark then stands at this place.
    const auto before = (std::int64_t{hidden} * std::clamp(place, 0, last) + last - 1) / last;
    list_.scrollBy(static_cast<int>(before) + 1 - list_.visibleRows().first());
}

bool RowsView::scroll(int rows) {
    const int before = list_.visibleRows().first();
    list_.scrollBy(rows);
    return list_.visibleRows().first() != before;
}

bool RowsView::press(Key key) {
    switch (key) {
    case Key::left:
        shift_ = std::max(shift_ - shiftStep, 0);
        return true;
    case Key::right:
        shift_ += isCutOnTheRight() ? shiftStep : 0;
        return true;
    default:
        return false;
    }
}

bool RowsView::isCutOnTheRight() const {
    const auto all = slots(shown_.columns);
    const int top = list_.visibleRows().first();
    const int last = std::min(list_.rowCount(), top + shown_.rows - 1);
    for (int row = top; row <= last; ++row) {
        const bool isCut = std::ranges::any_of(all, [&](const Slot &slot) {
            const int prefix = slot.from == 0 ? shownColumns(prefixOf(row), characters()) : 0;
            return slot.column <= list_.columnCount() &&
                   shownColumns(list_.cell(row, slot.column), characters()) - shift_ >
                       slot.columns - prefix - 1;
        });
        if (isCut) {
            return true;
        }
    }
    return false;
}

} // namespace kvex::terminal
