// What an ODBC driver must be told for texts to come back as written and for calls to end in time.
#pragma once

#include "adapters/recordset/ConnectionString.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex::odbc {

struct DriverOption {
    std::u16string_view key;
    std::u16string value;
};

/// In seconds: for a server to let the user in, and to answer a call.
struct Timeouts {
    int login;
    int call;
};

/// Those of the driver that the string, or its data source, names. What the string says itself is
/// not among them, or is joined with what the driver needs.
[[nodiscard]] std::vector<DriverOption> driverOptions(const recordset::ConnectionString &text,
                                                      const Timeouts &timeouts);

} // namespace kvex::odbc
