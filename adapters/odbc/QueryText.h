// Which columns of its table a plain query reads, for drivers that do not say it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvex::odbc {

/// For each column of the result (`names`: what the driver calls it) the table's column that it
/// is, "" for an expression. Empty unless the query is "SELECT list FROM TABLE" with WHERE and
/// ORDER BY at most, and names without quotes.
[[nodiscard]] std::vector<std::u16string> originsIn(std::u16string_view query,
                                                    const std::vector<std::u16string> &names);

} // namespace kvex::odbc
