// Turns a connection string into the text that the ODBC driver manager takes.
#pragma once

#include "adapters/recordset/ConnectionString.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex::odbc {

/// True for a string with "Driver" or "DSN", and for "Provider=MSDASQL".
[[nodiscard]] bool namesOdbc(const recordset::ConnectionString &text);

/// The seconds of "Connect Timeout" or "Connection Timeout"; 15 when the string has neither.
/// Fails with badArgument unless the value is a whole number from 1 to 3600.
[[nodiscard]] int timeoutOf(const recordset::ConnectionString &text);

/// How many seconds one server may take to let the user in: the timeout divided by the number of
/// servers, but at least 1.
[[nodiscard]] int loginTimeoutOf(const recordset::ConnectionString &text);

/// One text for each server to try, in the order of "Server=HOST,HOST:PORT,[IPV6]:PORT"; one text
/// for a string without such a list. Each text has the string's keys in their order, without those
/// that only the provider reads. The options that the driver needs (ServerKind.h) follow.
[[nodiscard]] std::vector<std::u16string> nativeTexts(const recordset::ConnectionString &text);

} // namespace kvex::odbc
