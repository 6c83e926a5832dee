#include "adapters/odbc/ResultValues.h"

#include "adapters/odbc/BoundRow.h"
#include "adapters/odbc/ResultColumns.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace kvex::odbc {

void deliverResult(const OdbcStatement &query, recordset::RowSink &sink) {
    const std::vector<ResultColumn> described = resultColumns(query);
    std::vector<recordset::Column> columns(described.size());
    std::ranges::transform(described, columns.begin(), [](const ResultColumn &column) {
        return recordset::Column{column.name, {}, {}, 0};
    });
    sink.columns(std::move(columns));
    BoundRow row(query, described);
    while (query.fetch()) {
        row.deliver(sink);
    }
}

} // namespace kvex::odbc
