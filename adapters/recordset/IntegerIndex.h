// Finds the rows of a column of integers by value.
#pragma once

#include "adapters/recordset/RowStore.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace kvex::recordset {

class IntegerIndex {
public:
    /// Of as many rows as `removed` has, without those removed. Nothing for a column that holds
    /// anything but integers and Nulls.
    [[nodiscard]] static std::optional<IntegerIndex> of(const RowStore &rows, std::size_t column,
                                                        const std::vector<bool> &removed);

    /// The first row from `from` on that holds `number`.
    [[nodiscard]] std::optional<std::size_t> find(std::int64_t number, std::size_t from) const;

    /// Row `row` holds `now` instead of `before`. False when `now` is neither an integer nor
    /// Null, or finds no memory: the index is of no more use then.
    [[nodiscard]] bool replace(std::size_t row, const ValueView &before,
                               const ValueView &now) noexcept;

private:
    using Entry = std::pair<std::int64_t, std::size_t>;

    std::vector<Entry> entries_; // ascending
};

} // namespace kvex::recordset
