#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleChange.h"

#include <array>
#include <cstddef>
#include <vector>

namespace kvex::host {
namespace {

int switchRules(const Request &request, bool on) {
    RuleChange change(request);
    const RuleIds ids = change.ids(request.words);
    std::vector<std::string> sentences;
    std::size_t changed = 0;
    for (const StoredRule &rule : change.rules()) {
        if (ids.contains(rule.id)) {
            const bool isChanged = rule.isActive != on;
            sentences.push_back(ruleInWords(rule) + (isChanged ? " is now " : " was already ") +
                                (on ? "on." : "off."));
            changed += isChanged ? 1 : 0;
        }
    }
    Rules wanted = switched(change.rules(), ids, on);
    if (changed > 0) {
        change.store(wanted, changed > 1 ? Keep::backup : Keep::nothing);
    }
    change.tell(sentences);
    return exit_status::done;
}

int enable(const Request &request) {
    return switchRules(request, true);
}

int disable(const Request &request) {
    return switchRules(request, false);
}

constexpr std::array words{Word{.name = "ID", .repeats = true}};
constexpr std::array options{dryRunOption, databaseOption};

} // namespace

constexpr Command enableCommand{
    .name = "enable",
    .words = words,
    .options = options,
    .summary = "switch rules on",
    .description =
        R"(Switches the rules with these ids on, as a tick in the rule editor does. If one
of the ids is not there, no rule is changed.

Before it changes more than one rule, it makes a backup of the database, and prints its path.
)",
    .example = R"($ kvexrules enable 5
Rule 5 "Advertisements" is now on.
)",
    .run = enable,
};

constexpr Command disableCommand{
    .name = "disable",
    .words = words,
    .options = options,
    .summary = "switch rules off",
    .description = R"(Switches the rules with these ids off, as the rule editor does without a tick.
The server then leaves them out. If one of the ids is not there, no rule is changed.

Before it changes more than one rule, it makes a backup of the database, and prints its path.
)",
    .example = R"($ kvexrules disable 3 5 --dry-run
Nothing is changed. This would be done:
Rule 3 "दिल्ली के संदेश" is now off.
Rule 5 "Advertisements" is now off.
)",
    .run = disable,
};

} // namespace kvex::host
