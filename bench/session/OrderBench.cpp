// Presses OK in the rules window when the stored priority of every rule must change.
#include "bench/support/BenchSession.h"
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"

namespace kvex::bench {
namespace {

/// The window shows the same order as before, but OK renumbers every rule.
void shiftPriorities(const RuleDatabase &database) {
    database.execute("UPDATE SMS_RULES SET PRIORITY = ID + 1000000; "
                     "PRAGMA wal_checkpoint(TRUNCATE)");
}

template <Place place> void renumberByOk(benchmark::State &state) {
    const RuleDatabase database(sizeOf(state), place);
    for (auto _ : state) {
        shiftPriorities(database);
        BenchSession session(database.connectionString());
        session.playRules([&state](test::User &user) {
            Stopwatch watch(state);
            user.click(u"cmdOK");
            watch.stop();
        });
    }
}

template <Place place> void renumberByApi(benchmark::State &state) {
    const RuleDatabase database(sizeOf(state), place);
    for (auto _ : state) {
        shiftPriorities(database);
        const SqliteHandle handle = openSqlite(database.file());
        const auto last = static_cast<std::int64_t>(sizeOf(state));
        Stopwatch watch(state);
        const SqliteQuery update =
            prepared(handle.get(), "UPDATE SMS_RULES SET PRIORITY = ? WHERE ID = ?");
        execute(handle.get(), "BEGIN IMMEDIATE");
        for (std::int64_t id = 1; id <= last; ++id) {
            bindNumber(update.get(), 1, id);
            bindNumber(update.get(), 2, id);
            run(update.get());
        }
        execute(handle.get(), "COMMIT");
        watch.stop();
    }
}

BENCHMARK(renumberByOk<Place::memory>)->Name("renumber")->Apply(atEverySize)->Iterations(1);
BENCHMARK(renumberByApi<Place::memory>)->Name("renumber.peer")->Apply(atEverySize)->Iterations(1);

void atSmallSizes(benchmark::internal::Benchmark *benchmark) {
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->Arg(100)->Arg(1'000)->Iterations(1);
}
void atLargeSizes(benchmark::internal::Benchmark *benchmark) {
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->Arg(10'000)->Arg(100'000);
    benchmark->Iterations(1)->Repetitions(2);
}
BENCHMARK(renumberByOk<Place::disk>)->Name("renumber_on_disk")->Apply(atSmallSizes);
BENCHMARK(renumberByApi<Place::disk>)->Name("renumber_on_disk.peer")->Apply(atSmallSizes);
BENCHMARK(renumberByOk<Place::disk>)->Name("renumber_on_disk")->Apply(atLargeSizes);
BENCHMARK(renumberByApi<Place::disk>)->Name("renumber_on_disk.peer")->Apply(atLargeSizes);

} // namespace
} // namespace kvex::bench
