// Describes the columns of a query's result: their kinds, where their values come from, the keys.
#pragma once

#include "adapters/odbc/OdbcStatement.h"
#include "adapters/recordset/Driver.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex::odbc {

enum class ValueKind { integer, decimal, number, text };

struct ResultColumn {
    std::u16string name;
    ValueKind kind;
};

/// Names and kinds.
[[nodiscard]] std::vector<ResultColumn> resultColumns(const OdbcStatement &query);

/// Where the values come from, as far as the driver says it. Asks the catalogue for keys. `text`
/// is the query's.
[[nodiscard]] std::vector<recordset::Column>
originsOf(const OdbcConnection &connection, const OdbcStatement &query, std::u16string_view text);

} // namespace kvex::odbc
