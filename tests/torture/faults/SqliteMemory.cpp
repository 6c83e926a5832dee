#include "tests/torture/faults/SqliteMemory.h"

#include "tests/torture/faults/Countdown.h"

#include <sqlite3.h>

#include <cstdlib>

namespace kvex::torture {
namespace {

sqlite3_mem_methods real;
Countdown *failing = nullptr;

bool fails() {
    return failing && failing->strikes();
}

void *allocate(int size) {
    return fails() ? nullptr : real.xMalloc(size);
}

void *reallocate(void *memory, int size) {
    return fails() ? nullptr : real.xRealloc(memory, size);
}

} // namespace

void watchSqliteMemory() {
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &real);
    sqlite3_mem_methods watched = real;
    watched.xMalloc = allocate;
    watched.xRealloc = reallocate;
    // Without the connections' own reserves every allocation comes through here.
    if (sqlite3_config(SQLITE_CONFIG_MALLOC, &watched) != SQLITE_OK ||
        sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0) != SQLITE_OK) {
        std::abort();
    }
}

void failSqliteMemoryBy(Countdown &countdown) {
    failing = &countdown;
}

} // namespace kvex::torture
