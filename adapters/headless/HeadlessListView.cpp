#include "adapters/headless/HeadlessListView.h"

#include "adapters/headless/HeadlessWindow.h"

#include <algorithm>

namespace kvex::headless {

void HeadlessListView::clickBesideRows() {
    search_.end();
    if (selectedRow() > 0) {
        selectOnly(0);
        deliver(onDeselect);
    }
}

void HeadlessListView::clickRow(int row) {
    search_.end();
    pick(row);
}

void HeadlessListView::doubleClickRow(int row) {
    clickRow(row);
    if (window()->isOpen()) {
        deliver(onDoubleClick);
    }
}

void HeadlessListView::tickRow(int row) {
    search_.end();
    setChecked(row, !checked(row));
    deliver(onItemCheck, row);
}

bool HeadlessListView::type(std::u16string_view character) {
    if (character == u" " && !search_.isRunning()) {
        return false;
    }
    walkTo(search_.rowAfter(character));
    return true;
}

bool HeadlessListView::press(Key key) {
    if (key == Key::space && search_.isRunning()) {
        return type(u" ");
    }
    search_.end();
    const int current = selectedRow();
    switch (key) {
    case Key::space:
        if (design().checkBoxes && current != 0) {
            tickRow(current);
        }
        return true;
    case Key::up:
        walkTo(std::max(current - 1, 1));
        return true;
    case Key::down:
        walkTo(std::min(current + 1, rowCount()));
        return true;
    case Key::home:
        walkTo(1);
        return true;
    case Key::end:
        walkTo(rowCount());
        return true;
    default:
        return false;
    }
}

void HeadlessListView::enteredByTab() {
    if (design().startsAtFirstRow && selectedRow() == 0) {
        walkTo(1);
    }
}

void HeadlessListView::pick(int row) {
    selectOnly(row);
    deliver(onItemClick, row);
}

/// Selects a row by key, if it exists and is not yet selected.
void HeadlessListView::walkTo(int row) {
    if (row >= 1 && row <= rowCount() && row != selectedRow()) {
        pick(row);
    }
}

} // namespace kvex::headless
