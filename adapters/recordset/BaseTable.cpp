#include "adapters/recordset/BaseTable.h"

#include "platform/Error.h"

#include <algorithm>

namespace kvex::recordset {

BaseTable BaseTable::of(const std::vector<Column> &columns) {
    BaseTable table;
    std::size_t keyParts = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Column &column = columns[i];
        if (column.table.empty()) {
            continue;
        }
        if (!table.name.empty() && table.name != column.table) {
            throw Error(error_number::badArgument,
                        u"The rows of a query on several tables cannot be written: query one "
                        u"table.");
        }
        table.name = column.table;
        if (column.keyParts > 0) {
            table.key.push_back(i);
            keyParts = column.keyParts;
        }
    }
    if (table.key.empty() || table.key.size() != keyParts) {
        throw Error(error_number::badArgument,
                    u"The rows of this query cannot be written: query one table, with each "
                    u"column of its primary key once.");
    }
    return table;
}

} // namespace kvex::recordset
