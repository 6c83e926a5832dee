#include "host/kvexrules/RuleChange.h"

#include "host/kvexrules/CommandNames.h"
#include "host/kvexrules/Components.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleList.h"
#include "host/suite/Backup.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <unordered_set>
#include <vector>

namespace kvex::host {
namespace {

[[noreturn]] void refuseMissing(const std::vector<std::string> &ids) {
    const std::vector<std::string_view> names(ids.begin(), ids.end());
    throw Failure((ids.size() == 1 ? "There is no rule " : "There are no rules ") +
                      joined(names, "and") +
                      ". Nothing was changed. To list the rules: kvexrules list",
                  exit_status::refused);
}

OpenRules openRules(Connection &connection, const Settings &settings) {
    try {
        return OpenRules(connection);
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

} // namespace

RuleChange::RuleChange(const Request &request)
    : settings_(settingsFor(request)), command_(request.command->name),
      isDryRun_(request.has(dryRunOption)), connection_(openOrFail(settings_)),
      open_(openRules(*connection_, settings_)) {
    doOrFail(settings_, [&] { open_.requireWritable(); });
}

RuleIds RuleChange::ids(std::span<const std::string> words) const {
    std::unordered_set<std::u16string_view> known;
    for (const StoredRule &rule : rules()) {
        known.insert(rule.id);
    }
    RuleIds ids;
    std::vector<std::string> missing;
    for (const std::string &word : words) {
        const std::string id = ruleId(word);
        if (const auto [place, isNew] = ids.insert(fromUtf8(id));
            isNew && !known.contains(*place)) {
            missing.push_back(id);
        }
    }
    if (!missing.empty()) {
        refuseMissing(missing);
    }
    return ids;
}

const StoredRule &RuleChange::rule(const std::string &word) const {
    const std::string id = ruleId(word);
    const StoredRule *found = findRule(rules(), fromUtf8(id));
    if (found == nullptr) {
        refuseMissing({id});
    }
    return *found;
}

std::u16string RuleChange::name(const std::string &word, const StoredRule &rule,
                                Naming naming) const {
    const std::u16string text = fromUtf8(word);
    if (toUtf8(text) != word) {
        throw Failure("The name is no text in UTF-8. Nothing was changed.");
    }
    std::u16string name(trimmed(text));
    const RuleStrings strings = createRuleStrings();
    if (const auto refusal = refusalOfName(strings, rules(), rule, name, naming)) {
        throw Failure(asSentence(toUtf8(*refusal)) + " Nothing was changed.", exit_status::refused);
    }
    return name;
}

void RuleChange::store(Rules &wanted, Keep keep) {
    if (isDryRun_) {
        return;
    }
    doOrFail(settings_, [&] {
        if (keep == Keep::backup) {
            kept_ = keepBackup(*connection_, command_);
        }
        Progress progress("Storing rules", rules().size());
        open_.store(wanted, [&] { progress.step(); });
    });
}

void RuleChange::tell(std::span<const std::string> sentences) const {
    if (isDryRun_) {
        report("Nothing is changed. This would be done:");
    }
    for (const std::string &sentence : sentences) {
        report(sentence);
    }
    if (!kept_.empty()) {
        report("kept: " + kept_.string());
    }
}

std::string ruleInWords(const StoredRule &rule) {
    return "Rule " + toUtf8(visible(rule.id)) + " " + toUtf8(quoted(rule.name, 60));
}

} // namespace kvex::host
