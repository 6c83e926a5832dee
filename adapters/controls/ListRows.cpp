#include "adapters/controls/ListRows.h"

#include "platform/Error.h"
#include "platform/Unicode.h"
#include "platform/Utf16.h"

#include <algorithm>

namespace kvex::controls {
namespace {

/// Items count from 1.
template <class Items> auto &numbered(Items &items, int number) {
    if (number < 1 || static_cast<std::size_t>(number) > items.size()) {
        throw Error(error_number::indexOutOfBounds);
    }
    return items[static_cast<std::size_t>(number) - 1];
}

bool beginsWithWhole(std::u16string_view text, std::u16string_view beginning) {
    std::size_t end = beginning.size();
    return text.starts_with(beginning) &&
           (end == text.size() || !isLetterOrDigit(nextCharacter(text, end)));
}

} // namespace

void ListRows::clearColumns() {
    tell(&ListRowsListener::aboutToReset);
    columns_.clear();
    tell(&ListRowsListener::reset);
}

void ListRows::addColumn(const std::u16string &header, double width) {
    if (!(width >= 0 && width <= 1)) {
        throw Error(error_number::invalidPropertyValue);
    }
    tell(&ListRowsListener::aboutToReset);
    columns_.push_back({header, width});
    tell(&ListRowsListener::reset);
}

void ListRows::setColumnIcon(int column, int icon) {
    numbered(columns_, column).icon = icon;
    tell(&ListRowsListener::columnIconChanged, column);
}

const ListRows::Column &ListRows::column(int column) const {
    return numbered(columns_, column);
}

void ListRows::clearRows() {
    const bool hadSelection = !selection_.empty();
    tell(&ListRowsListener::aboutToReset);
    selection_.clear();
    keyed_.clear();
    rows_.clear();
    numbered_ = 0;
    tell(&ListRowsListener::reset);
    if (hadSelection) {
        tell(&ListRowsListener::selectionChanged);
    }
}

int ListRows::addRow(const std::u16string &text, const std::u16string &key) {
    if (keyed_.contains(std::u16string_view(key))) {
        throw Error(error_number::keyNotUnique);
    }
    auto added = std::make_unique<Row>();
    added->texts.set(0, key);
    added->texts.set(1, text);
    const std::size_t place = sorted_ ? placeFor(*added) : rows_.size();
    if (rows_.size() == rows_.capacity()) {
        rows_.reserve(rows_.size() * 2 + 16);
    }
    if (!key.empty()) {
        keyed_.insert(added.get());
    }
    tell(&ListRowsListener::aboutToInsertRow, static_cast<int>(place) + 1);
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(place), std::move(added));
    numbered_ = std::min(numbered_, place);
    tell(&ListRowsListener::rowInserted);
    return static_cast<int>(place) + 1;
}

void ListRows::removeRow(int row) {
    Row &removed = at(row);
    const bool wasSelected = removed.selected;
    const bool wasCurrent = selectedRow() == row;
    if (wasSelected) {
        drop(removed);
    }
    tell(&ListRowsListener::aboutToRemoveRow, row);
    keyed_.erase(&removed);
    const auto place = static_cast<std::size_t>(row) - 1;
    rows_.erase(rows_.begin() + row - 1);
    numbered_ = std::min(numbered_, place);
    if (wasCurrent && place < rows_.size()) {
        putLast(*rows_[place]);
    }
    tell(&ListRowsListener::rowRemoved);
    if (wasSelected) {
        tell(&ListRowsListener::selectionChanged);
    }
}

std::u16string ListRows::text(int row) const {
    return std::u16string(at(row).texts[1]);
}

void ListRows::setText(int row, const std::u16string &text) {
    at(row).texts.set(1, text);
    tell(&ListRowsListener::rowChanged, row);
}

std::u16string ListRows::key(int row) const {
    return std::u16string(keyOf(&at(row)));
}

int ListRows::rowOfKey(std::u16string_view key) const {
    const auto found = keyed_.find(key);
    if (found == keyed_.end()) {
        throw Error(error_number::elementNotFound);
    }
    return positionOf(**found);
}

std::u16string ListRows::subItem(int row, int index) const {
    requireColumnOf(index);
    return std::u16string(cell(row, index + 1));
}

void ListRows::setSubItem(int row, int index, const std::u16string &text) {
    requireColumnOf(index);
    at(row).texts.set(static_cast<std::size_t>(index) + 1, text);
    tell(&ListRowsListener::rowChanged, row);
}

std::u16string_view ListRows::cell(int row, int column) const {
    const Row &shown = at(row);
    numbered(columns_, column);
    return shown.texts[static_cast<std::size_t>(column)];
}

bool ListRows::checked(int row) const {
    return at(row).checked;
}

void ListRows::setChecked(int row, bool checked) {
    at(row).checked = checked;
    tell(&ListRowsListener::rowChanged, row);
}

RowColour ListRows::rowColour(int row) const {
    return at(row).colour;
}

void ListRows::setRowColour(int row, RowColour colour) {
    at(row).colour = colour;
    tell(&ListRowsListener::rowChanged, row);
}

int ListRows::findItem(std::u16string_view text, FindMatch match) const {
    const std::u16string wanted = foldCase(text);
    const auto matches = [&](const auto &row) {
        const std::u16string shown = foldCase(row->texts[1]);
        return match == FindMatch::wholeText
                   ? shown == wanted
                   : beginsWithWhole(shown, wanted) || beginsWithWhole(wanted, shown);
    };
    const auto found = std::ranges::find_if(rows_, matches);
    return found == rows_.end() ? 0 : static_cast<int>(found - rows_.begin()) + 1;
}

void ListRows::setSorted(bool sorted) {
    sorted_ = sorted;
    if (sorted) {
        sort();
    }
}

void ListRows::setSortKey(int key) {
    if (key < 0) {
        throw Error(error_number::invalidPropertyValue);
    }
    const bool isOther = sortKey_ != key;
    sortKey_ = key;
    if (isOther && sorted_) {
        sort();
    }
}

void ListRows::sort() {
    tell(&ListRowsListener::aboutToReorder);
    std::ranges::stable_sort(rows_, {}, [this](const auto &row) { return sortText(*row); });
    numbered_ = 0;
    tell(&ListRowsListener::reordered);
}

std::u16string_view ListRows::sortText(const Row &row) const {
    return row.texts[static_cast<std::size_t>(sortKey_) + 1];
}

/// After all rows that sort before it or equal to it. Texts that changed since the last sort can
/// leave the rows out of order. Then the place is arbitrary.
std::size_t ListRows::placeFor(const Row &row) const {
    const std::u16string_view key = sortText(row);
    std::size_t low = 0;
    for (std::size_t high = rows_.size(); low < high;) {
        const std::size_t middle = low + (high - low) / 2;
        if (sortText(*rows_[middle]) <= key) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

ListRows::Row &ListRows::at(int row) const {
    return *numbered(rows_, row);
}

int ListRows::positionOf(const Row &row) const {
    if (row.place >= numbered_ || rows_[row.place].get() != &row) {
        for (; numbered_ < rows_.size(); ++numbered_) {
            rows_[numbered_]->place = static_cast<std::uint32_t>(numbered_);
        }
    }
    return static_cast<int>(row.place) + 1;
}

void ListRows::requireColumnOf(int subItem) const {
    if (subItem < 1 || subItem >= columnCount()) {
        throw Error(error_number::invalidPropertyValue);
    }
}

} // namespace kvex::controls
