#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleChange.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <array>

namespace kvex::host {
namespace {

int rename(const Request &request) {
    RuleChange change(request);
    const StoredRule &rule = change.rule(request.words.front());
    const std::u16string name = change.name(request.words.back(), rule, Naming::existingRule);
    Rules wanted = renamed(change.rules(), rule.id, name);
    change.store(wanted);
    change.tell(std::array{ruleInWords(rule) + " is now " + toUtf8(quoted(name, 60)) + "."});
    return exit_status::done;
}

constexpr std::array words{Word{.name = "ID"}, Word{.name = "NAME"}};
constexpr std::array options{dryRunOption, databaseOption};

} // namespace

constexpr Command renameCommand{
    .name = "rename",
    .words = words,
    .options = options,
    .summary = "give a rule another name",
    .description =
        R"(Changes only the name of the rule with this id. The rule editor must accept the
rule with its new name: no other rule may have it, whatever the case of its letters.
)",
    .example = R"($ kvexrules rename 6 "No services at all"
Rule 6 "No services" is now "No services at all".
)",
    .run = rename,
};

} // namespace kvex::host
