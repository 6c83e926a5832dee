// Presses OK in the rule editor on a new rule with parameters of 5,000 characters.
#include "bench/support/BenchSession.h"
#include "bench/support/RuleDatabase.h"
#include "bench/support/RuleSet.h"
#include "bench/support/Timing.h"
#include "platform/Text.h"
#include "rules/ParameterStrings.h"
#include "tests/windows/EditorRows.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kvex::bench {
namespace {

/// Words that make the longest QueryParam.
std::u16string longestWords() {
    RuleState rule;
    rule.strWords = u"x";
    return std::u16string(longestQueryParam - buildQueryParam(rule).size() + 1, u'x');
}

void composeRule(test::User &editor) {
    static const std::u16string words = longestWords();
    ruleState().strWords = words;
    editor.tickRow(test::conditions, test::row::containsWords);
    editor.tickRow(test::actions, test::row::noMoreRules);
}

template <Place place> void saveByOk(benchmark::State &state) {
    const RuleDatabase database(sizeOf(state), place);
    BenchSession session(database.connectionString());
    session.playRules([&](test::User &rules) {
        for (auto _ : state) {
            session.headless.whenShown(u"frmRuleEdit", [&](test::User &editor) {
                composeRule(editor);
                Stopwatch watch(state);
                editor.click(u"cmdOK");
                watch.stop();
            });
            rules.click(u"cmdNew");
        }
        rules.click(u"cmdCancel");
    });
}

/// Reads all rules, as the rules window does to list them.
std::size_t listed(const std::vector<RuleRow> &rules) {
    std::size_t blanks = 0;
    for (const RuleRow &rule : rules) {
        blanks += static_cast<std::size_t>(std::ranges::count(rule.name, u' '));
    }
    return blanks;
}

/// Sends the same statements through SQLite's API. Between two saves the rules window lists all
/// rules again, so this loop reads them, too. Otherwise everything would still be in the
/// processor's caches.
template <Place place> void saveByApi(benchmark::State &state) {
    const RuleDatabase database(sizeOf(state), place);
    const std::vector<RuleRow> rules = ruleRows(sizeOf(state));
    const SqliteHandle handle = openSqlite(database.file());
    RuleState rule;
    rule.strWords = longestWords();
    rule.strIgnoreFurtherRules = u"YES";
    const std::string queryParam = toUtf8(buildQueryParam(rule));
    const std::string actionParam = toUtf8(buildActionParam(rule));
    for (auto _ : state) {
        benchmark::DoNotOptimize(listed(rules));
        Stopwatch watch(state);
        const SqliteQuery insertion =
            prepared(handle.get(), "INSERT INTO SMS_RULES (Name, QueryParam, ActionParam) "
                                   "VALUES (?, ?, ?) RETURNING ID");
        bindText(insertion.get(), 1, "New Rule");
        bindText(insertion.get(), 2, queryParam);
        bindText(insertion.get(), 3, actionParam);
        sqlite3_step(insertion.get());
        const std::int64_t id = sqlite3_column_int64(insertion.get(), 0);
        run(insertion.get());
        const SqliteQuery reading = prepared(handle.get(), "SELECT * FROM SMS_RULES WHERE ID = ?");
        bindNumber(reading.get(), 1, id);
        sqlite3_step(reading.get());
        for (int column = 0; column < sqlite3_column_count(reading.get()); ++column) {
            benchmark::DoNotOptimize(sqlite3_column_text(reading.get(), column));
        }
        watch.stop();
    }
}

/// A fixed number of times, because each save waits for the disk.
void tenTimes(benchmark::internal::Benchmark *benchmark) {
    atEverySize(benchmark);
    benchmark->Iterations(10);
}
BENCHMARK(saveByOk<Place::disk>)->Name("save")->Apply(tenTimes);
BENCHMARK(saveByApi<Place::disk>)->Name("save.peer")->Apply(tenTimes);
BENCHMARK(saveByOk<Place::memory>)->Name("save_in_memory")->Apply(tenTimes);
BENCHMARK(saveByApi<Place::memory>)->Name("save_in_memory.peer")->Apply(tenTimes);

} // namespace
} // namespace kvex::bench
