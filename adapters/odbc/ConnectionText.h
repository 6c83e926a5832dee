// What a connection string says to ODBC: the text for the driver manager, and the timeout.
#pragma once

#include "adapters/recordset/ConnectionString.h"

#include <string>
#include <string_view>

namespace kvex::odbc {

/// True for a string with "Driver" or "DSN", and for "Provider=MSDASQL".
[[nodiscard]] bool namesOdbc(const recordset::ConnectionString &text);

/// The seconds of "Connect Timeout" (or "Connection Timeout"): 15 without it. Fails with
/// badArgument unless it is a whole number from 1 to 3600.
[[nodiscard]] int timeoutOf(const recordset::ConnectionString &text);

/// Everything but what is for the provider, in the order given, values in braces where they need
/// them; then what the driver needs (DriverOptions.h) and the string does not say.
[[nodiscard]] std::u16string nativeText(const recordset::ConnectionString &text);

} // namespace kvex::odbc
