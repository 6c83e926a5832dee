// Analyses the text of a query, without asking the server.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvex::odbc {

/// True for a single statement that returns rows and changes nothing on any server: a SELECT
/// without INTO and without a semicolon.
[[nodiscard]] bool isPlainQuery(std::u16string_view text);

/// Finds the table's column behind each column of a result, for drivers that do not report it.
/// `names` are the result's columns; an expression gives "". Empty for every query but "SELECT list
/// FROM TABLE" with an optional WHERE and ORDER BY, and for names in quotes.
[[nodiscard]] std::vector<std::u16string> originsIn(std::u16string_view query,
                                                    const std::vector<std::u16string> &names);

} // namespace kvex::odbc
