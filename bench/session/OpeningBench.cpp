// Opens the session: the connection and the five record sets.
#include "bench/support/BenchSession.h"
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"

#include <malloc.h>

namespace kvex::bench {
namespace {

void open(benchmark::State &state) {
    const RuleDatabase &database = readOnlyDatabase(sizeOf(state));
    for (auto _ : state) {
        BenchSession session(database.connectionString());
        Stopwatch watch(state);
        session.open();
        watch.stop();
    }
}
BENCHMARK(open)->Name("session")->Apply(atEverySize);

struct Read {
    std::size_t fields = 0;
    std::size_t textBytes = 0;
};

void readColumn(sqlite3_stmt *row, int column, Read &read) {
    ++read.fields;
    switch (sqlite3_column_type(row, column)) {
    case SQLITE_INTEGER:
        benchmark::DoNotOptimize(sqlite3_column_int64(row, column));
        break;
    case SQLITE_TEXT:
        benchmark::DoNotOptimize(sqlite3_column_text(row, column));
        read.textBytes += static_cast<std::size_t>(sqlite3_column_bytes(row, column));
        break;
    default:
        break;
    }
}

Read readAll(const std::string &file) {
    Read read;
    const SqliteHandle database = openSqlite(file);
    for (const std::string_view text : sessionQueries) {
        const SqliteQuery query = prepared(database.get(), text);
        while (sqlite3_step(query.get()) == SQLITE_ROW) {
            for (int column = 0; column < sqlite3_column_count(query.get()); ++column) {
                readColumn(query.get(), column, read);
            }
        }
    }
    return read;
}

void openByApi(benchmark::State &state) {
    const RuleDatabase &database = readOnlyDatabase(sizeOf(state));
    for (auto _ : state) {
        Stopwatch watch(state);
        benchmark::DoNotOptimize(readAll(database.file()));
        watch.stop();
    }
}
BENCHMARK(openByApi)->Name("session.peer")->Apply(atEverySize);

std::size_t bytesInUse() {
    const struct mallinfo2 now = mallinfo2();
    return now.uordblks + now.hblkhd;
}

/// The memory that the open session holds, including SQLite's own.
void memory(benchmark::State &state) {
    const RuleDatabase &database = readOnlyDatabase(sizeOf(state));
    for (auto _ : state) {
        BenchSession session(database.connectionString());
        const std::size_t before = bytesInUse();
        Stopwatch watch(state);
        session.open();
        watch.stop();
        report(state, static_cast<double>(bytesInUse() - before));
    }
}
BENCHMARK(memory)->Name("session_memory")->Apply(atEverySize)->Iterations(1);

void memoryLimit(benchmark::State &state) {
    const RuleDatabase &database = readOnlyDatabase(sizeOf(state));
    for (auto _ : state) {
        Stopwatch watch(state);
        const Read read = readAll(database.file());
        watch.stop();
        report(state,
               1.5 * static_cast<double>(read.textBytes) + 64 * static_cast<double>(read.fields));
    }
}
BENCHMARK(memoryLimit)->Name("session_memory.peer")->Apply(atEverySize)->Iterations(1);

} // namespace
} // namespace kvex::bench
