#include "adapters/lightweight/LightListView.h"

#include "adapters/lightweight/LightWindow.h"

#include <algorithm>

namespace kvex::lightweight {
namespace {

constexpr int usualPage = 10;
constexpr std::chrono::seconds searchPause{1};

} // namespace

LightListView::LightListView(LightWindow *window, const ControlDesign &design)
    : LightControl(window, design, design.multiSelect),
      visible_(*this, design.lines > 0 ? design.lines : usualPage) {
    setListener(this);
}

std::u16string LightListView::status() const {
    const int row = currentRow();
    const bool isGreyed = row > 0 && rowColour(row) == RowColour::greyText;
    return isEnabled() && isGreyed ? design().greyedRowHint : Element::status();
}

void LightListView::setPage(int rows) {
    const int current = currentRow();
    const bool wasVisible = visible_.contains(current);
    visible_.setSize(rows);
    if (wasVisible) {
        visible_.bringIntoView(current);
    }
}

void LightListView::scrollBy(int rows) {
    visible_.scrollBy(rows);
    tellChange();
}

void LightListView::reset() {
    visible_.scrollToTop();
    rowsChanged();
}

void LightListView::rowsChanged() {
    selector_.forget();
    tellChange();
}

void LightListView::clickBesideRows() {
    search_.end();
    if (selectedRow() > 0) {
        selector_.select(0);
        deliver(onDeselect);
    }
}

void LightListView::clickRow(int row) {
    search_.end();
    pick(row);
}

void LightListView::toggleRow(int row) {
    search_.end();
    selector_.toggle(row);
    visible_.bringIntoView(row);
    if (selected(row)) {
        deliver(onItemClick, row);
    } else if (selectedRow() == 0) {
        deliver(onDeselect);
    }
}

void LightListView::extendTo(int row) {
    search_.end();
    selector_.extendTo(row);
    visible_.bringIntoView(row);
    deliver(onItemClick, row);
}

void LightListView::doubleClickRow(int row) {
    clickRow(row);
    if (window()->isOpen()) {
        clickRowAgain(row);
    }
}

/// The first click may have changed the rows.
void LightListView::clickRowAgain(int row) {
    if (row > rowCount()) {
        clickBesideRows();
    } else if (selected(row)) {
        deliver(onDoubleClick);
    } else {
        clickRow(row);
    }
}

void LightListView::tickRow(int row) {
    search_.end();
    setChecked(row, !checked(row));
    deliver(onItemCheck, row);
}

void LightListView::endSearchAfterPause() {
    if (window()->now() - searchedAt_ >= searchPause) {
        search_.end();
    }
}

bool LightListView::type(std::u16string_view cluster) {
    endSearchAfterPause();
    if (cluster == u" " && !search_.isRunning()) {
        return false;
    }
    searchedAt_ = window()->now();
    walkTo(search_.rowAfter(cluster));
    return true;
}

bool LightListView::press(Key key) {
    if (key == Key::space && type(u" ")) {
        return true;
    }
    search_.end();
    switch (key) {
    case Key::space:
        useCurrentRow();
        return true;
    case Key::toggleRow:
        if (currentRow() > 0) {
            toggleRow(currentRow());
        }
        return true;
    case Key::selectAll:
        selectAll();
        return true;
    case Key::left:
    case Key::right:
        return true;
    default:
        return walk(key);
    }
}

/// Goes to another row, if this is a key for it.
bool LightListView::walk(Key key) {
    const bool selectsNothing = key == Key::goUp || key == Key::goDown;
    const Key plain = controls::withoutShift(key);
    const auto row = rowAfter(plain);
    if (!row || *row == currentRow()) {
        return row.has_value();
    }
    if (plain != key) {
        extendTo(*row);
    } else if (selectsNothing && multiSelect() && selectedRow() > 0) {
        selector_.goTo(*row);
        visible_.bringIntoView(*row);
        tellChange();
    } else {
        pick(*row);
    }
    return true;
}

/// The row to which the key goes; 0 in an empty list, and nothing for other keys. If no row is
/// selected, End goes to the last row, and the other keys to the first one.
std::optional<int> LightListView::rowAfter(Key key) const {
    const int current = currentRow();
    const int last = rowCount();
    const int first = std::min(1, last);
    const auto step = [&](int rows) {
        return current == 0 ? first : std::clamp(current + rows, first, last);
    };
    switch (key) {
    case Key::up:
    case Key::goUp:
        return step(-1);
    case Key::down:
    case Key::goDown:
        return step(1);
    case Key::pageUp:
        return step(-visible_.size());
    case Key::pageDown:
        return step(visible_.size());
    case Key::home:
    case Key::textStart:
        return first;
    case Key::end:
    case Key::textEnd:
        return last;
    default:
        return std::nullopt;
    }
}

void LightListView::enteredByTab() {
    if (design().startsAtFirstRow && selectedRow() == 0) {
        walkTo(1);
    }
}

void LightListView::useCurrentRow() {
    const int current = currentRow();
    if (current > 0 && design().checkBoxes) {
        tickRow(current);
    } else if (current > 0 && !selected(current)) {
        toggleRow(current);
    }
}

void LightListView::selectAll() {
    selector_.selectAll();
    if (const int row = selectedRow(); multiSelect() && row > 0) {
        deliver(onItemClick, row);
    }
}

void LightListView::pick(int row) {
    selector_.select(row);
    visible_.bringIntoView(row);
    deliver(onItemClick, row);
}

/// Selects a row by key, if it exists and is not yet the current one.
void LightListView::walkTo(int row) {
    if (row >= 1 && row <= rowCount() && row != currentRow()) {
        pick(row);
    }
}

} // namespace kvex::lightweight
