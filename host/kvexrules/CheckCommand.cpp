#include "host/check/CheckReport.h"
#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Components.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleList.h"
#include "host/kvexrules/Settings.h"
#include "host/suite/DriverTransaction.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <numeric>

namespace kvex::host {
namespace {

constexpr std::array<std::string_view, 2> formats{"text", "json"};

constexpr Option formatOption{
    .name = "--format",
    .value = "",
    .help = "how to print the findings (default: text)",
    .choices = formats,
};
constexpr Option severityOption{
    .name = "--severity",
    .value = "",
    .help = "the least severe findings to report (default: note)",
    .choices = severityNames,
};

Severity leastSeverity(const Request &request) {
    const auto found = std::ranges::find(severityNames, request.value(severityOption));
    return found == severityNames.end() ? Severity::note
                                        : static_cast<Severity>(found - severityNames.begin());
}

/// The local time as a rule stores it.
std::u16string now() {
    const std::time_t time = std::time(nullptr);
    std::tm local{};
    localtime_r(&time, &local);
    std::array<char, 32> text{};
    const std::size_t size = std::strftime(text.data(), text.size(), "%Y%m%d %H:%M:%S", &local);
    return fromUtf8({text.data(), size});
}

StoredRows rowsOf(const Settings &settings) {
    try {
        const auto connection = openConnection(settings);
        const std::shared_ptr<recordset::Driver> driver = connection->driver().lock();
        const Snapshot snapshot(*driver);
        return readStoredRows(*connection);
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

/// The places of the rules that the user named, or of all rules. Sets `status` when one is missing.
std::vector<std::size_t> placesOf(const Request &request, const Rulebook &book, int &status) {
    const std::vector<CheckedRule> &rules = book.rules();
    std::vector<std::size_t> places;
    for (const std::string &word : request.words) {
        const std::string id = ruleId(word);
        const auto rule = std::ranges::find(
            rules, fromUtf8(id), [](const CheckedRule &checked) { return checked.row.id; });
        if (rule != rules.end()) {
            places.push_back(rule->place);
        } else {
            complain("There is no rule " + id + ". To list the rules: kvexrules list");
            status = exit_status::refused;
        }
    }
    if (request.words.empty()) {
        places.resize(rules.size());
        std::iota(places.begin(), places.end(), std::size_t{0});
    }
    std::ranges::sort(places);
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

int check(const Request &request) {
    const Settings settings = settingsFor(request);
    StoredRows rows = rowsOf(settings);
    const RuleStrings strings = createRuleStrings();
    const Rulebook book(std::move(rows), strings, now());
    int status = exit_status::done;
    const std::vector<std::size_t> places = placesOf(request, book, status);
    const CheckReport report = checkRules(book, places, leastSeverity(request));
    print(request.value(formatOption) == "json" ? reportAsJson(report, printsToTerminal())
                                                : reportAsText(report));
    return report.findings.empty() ? status : exit_status::refused;
}

constexpr std::array words{Word{.name = "ID", .isOptional = true, .repeats = true}};
constexpr std::array options{formatOption, severityOption, databaseOption};
constexpr std::array statuses{
    ExitStatus{exit_status::done, "nothing was found"},
    ExitStatus{exit_status::refused, "something was found, or a rule that was named is not there"},
    ExitStatus{exit_status::unusable, "the command line was wrong, or the rules could not be read"},
};

} // namespace

constexpr Command checkCommand{
    .name = "check",
    .words = words,
    .options = options,
    .summary = "find what is wrong with rules",
    .description =
        R"(Reports what is wrong with the rules: parts that cannot be read, users and accounts that
are not there, and rules that never run. Each finding has a severity, a reason, a code
in brackets, and a line that says what to do. Name ids to check only those rules.

The command reports only what is certain, and changes nothing. At the end it prints how
many short messages each reply and alert takes. docs/checks.md lists all findings.
)",
    .example = R"($ kvexrules check 1 || echo "exit status $?"
warning: rule 1 "Not stopped in March": ... [past-dates]
    Remove the rule, or choose other dates.
Texts:
  rule 1 "Not stopped in March": reply: 1 short message in ...
  rule 1 "Not stopped in March": alert: 1 short message in ...
1 rule checked: 0 errors, 1 warning, 0 notes
exit status 1
)",
    .run = check,
    .statuses = statuses,
};

} // namespace kvex::host
