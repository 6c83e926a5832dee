// The tables of the server's database.
#pragma once

#include "adapters/recordset/ClientConnection.h"

namespace kvex::recordset {

/// Makes those of the server's six tables that the open database lacks. True when one was made.
///
/// Fails with objectClosed when the connection is not open, with itemNotFound when a table of one
/// of these names lacks a column that is needed, and with the provider's number when the database
/// refuses. Nothing was made then: except where a database cannot undo the making of a table, as
/// MariaDB cannot. There the tables that were made stay, and a second call makes the others.
bool createSchema(const ClientConnection &connection);

} // namespace kvex::recordset
