// An index of a column of integers: finds rows by value.
#pragma once

#include "adapters/recordset/RowStore.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace kvex::recordset {

class IntegerIndex {
public:
    /// Indexes the rows that are not removed. `removed` has one entry for each row. Nothing for a
    /// column with any values except integers and Nulls.
    [[nodiscard]] static std::optional<IntegerIndex> of(const RowStore &rows, std::size_t column,
                                                        const std::vector<bool> &removed);

    /// The first row at or after `from` that holds `number`.
    [[nodiscard]] std::optional<std::size_t> find(std::int64_t number, std::size_t from) const;

    /// Notes that row `row` holds `now` instead of `before`. Returns false when `now` is neither an
    /// integer nor Null, or when memory is missing; drop the index then.
    [[nodiscard]] bool replace(std::size_t row, const ValueView &before,
                               const ValueView &now) noexcept;

private:
    using Entry = std::pair<std::int64_t, std::size_t>;

    std::vector<Entry> entries_; // ascending
};

} // namespace kvex::recordset
