// The editor in a terminal as a whole process: its start, and its memory.
#include "bench/process/Processes.h"
#include "bench/process/TerminalRun.h"
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"

namespace kvex::bench {
namespace {

/// With more rows, dialog's arguments exceed what the system passes on.
void upToTenThousand(benchmark::internal::Benchmark *benchmark) {
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->Arg(100)->Arg(1'000)->Arg(10'000);
}

FirstScreen editorScreen(const benchmark::State &state) {
    const std::string file = readOnlyDatabase(sizeOf(state)).file();
    return firstScreen(KVEX_RULES_PROGRAM, {"edit", "--toolkit", "terminal", "--database", file},
                       "F1: help");
}

void editor(benchmark::State &state) {
    for (auto _ : state) {
        state.SetIterationTime(editorScreen(state).seconds);
    }
}
BENCHMARK(editor)->Name("terminal_start")->Apply(upToTenThousand);

void dialogMenu(benchmark::State &state) {
    std::vector<std::string> arguments{"--menu", "Rules", "24", "80", "15"};
    for (std::size_t row = 1; row <= sizeOf(state); ++row) {
        arguments.push_back(std::to_string(row));
        arguments.push_back("Rule " + std::to_string(row));
    }
    for (auto _ : state) {
        // Its last word is Cancel, with another colour for the first letter.
        state.SetIterationTime(firstScreen("dialog", arguments, "ancel").seconds);
    }
}
BENCHMARK(dialogMenu)->Name("terminal_start.peer")->Apply(upToTenThousand);

void memory(benchmark::State &state) {
    for (auto _ : state) {
        const FirstScreen screen = editorScreen(state);
        state.SetIterationTime(screen.seconds);
        report(state, static_cast<double>(screen.bytes));
    }
}
BENCHMARK(memory)->Name("terminal_memory")->Apply(upToTenThousand)->Iterations(1);

void qtMemory(benchmark::State &state) {
    requireVirtualDisplay();
    const std::string file = readOnlyDatabase(sizeOf(state)).file();
    for (auto _ : state) {
        const Run run =
            runProgram(KVEX_RULES_PROGRAM, {"edit", "--toolkit", "qt", "--database", file},
                       {{"LD_PRELOAD", besideBenchmarks("libfirst_painting.so").string()}});
        state.SetIterationTime(run.seconds);
        // The preloaded library prints the time and the memory.
        report(state, std::stod(run.output.substr(run.output.find(' '))));
    }
}
BENCHMARK(qtMemory)->Name("terminal_memory.peer")->Apply(upToTenThousand)->Iterations(1);

} // namespace
} // namespace kvex::bench
