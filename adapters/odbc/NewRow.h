// Inserts a row and reads the key that the server gave it, each server in its own way.
#pragma once

#include "adapters/odbc/PreparedStatements.h"
#include "adapters/odbc/ServerKind.h"
#include "adapters/recordset/Driver.h"

#include <vector>

namespace kvex::odbc {

/// As Driver::insert. Where the server says no key, all of it must be among `values`: else it
/// fails with badStatement, and inserts nothing.
[[nodiscard]] std::vector<Value> insertNewRow(const ServerKind &server,
                                              PreparedStatements &statements,
                                              std::u16string_view table,
                                              const std::vector<recordset::Assignment> &values,
                                              const std::vector<std::u16string_view> &keyColumns);

} // namespace kvex::odbc
