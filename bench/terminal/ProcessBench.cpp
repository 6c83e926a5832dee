// The rule editor as a process at a terminal: the time to its first screen, and its memory.
#include "bench/process/Processes.h"
#include "bench/support/RuleDatabase.h"
#include "bench/support/RuleSet.h"
#include "bench/support/Timing.h"
#include "bench/terminal/TerminalProcess.h"
#include "platform/Text.h"

#include <fstream>

namespace kvex::bench {
namespace {

constexpr std::string_view editorTitle = "New Rule";

TerminalProcess startedEditor(const benchmark::State &state) {
    return TerminalProcess({KVEX_RULES_PROGRAM, "edit", "--toolkit", "terminal", "--database",
                            readOnlyDatabase(sizeOf(state)).file()});
}

void editor(benchmark::State &state) {
    for (auto _ : state) {
        state.SetIterationTime(startedEditor(state).secondsToScreen(editorTitle));
    }
}
BENCHMARK(editor)->Name("terminal_start")->Apply(atEverySize)->Iterations(1);

/// The names of the rules in the format of dialog's files.
void writeMenu(const std::filesystem::path &path, std::size_t rules) {
    std::ofstream file(path);
    for (const RuleRow &rule : ruleRows(rules)) {
        file << rule.priority << " \"" << toUtf8(rule.name) << "\"\n";
    }
}

void menu(benchmark::State &state) {
    const BenchFolder folder(Place::memory);
    const std::filesystem::path rows = folder.path() / "rows";
    writeMenu(rows, sizeOf(state));
    for (auto _ : state) {
        TerminalProcess dialog({"dialog", "--menu", "Rules", "0", "0", "0", "--file", rows});
        state.SetIterationTime(dialog.secondsToScreen("Cancel"));
    }
}
BENCHMARK(menu)->Name("terminal_start.peer")->Apply(atEverySize)->Iterations(1);

void memory(benchmark::State &state) {
    for (auto _ : state) {
        TerminalProcess process = startedEditor(state);
        state.SetIterationTime(process.secondsToScreen(editorTitle));
        report(state, static_cast<double>(process.residentBytes()));
    }
}
BENCHMARK(memory)->Name("terminal_memory")->Apply(atEverySize)->Iterations(1);

/// The preloaded library ends the program after the first painting. It prints the time and the
/// memory.
void memoryOnQt(benchmark::State &state) {
    requireVirtualDisplay();
    const std::string file = readOnlyDatabase(sizeOf(state)).file();
    const std::string library = besideBenchmarks("libfirst_painting.so").string();
    for (auto _ : state) {
        const Run run =
            runProgram(KVEX_RULES_PROGRAM, {"edit", "--toolkit", "qt", "--database", file},
                       {{"LD_PRELOAD", library}});
        state.SetIterationTime(run.seconds);
        report(state, std::stod(run.output.substr(run.output.find(' '))));
    }
}
BENCHMARK(memoryOnQt)->Name("terminal_memory.peer")->Apply(atEverySize)->Iterations(1);

} // namespace
} // namespace kvex::bench
