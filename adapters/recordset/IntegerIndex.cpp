#include "adapters/recordset/IntegerIndex.h"

#include <algorithm>

namespace kvex::recordset {

std::optional<IntegerIndex> IntegerIndex::of(const RowStore &rows, std::size_t column,
                                             const std::vector<bool> &removed) {
    IntegerIndex index;
    // Rows that are added soon must not make all of it move.
    constexpr std::size_t addedSoon = 64;
    index.entries_.reserve(rows.rowCount() + addedSoon);
    for (std::size_t row = 0; row < rows.rowCount(); ++row) {
        if (removed[row]) {
            continue;
        }
        const ValueView value = rows.value(row, column);
        if (const auto *number = std::get_if<std::int64_t>(&value.held())) {
            index.entries_.emplace_back(*number, row);
        } else if (!value.isNull()) {
            return std::nullopt;
        }
    }
    std::ranges::sort(index.entries_);
    return index;
}

std::optional<std::size_t> IntegerIndex::find(std::int64_t number, std::size_t from) const {
    const auto at = std::ranges::lower_bound(entries_, Entry(number, from));
    if (at == entries_.end() || at->first != number) {
        return std::nullopt;
    }
    return at->second;
}

bool IntegerIndex::replace(std::size_t row, const ValueView &before, const ValueView &now) {
    if (const auto *number = std::get_if<std::int64_t>(&before.held())) {
        const Entry old(*number, row);
        const auto at = std::ranges::lower_bound(entries_, old);
        if (at != entries_.end() && *at == old) {
            entries_.erase(at);
        }
    }
    if (const auto *number = std::get_if<std::int64_t>(&now.held())) {
        const Entry entry(*number, row);
        entries_.insert(std::ranges::lower_bound(entries_, entry), entry);
        return true;
    }
    return now.isNull();
}

} // namespace kvex::recordset
