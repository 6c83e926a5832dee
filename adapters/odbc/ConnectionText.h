// What a connection string says to ODBC: the text for the driver manager, and the timeout.
#pragma once

#include "adapters/recordset/ConnectionString.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex::odbc {

/// True for a string with "Driver" or "DSN", and for "Provider=MSDASQL".
[[nodiscard]] bool namesOdbc(const recordset::ConnectionString &text);

/// The seconds of "Connect Timeout" (or "Connection Timeout"): 15 without it. Fails with
/// badArgument unless it is a whole number from 1 to 3600.
[[nodiscard]] int timeoutOf(const recordset::ConnectionString &text);

/// The share that each of the servers has which the string names; 1 at least.
[[nodiscard]] int loginTimeoutOf(const recordset::ConnectionString &text);

/// Everything but what is for the provider, in the order given, values in braces where they need
/// them; then what the driver needs (DriverOptions.h) and the string does not say. One text for
/// each server to try (ServerList.h).
[[nodiscard]] std::vector<std::u16string> nativeTexts(const recordset::ConnectionString &text);

} // namespace kvex::odbc
