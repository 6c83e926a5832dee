// From a process's start until its first window is painted.
#include "bench/process/Processes.h"
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"

namespace kvex::bench {
namespace {

/// The program ends as soon as its first window is painted, and prints when that was.
void timeFirstPainting(benchmark::State &state, const std::filesystem::path &program,
                       const std::vector<std::string> &arguments) {
    const double start = now();
    const Run run = runProgram(program, arguments,
                               {{"LD_PRELOAD", besideBenchmarks("libfirst_painting.so").string()}});
    state.SetIterationTime(std::stod(run.output) - start);
}

void editor(benchmark::State &state) {
    requireVirtualDisplay();
    const std::string file = readOnlyDatabase(sizeOf(state)).file();
    for (auto _ : state) {
        timeFirstPainting(state, KVEX_RULES_PROGRAM, {"edit", "--database", file});
    }
}

void bareProgram(benchmark::State &state, const char *name) {
    requireVirtualDisplay();
    for (auto _ : state) {
        timeFirstPainting(state, besideBenchmarks(name), {});
    }
}

void tenRules(benchmark::internal::Benchmark *benchmark) {
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->Arg(10)->Iterations(5);
}
BENCHMARK(editor)->Name("first_window")->Apply(tenRules);
BENCHMARK_CAPTURE(bareProgram, emptyDialog, "empty_dialog")
    ->Name("first_window.peer")
    ->Apply(tenRules);
BENCHMARK_CAPTURE(bareProgram, sameWidgets, "same_widgets")->Name("same_widgets")->Apply(tenRules);
BENCHMARK_CAPTURE(bareProgram, emptyDialog, "empty_dialog")
    ->Name("same_widgets.peer")
    ->Apply(tenRules);

} // namespace
} // namespace kvex::bench
