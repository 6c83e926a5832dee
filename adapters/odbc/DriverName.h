// The driver that a connection string names, itself or through its data source.
#pragma once

#include "adapters/recordset/ConnectionString.h"

#include <string>
#include <string_view>

namespace kvex::odbc {

enum class DriverFamily { postgres, mariaDb, mySql, sqlite, other };

[[nodiscard]] DriverFamily driverFamily(const recordset::ConnectionString &text);

/// What the string says under the key, or else its data source; "" when neither does.
[[nodiscard]] std::u16string setting(const recordset::ConnectionString &text,
                                     std::u16string_view key);

} // namespace kvex::odbc
