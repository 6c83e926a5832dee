// SQLite's memory in the hands of a test.
#pragma once

namespace kvex::torture {

class Countdown;

/// Takes over SQLite's allocations. Call it before SQLite is first used.
void watchSqliteMemory();

/// From now on each allocation of SQLite asks `countdown`, and fails when it strikes.
void failSqliteMemoryBy(Countdown &countdown);

} // namespace kvex::torture
