// The resident memory of a process that shows the rules.
#include "bench/process/Processes.h"
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"

namespace kvex::bench {
namespace {

void reportMemory(benchmark::State &state, const char *kind) {
    requireVirtualDisplay();
    const std::string file = readOnlyDatabase(sizeOf(state)).file();
    for (auto _ : state) {
        const Run run = runProgram(besideBenchmarks("window_memory"), {kind, file});
        state.SetIterationTime(run.seconds);
        report(state, std::stod(run.output));
    }
}
BENCHMARK_CAPTURE(reportMemory, component, "component")
    ->Name("rules_window_memory")
    ->Apply(atEverySize)
    ->Iterations(1);
BENCHMARK_CAPTURE(reportMemory, table, "table")
    ->Name("rules_window_memory.peer")
    ->Apply(atEverySize)
    ->Iterations(1);

} // namespace
} // namespace kvex::bench
