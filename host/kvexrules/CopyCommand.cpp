#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleChange.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace kvex::host {
namespace {

constexpr Option nameOption{.name = "--name", .value = "NAME", .help = "the name of the new rule"};

int copy(const Request &request) {
    if (!request.has(nameOption)) {
        throw Failure("A copy needs a name of its own: --name NAME. See: kvexrules help copy");
    }
    RuleChange change(request);
    const StoredRule &rule = change.rule(request.words.front());
    const std::u16string name = change.name(request.value(nameOption), rule, Naming::newRule);
    Rules wanted = withCopy(change.rules(), rule.id, name);
    const StoredRule &made = *std::next(std::ranges::find(wanted, rule.id, &StoredRule::id));
    change.store(wanted);
    const std::string id = made.id.empty() ? "" : " as rule " + toUtf8(made.id);
    change.tell(std::array{ruleInWords(rule) + " is copied" + id + " " +
                           toUtf8(quoted(made.name, 60)) + " at " + toUtf8(made.priority) +
                           ", switched off."});
    return exit_status::done;
}

constexpr std::array words{Word{.name = "ID"}};
constexpr std::array options{nameOption, dryRunOption, databaseOption};

} // namespace

constexpr Command copyCommand{
    .name = "copy",
    .words = words,
    .options = options,
    .summary = "make a new rule from another",
    .description =
        R"(Makes a rule with the same conditions and actions behind the rule with this id.
The copy is switched off, so that no message is answered twice. Change it in the rule
editor, then switch it on with "kvexrules enable".

The rule editor must accept the rule with its new name.
)",
    .example = R"($ kvexrules copy 4 --name "At night"
Rule 4 "Strangers" is copied as rule 8 "At night" at 5, switched off.
)",
    .run = copy,
};

} // namespace kvex::host
