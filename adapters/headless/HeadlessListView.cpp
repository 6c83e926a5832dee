#include "adapters/headless/HeadlessListView.h"

#include "adapters/headless/HeadlessWindow.h"
#include "adapters/headless/User.h"

#include <algorithm>

namespace kvex::headless {

void HeadlessListView::clickBesideRows() {
    if (selectedRow() > 0) {
        selectOnly(0);
        deliver(onDeselect);
    }
}

void HeadlessListView::clickRow(int row) {
    selectOnly(row);
    deliver(onItemClick, row);
}

void HeadlessListView::doubleClickRow(int row) {
    clickRow(row);
    if (window()->isOpen()) {
        deliver(onDoubleClick);
    }
}

void HeadlessListView::tickRow(int row) {
    setChecked(row, !checked(row));
    deliver(onItemCheck, row);
}

bool HeadlessListView::press(Key key) {
    const int current = selectedRow();
    switch (key) {
    case Key::space:
        if (design().checkBoxes && current != 0) {
            tickRow(current);
        }
        return true;
    case Key::up:
        moveTo(std::max(current - 1, 1));
        return true;
    case Key::down:
        moveTo(std::min(current + 1, rowCount()));
        return true;
    case Key::home:
        moveTo(1);
        return true;
    case Key::end:
        moveTo(rowCount());
        return true;
    default:
        return false;
    }
}

void HeadlessListView::moveTo(int row) {
    if (rowCount() > 0 && row != selectedRow()) {
        clickRow(row);
    }
}

} // namespace kvex::headless
