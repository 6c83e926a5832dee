// Shows the rules window, until its first painting.
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"
#include "bench/windows/Painting.h"
#include "bench/windows/RulesWindow.h"
#include "bench/windows/TableWindow.h"

namespace kvex::bench {
namespace {

void listRules(benchmark::State &state) {
    requireDisplay();
    QtSession session(readOnlyDatabase(sizeOf(state)).connectionString());
    session.open();
    for (auto _ : state) {
        Stopwatch watch(state);
        session.showRulesWindow([&watch] {
            watch.stop();
            closeWindow();
        });
    }
}
BENCHMARK(listRules)->Name("rules_window")->Apply(atEverySize);

void openAndListRules(benchmark::State &state) {
    requireDisplay();
    const std::u16string connection = readOnlyDatabase(sizeOf(state)).connectionString();
    for (auto _ : state) {
        QtSession session(connection);
        Stopwatch watch(state);
        session.openAndShowRulesWindow([&watch] {
            watch.stop();
            closeWindow();
        });
    }
}
BENCHMARK(openAndListRules)->Name("session_and_rules_window")->Apply(atEverySize);

void showTable(benchmark::State &state) {
    requireDisplay();
    const TableDatabase database(readOnlyDatabase(sizeOf(state)).file());
    for (auto _ : state) {
        Stopwatch watch(state);
        database.show([&watch] {
            watch.stop();
            closeWindow();
        });
    }
}
BENCHMARK(showTable)->Name("rules_window.peer")->Apply(atEverySize);
BENCHMARK(showTable)->Name("session_and_rules_window.peer")->Apply(atEverySize);

} // namespace
} // namespace kvex::bench
