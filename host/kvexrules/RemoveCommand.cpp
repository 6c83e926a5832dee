#include "host/kvexrules/CommandNames.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleChange.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <array>
#include <vector>

namespace kvex::host {
namespace {

constexpr Option yesOption{.name = "--yes", .value = "", .help = "do not ask"};

std::string question(const std::vector<std::string> &rules) {
    const std::vector<std::string_view> names(rules.begin(), rules.end());
    return (rules.size() == 1 ? "Remove the rule " : "Remove the rules ") + joined(names, "and") +
           "?";
}

int remove(const Request &request) {
    RuleChange change(request);
    const RuleIds ids = change.ids(request.words);
    std::vector<std::string> sentences;
    std::vector<std::string> named;
    for (const StoredRule &rule : change.rules()) {
        if (ids.contains(rule.id)) {
            sentences.push_back(ruleInWords(rule) + " is removed.");
            named.push_back(toUtf8(rule.id + u" " + quoted(rule.name, 60)));
        }
    }
    if (!change.isDryRun() && !request.has(yesOption)) {
        requireConsent(question(named), "remove");
    }
    Rules wanted = without(change.rules(), ids);
    change.store(wanted, Keep::backup);
    change.tell(sentences);
    return exit_status::done;
}

constexpr std::array words{Word{.name = "ID", .repeats = true}};
constexpr std::array options{yesOption, dryRunOption, databaseOption};

} // namespace

constexpr Command removeCommand{
    .name = "remove",
    .words = words,
    .options = options,
    .summary = "remove rules",
    .description =
        R"(Removes the rules with these ids for good, and numbers the others 1, 2, 3 and so
on. It asks first; without a terminal it needs --yes. If one of the ids is not there, no
rule is removed. Rules that another program has changed since the question stay.

Before that, it makes a backup of the database, and prints its path.
)",
    .example = R"($ kvexrules remove 5 --yes
Rule 5 "Advertisements" is removed.
kept: .../kvex/backups/...-before-remove.db
)",
    .run = remove,
};

} // namespace kvex::host
