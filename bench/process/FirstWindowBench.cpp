// The time from the start of a process until its first window is painted.
#include "bench/process/Processes.h"
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"

namespace kvex::bench {
namespace {

/// The preloaded library ends the program after the first painting and prints the time.
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

void bareDialog(benchmark::State &state, const std::vector<std::string> &arguments) {
    requireVirtualDisplay();
    for (auto _ : state) {
        timeFirstPainting(state, besideBenchmarks("bare_dialog"), arguments);
    }
}

void tenRules(benchmark::internal::Benchmark *benchmark) {
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->Arg(10)->Iterations(5);
}
BENCHMARK(editor)->Name("first_window")->Apply(tenRules);
BENCHMARK_CAPTURE(bareDialog, empty, {})->Name("first_window.peer")->Apply(tenRules);
BENCHMARK_CAPTURE(bareDialog, widgets, {"widgets"})->Name("same_widgets")->Apply(tenRules);
BENCHMARK_CAPTURE(bareDialog, empty, {})->Name("same_widgets.peer")->Apply(tenRules);

} // namespace
} // namespace kvex::bench
