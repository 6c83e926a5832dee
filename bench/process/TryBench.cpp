// Plays a file of messages through 1,000 rules as a whole process. The peer searches the same file
// for the words and numbers of these rules.
#include "bench/process/Processes.h"
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"

#include <array>
#include <fstream>
#include <map>
#include <random>
#include <stdexcept>

namespace kvex::bench {
namespace {

/// Rules with numbers, words, or both. None of them ends the processing, so each message is played
/// through all of them.
class Files {
public:
    explicit Files(std::size_t messages) {
        for (std::size_t word = 0; word < 2000; ++word) {
            words_.push_back(made(3));
        }
        for (std::size_t number = 0; number < 3000; ++number) {
            numbers_.push_back(this->number());
        }
        writePatterns();
        writeMessages(messages);
        writeRules();
    }

    [[nodiscard]] std::string rules() const { return path("rules.db"); }
    [[nodiscard]] std::string patterns() const { return path("patterns"); }
    [[nodiscard]] std::string messages() const { return path("messages.jsonl"); }

private:
    [[nodiscard]] std::string path(const char *name) const {
        return (folder_.path() / name).string();
    }
    [[nodiscard]] std::size_t below(std::size_t count) { return random_() % count; }
    [[nodiscard]] const std::string &one(const std::vector<std::string> &choices) {
        return choices[below(choices.size())];
    }
    [[nodiscard]] std::string made(std::size_t syllables) {
        constexpr std::array<const char *, 20> all{"ba", "ko",  "li", "mer", "tan", "sto", "pri",
                                                   "ze", "hal", "vo", "ni",  "que", "ru",  "sta",
                                                   "fi", "gor", "de", "pla", "xi",  "un"};
        std::string word;
        while (syllables-- > 0) {
            word += all[below(all.size())];
        }
        return word + static_cast<char>('a' + below(26)) + static_cast<char>('a' + below(26));
    }
    [[nodiscard]] std::string number() {
        return "98" + std::to_string(10'000'000 + below(90'000'000));
    }

    void writePatterns() const {
        std::ofstream file(patterns());
        for (const auto *list : {&words_, &numbers_}) {
            for (const std::string &pattern : *list) {
                file << pattern << "\n";
            }
        }
    }
    /// About 180 characters each. One in 20 is from a sender of the rules, and one in 10 has one of
    /// their words.
    void writeMessages(std::size_t count) {
        std::ofstream file(messages());
        for (; count > 0; --count) {
            file << R"({"from":")" << (below(20) == 0 ? one(numbers_) : number())
                 << R"(","account":)" << 1 + below(9) << R"(,"text":")";
            for (std::size_t more = 6 + below(16); more > 0; --more) {
                file << made(2) << " ";
            }
            file << (below(10) == 0 ? one(words_) : "") << R"(","at":"2024-03-1)" << below(10)
                 << " 12:00:00\"}\n";
        }
    }
    void writeRules() const {
        static_cast<void>(runProgram(KVEX_RULES_PROGRAM, {"init", "--database", rules()}));
        std::string statements = "BEGIN;";
        for (std::size_t rule = 0; rule < 1000; ++rule) {
            std::string conditions = "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE>";
            const auto list = [&](const char *tag, const std::vector<std::string> &entries,
                                  std::size_t each) {
                conditions += "<" + std::string(tag) + "><CON><ANY>";
                for (std::size_t at = rule * each; at < (rule + 1) * each; ++at) {
                    conditions += (at == rule * each ? "" : ";") + entries[at];
                }
                conditions += "</" + std::string(tag) + ">";
            };
            if (rule % 3 != 0) {
                list("PEOPLE", numbers_, 3);
            }
            if (rule % 3 != 1) {
                list("WORD", words_, 2);
            }
            statements += "INSERT INTO SMS_RULES (Name, PRIORITY, QueryParam, ActionParam) "
                          "VALUES ('r', " +
                          std::to_string(rule + 1) + ", '" + conditions +
                          "', '<DIST>1</DIST><DELETE>NO</DELETE>');";
        }
        execute(openSqlite(rules()).get(), (statements + "COMMIT").c_str());
    }

    BenchFolder folder_{Place::memory};
    std::mt19937 random_{20240301};
    std::vector<std::string> words_;
    std::vector<std::string> numbers_;
};

void requireStart(const Run &run, const std::string &start) {
    if (!run.output.starts_with(start)) {
        throw std::runtime_error("unexpected output: " + run.output.substr(0, 80));
    }
}

/// The files for the benchmark's number of messages. They are made once.
const Files &filesFor(const benchmark::State &state) {
    static std::map<std::size_t, Files> files;
    return files.try_emplace(sizeOf(state), sizeOf(state)).first->second;
}

void tryMessages(benchmark::State &state) {
    const Files &files = filesFor(state);
    for (auto _ : state) {
        const Run run = runProgram(KVEX_RULES_PROGRAM, {"try", "--messages", files.messages(),
                                                        "--database", files.rules()});
        state.SetIterationTime(run.seconds);
        requireStart(run, std::to_string(sizeOf(state)) + " messages, 1000 enabled rules\n");
    }
}

void search(benchmark::State &state) {
    const Files &files = filesFor(state);
    for (auto _ : state) {
        const Run run = runProgram("grep", {"-c", "-F", "-f", files.patterns(), files.messages()},
                                   {{"LC_ALL", "C"}});
        state.SetIterationTime(run.seconds);
    }
}

void atBothSizes(benchmark::internal::Benchmark *benchmark) {
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->Arg(500)->Arg(1'000'000);
}
BENCHMARK(tryMessages)->Name("try")->Apply(atBothSizes);
BENCHMARK(search)->Name("try.peer")->Apply(atBothSizes);

} // namespace
} // namespace kvex::bench
