#include "adapters/recordset/ClientCursor.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "platform/Error.h"

#include <algorithm>
#include <string>
#include <utility>

namespace kvex::recordset {

ClientCursor::ClientCursor(RowStore rows) : rows_(std::move(rows)), removed_(rows_.rowCount()) {}

std::size_t ClientCursor::columnOf(std::u16string_view name) const {
    const auto found = std::ranges::find_if(
        columns(), [name](const Column &column) { return equalIgnoringCase(column.name, name); });
    if (found == columns().end()) {
        throw Error(error_number::itemNotFound,
                    u"The query has no column " + std::u16string(name) + u".");
    }
    return static_cast<std::size_t>(found - columns().begin());
}

void ClientCursor::moveNext() {
    if (atEnd()) {
        throw Error(error_number::noCurrentRecord);
    }
    current_ = firstKept(current_ + 1);
}

void ClientCursor::find(const FindCriterion &criterion, std::size_t skip) {
    const std::size_t column = columnOf(criterion.column());
    std::size_t row = firstKept(current_);
    for (; skip > 0 && row < rowCount(); --skip) {
        row = firstKept(row + 1);
    }
    if (const auto *number = std::get_if<std::int64_t>(&criterion.wanted())) {
        if (const auto &index = indexOf(column)) {
            current_ = index->find(*number, row).value_or(rowCount());
            return;
        }
    }
    const auto *text = std::get_if<std::u16string_view>(&criterion.wanted());
    const auto candidate = [&](std::size_t from) {
        return text != nullptr ? rows_.nextLike(*text, column, from) : from;
    };
    row = candidate(row);
    while (row < rowCount() && (removed_[row] || !criterion.matches(rows_.value(row, column)))) {
        row = candidate(row + 1);
    }
    current_ = std::min(row, rowCount());
}

void ClientCursor::requireCurrent() const {
    if (atEnd() || removed_[current_]) {
        throw Error(error_number::noCurrentRecord);
    }
}

void ClientCursor::set(std::size_t row, std::size_t column,
                       const RowStore::Cell &prepared) noexcept {
    const auto found = indexes_.find(column);
    const bool isIndexed = found != indexes_.end() && found->second;
    const ValueView before = isIndexed ? rows_.value(row, column) : ValueView();
    rows_.set(row, column, prepared);
    if (isIndexed && !found->second->replace(row, before, rows_.value(row, column))) {
        found->second.reset();
    }
}

void ClientCursor::remove(std::size_t row) noexcept {
    for (auto &[column, index] : indexes_) {
        if (index) {
            // This cannot fail: a Null needs no memory.
            static_cast<void>(index->replace(row, rows_.value(row, column), ValueView()));
        }
    }
    removed_[row] = true;
    ++removedCount_;
}

void ClientCursor::bringBack(std::size_t row) noexcept {
    for (auto &[column, index] : indexes_) {
        if (index && !index->replace(row, ValueView(), rows_.value(row, column))) {
            index.reset();
        }
    }
    removed_[row] = false;
    --removedCount_;
}

void ClientCursor::prepareAppend() {
    if (rows_.rowCount() == rowCount()) {
        rows_.appendRow();
    }
    removed_.reserve(rowCount() + 1);
}

void ClientCursor::append() noexcept {
    current_ = rowCount();
    removed_.push_back(false);
}

std::size_t ClientCursor::firstKept(std::size_t from) const {
    while (from < rowCount() && removed_[from]) {
        ++from;
    }
    return from;
}

const std::optional<IntegerIndex> &ClientCursor::indexOf(std::size_t column) {
    const auto found = indexes_.find(column);
    if (found != indexes_.end()) {
        return found->second;
    }
    return indexes_.emplace(column, IntegerIndex::of(rows_, column, removed_)).first->second;
}

} // namespace kvex::recordset
