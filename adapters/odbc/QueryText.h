// What the text of a query says without the server.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvex::odbc {

/// True only for a single statement that gives rows and makes nothing, whatever the server: a
/// SELECT without INTO, and without a semicolon.
[[nodiscard]] bool isPlainQuery(std::u16string_view text);

/// Which columns of its table a plain query reads, for drivers that do not say it.
/// For each column of the result (`names`: what the driver calls it) the table's column that it
/// is, "" for an expression. Empty unless the query is "SELECT list FROM TABLE" with WHERE and
/// ORDER BY at most, and names without quotes.
[[nodiscard]] std::vector<std::u16string> originsIn(std::u16string_view query,
                                                    const std::vector<std::u16string> &names);

} // namespace kvex::odbc
