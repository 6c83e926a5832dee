// Databases on a Galera cluster for tests: each user on a node of his own.
#pragma once

#include "tests/recordset/DatabaseFixture.h"
#include "tests/servers/GaleraCluster.h"

#include <string>

namespace kvex::test {

/// The one cluster of a test program, started when it is first asked for.
[[nodiscard]] GaleraCluster &sharedCluster();

/// The first user is on the first node, the other on the second; other programs are on the third,
/// and see what was stored before on any.
[[nodiscard]] DatabaseKind galeraCluster();

} // namespace kvex::test
