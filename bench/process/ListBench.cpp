// Runs kvexrules list as a whole process.
#include "bench/process/Processes.h"
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"

#include <algorithm>

namespace kvex::bench {
namespace {

constexpr const char *sameColumns =
    "SELECT row_number() OVER (ORDER BY PRIORITY, ID), CASE ACTIVE WHEN 1 THEN 'on' ELSE 'off' "
    "END, ID, CASE WHEN ActionParam LIKE '%<IGNOREFURTHERRULES>YES<%' THEN 'stops' ELSE '-' END, "
    "Name FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY, ID";

void requireLines(const Run &run, std::size_t count) {
    if (static_cast<std::size_t>(std::ranges::count(run.output, '\n')) != count) {
        throw std::runtime_error("the list has the wrong number of lines");
    }
}

void list(benchmark::State &state) {
    const std::string file = readOnlyDatabase(sizeOf(state)).file();
    for (auto _ : state) {
        const Run run = runProgram(KVEX_RULES_PROGRAM, {"list", "--database", file});
        state.SetIterationTime(run.seconds);
        requireLines(run, sizeOf(state));
    }
}
BENCHMARK(list)->Name("list")->Apply(atEverySize);

void select(benchmark::State &state) {
    const std::string file = readOnlyDatabase(sizeOf(state)).file();
    for (auto _ : state) {
        const Run run = runProgram("sqlite3", {file, sameColumns});
        state.SetIterationTime(run.seconds);
        requireLines(run, sizeOf(state));
    }
}
BENCHMARK(select)->Name("list.peer")->Apply(atEverySize);

} // namespace
} // namespace kvex::bench
