// A server that is a node of a Galera cluster.
#pragma once

#include "adapters/odbc/OdbcConnection.h"

namespace kvex::odbc {

/// A session on a node sees, and its changes meet, what was stored on any other one before. Fails
/// with noConnection on a node that the others have lost sight of: it lets users in, and refuses
/// their statements. Nothing on any other server.
void joinCluster(const OdbcConnection &connection);

} // namespace kvex::odbc
