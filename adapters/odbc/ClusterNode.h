// A server that is a node of a Galera cluster.
#pragma once

#include "adapters/odbc/OdbcConnection.h"

namespace kvex::odbc {

/// Has a session on a node see what was stored on any other one before each of its statements.
/// Fails with noConnection on a node that the cluster has left behind: it lets users in, and
/// refuses their statements. Nothing on any other server.
void joinCluster(const OdbcConnection &connection);

} // namespace kvex::odbc
