// The tables of the server's database: the one list of their columns.
#pragma once

#include "adapters/recordset/ClientConnection.h"

namespace kvex::host {

/// Creates those of the server's six tables that the open database lacks. Returns true when it
/// created one.
///
/// Fails with objectClosed when the connection is not open. Fails with itemNotFound when a table
/// has one of the six names but lacks a column. Fails with the provider's number when the database
/// refuses. After a failure the database is as it was. MariaDB is the exception, because it cannot
/// undo the creation of a table: there the new tables stay, and a second call creates the rest.
bool createSchema(recordset::ClientConnection &connection);

} // namespace kvex::host
