// The one table that the rows of a query can be written to.
#pragma once

#include "adapters/recordset/Driver.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kvex::recordset {

struct BaseTable {
    std::u16string name;
    /// The columns of the result that make its key.
    std::vector<std::size_t> key;

    /// Fails with badArgument when there is none: an expression without a table, a join, a
    /// table without a primary key or one whose key is not in the result, or is there twice.
    [[nodiscard]] static BaseTable of(const std::vector<Column> &columns);
};

} // namespace kvex::recordset
