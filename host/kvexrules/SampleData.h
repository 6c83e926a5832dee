// A small server's data, to try the rule editor on.
#pragma once

#include "adapters/recordset/ClientConnection.h"

namespace kvex::host {

/// Fills the six tables: users and accounts of every bind mode, names in several scripts,
/// services, contacts, and rules that show every condition and action. The database numbers the
/// rows; what refers to one names the number that it got. All is added or nothing.
///
/// False, with nothing added, when one of the tables has a row. Fails as record sets do.
[[nodiscard]] bool addSampleData(recordset::ClientConnection &connection);

} // namespace kvex::host
