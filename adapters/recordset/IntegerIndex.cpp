#include "adapters/recordset/IntegerIndex.h"

#include <algorithm>
#include <new>

namespace kvex::recordset {

std::optional<IntegerIndex> IntegerIndex::of(const RowStore &rows, std::size_t column,
                                             const std::vector<bool> &removed) {
    IntegerIndex index;
    // Leaves room, so that the first added rows do not move all entries.
    constexpr std::size_t addedSoon = 64;
    index.entries_.reserve(removed.size() + addedSoon);
    for (std::size_t row = 0; row < removed.size(); ++row) {
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

bool IntegerIndex::replace(std::size_t row, const ValueView &before,
                           const ValueView &now) noexcept {
    const auto *const number = std::get_if<std::int64_t>(&now.held());
    if (!number && !now.isNull()) {
        return false;
    }
    try {
        if (number) {
            const Entry entry(*number, row);
            entries_.insert(std::ranges::lower_bound(entries_, entry), entry);
        }
    } catch (const std::bad_alloc &) {
        return false;
    }
    if (const auto *const old = std::get_if<std::int64_t>(&before.held())) {
        entries_.erase(std::ranges::lower_bound(entries_, Entry(*old, row)));
    }
    return true;
}

} // namespace kvex::recordset
