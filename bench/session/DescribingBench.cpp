// Loads and describes every rule, without a window.
#include "bench/support/BenchSession.h"
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"
#include "platform/Text.h"
#include "rules/ParameterStrings.h"

namespace kvex::bench {
namespace {

std::vector<std::u16string> ruleIds(std::size_t count) {
    std::vector<std::u16string> ids;
    for (std::size_t id = 1; id <= count; ++id) {
        ids.push_back(toText(static_cast<std::int64_t>(id)));
    }
    return ids;
}

std::vector<TextRun> described(const std::u16string &id) {
    auto description = describeRule(id);
    if (!description) {
        throw std::runtime_error("a rule is missing");
    }
    return *std::move(description);
}

void describeAll(const std::vector<std::u16string> &ids) {
    for (const std::u16string &id : ids) {
        const std::vector<TextRun> runs = described(id);
        benchmark::DoNotOptimize(runs.data());
    }
}

std::u16string textOf(const std::vector<TextRun> &runs) {
    std::u16string text;
    for (const TextRun &run : runs) {
        text += run.text;
    }
    return text;
}

void describeAgain(benchmark::State &state) {
    BenchSession session(readOnlyDatabase(sizeOf(state)).connectionString());
    session.open();
    const std::vector<std::u16string> ids = ruleIds(sizeOf(state));
    describeAll(ids);
    for (auto _ : state) {
        Stopwatch watch(state);
        describeAll(ids);
        watch.stop();
    }
}
BENCHMARK(describeAgain)->Name("describe_all")->Apply(atEverySize);

/// The first time costs more: a session's texts become UTF-16 when they are first read.
void describeFirst(benchmark::State &state) {
    const std::vector<std::u16string> ids = ruleIds(sizeOf(state));
    for (auto _ : state) {
        BenchSession session(readOnlyDatabase(sizeOf(state)).connectionString());
        session.open();
        Stopwatch watch(state);
        describeAll(ids);
        watch.stop();
    }
}
BENCHMARK(describeFirst)->Name("describe_all_first")->Apply(atEverySize);

struct Texts {
    std::u16string queryParam;
    std::u16string actionParam;
    std::u16string shown;
};

std::vector<Texts> textsOf(std::size_t rules) {
    BenchSession opened(readOnlyDatabase(rules).connectionString());
    opened.open();
    std::vector<Texts> texts;
    for (const std::u16string &id : ruleIds(rules)) {
        const std::u16string shown = textOf(described(id));
        const Recordset &rsRules = *session().rsRules;
        texts.push_back(
            {rsRules.field(u"QueryParam").text(), rsRules.field(u"ActionParam").text(), shown});
    }
    return texts;
}

void findEachTag(const Texts &rule) {
    using namespace parameter_tag;
    for (const std::u16string_view tag : {allMessages, ignoreIfService.opening, people.opening,
                                          account.opening, word.opening, dateTime.opening}) {
        benchmark::DoNotOptimize(rule.queryParam.find(tag));
    }
    for (const std::u16string_view tag : {distribute.opening, reply.opening, alert.opening,
                                          deleteIt.opening, ignoreFurtherRules.opening}) {
        benchmark::DoNotOptimize(rule.actionParam.find(tag));
    }
}

/// The least that any program must do: find each tag once, and copy the shown text once.
void findAndCopy(benchmark::State &state) {
    const std::vector<Texts> rules = textsOf(sizeOf(state));
    for (auto _ : state) {
        Stopwatch watch(state);
        for (const Texts &rule : rules) {
            findEachTag(rule);
            const std::u16string copy = rule.shown;
            benchmark::DoNotOptimize(copy.data());
        }
        watch.stop();
    }
}
BENCHMARK(findAndCopy)->Name("describe_all.peer")->Apply(atEverySize);
BENCHMARK(findAndCopy)->Name("describe_all_first.peer")->Apply(atEverySize);

} // namespace
} // namespace kvex::bench
