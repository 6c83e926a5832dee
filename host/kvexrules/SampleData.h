// Sample data of a small server, for trying out the rule editor.
#pragma once

#include "adapters/recordset/ClientConnection.h"

namespace kvex::host {

/// Fills the six tables with users, accounts of every bind mode, services, contacts, and rules that
/// show every condition and action. Names are in several scripts. The database gives the ids, and
/// references use them. Adds everything or nothing.
///
/// Returns false, and adds nothing, when one of the tables has a row. Fails as record sets do.
[[nodiscard]] bool addSampleData(recordset::ClientConnection &connection);

} // namespace kvex::host
