// Describes the columns of a query's result: their kinds, where their values come from, the keys.
#pragma once

#include "adapters/odbc/OdbcStatement.h"
#include "adapters/recordset/Driver.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::odbc {

/// utf8 is a text that the driver hands on as the server's bytes, which are UTF-8.
enum class ValueKind { integer, decimal, number, text, utf8 };

struct ResultColumn {
    std::u16string name;
    ValueKind kind;
    /// Of a text, in characters: what is declared at most, or a large number.
    std::size_t length;
};

/// Asks the server nothing.
[[nodiscard]] std::vector<ResultColumn> resultColumns(const OdbcStatement &query);

/// Where the values come from, as far as the driver says it. Asks the catalogue for keys. `text`
/// is the query's.
[[nodiscard]] std::vector<recordset::Column>
originsOf(const OdbcConnection &connection, const OdbcStatement &query, std::u16string_view text);

} // namespace kvex::odbc
