// How much memory and disk the product takes: the memory of a process that shows the rules, and the
// size of the stripped component with its toolkit.
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

void componentSize(benchmark::State &state) {
    const BenchFolder folder(Place::memory);
    const std::filesystem::path stripped = folder.path() / "stripped.so";
    for (auto _ : state) {
        double seconds = 0;
        std::uintmax_t bytes = 0;
        for (const char *library : {KVEX_COMPONENT, KVEX_TOOLKIT_LIBRARY}) {
            seconds += runProgram("strip", {"-o", stripped.string(), library}).seconds;
            bytes += std::filesystem::file_size(stripped);
        }
        state.SetIterationTime(seconds);
        report(state, static_cast<double>(bytes));
    }
}
BENCHMARK(componentSize)->Name("component_size")->Arg(1)->UseManualTime()->Iterations(1);

} // namespace
} // namespace kvex::bench
