// A small server's data, to try the rule editor on.
#pragma once

namespace kvex::host {

/// SQL statements that fill the six empty tables: users and accounts of every bind mode, names in
/// several scripts, services, contacts, and rules that show every condition and action.
[[nodiscard]] const char *sampleData();

} // namespace kvex::host
