#include "adapters/controls/ListRows.h"

#include <algorithm>
#include <iterator>

namespace kvex::controls {

int ListRows::selectedRow() const {
    return selection_.empty() ? 0 : positionOf(*selection_.back());
}

bool ListRows::selected(int row) const {
    return at(row).selected;
}

void ListRows::select(int row) {
    Row &chosen = at(row);
    if (multiSelect_) {
        putLast(chosen);
        tell(&ListRowsListener::selectionChanged);
    } else {
        selectOnly(row);
    }
    tell(&ListRowsListener::rowSelectedByCode, row);
}

void ListRows::selectOnly(int row) {
    Row *only = row == 0 ? nullptr : &at(row);
    deselectAll();
    if (only != nullptr) {
        putLast(*only);
    }
    tell(&ListRowsListener::selectionChanged);
}

void ListRows::deselect(int row) {
    Row &dropped = at(row);
    if (dropped.selected) {
        drop(dropped);
        tell(&ListRowsListener::selectionChanged);
    }
}

void ListRows::setMultiSelect(bool multiSelect) {
    multiSelect_ = multiSelect;
    if (!multiSelect && selection_.size() > 1) {
        selectOnly(selectedRow());
    }
}

void ListRows::putLast(Row &row) {
    drop(row);
    selection_.push_back(&row);
    row.selected = true;
}

void ListRows::drop(Row &row) {
    if (row.selected) {
        // From the end, because the row was often selected last.
        const auto found = std::find(selection_.rbegin(), selection_.rend(), &row);
        selection_.erase(std::next(found).base());
        row.selected = false;
    }
}

void ListRows::deselectAll() {
    for (Row *row : selection_) {
        row->selected = false;
    }
    selection_.clear();
}

} // namespace kvex::controls
