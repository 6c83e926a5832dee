#include "host/check/RuleMarks.h"

#include "host/check/AppliedRules.h"

#include <string_view>

namespace kvex::host {
namespace {

constexpr std::u16string_view yes = u"YES";

/// A rule can stop or delete only when its actions have this word.
bool mayTakeMessages(const StoredRule &rule) {
    return rule.actionParam.find(yes) != std::u16string::npos;
}

bool takesMessages(const RuleValues &values) {
    return values.ignoreFurtherRules == yes || (values.deleteIt == yes && values.allMessages);
}

std::optional<bool> stops(const RuleRead &read) {
    return read.end ? std::nullopt : std::optional(read.values.ignoreFurtherRules == yes);
}

} // namespace

std::vector<RuleMarks> marksOf(const std::vector<StoredRule> &rules, const RuleStrings *strings) {
    std::vector<RuleMarks> marks;
    marks.reserve(rules.size());
    AppliedRules applied;
    bool isAnyTaken = false;
    for (std::size_t place = 0; place < rules.size(); ++place) {
        const StoredRule &row = rules[place];
        const bool mayTake = mayTakeMessages(row);
        if (strings == nullptr || (!mayTake && !(isAnyTaken && row.isActive))) {
            marks.push_back({mayTake ? std::nullopt : std::optional(false)});
            continue;
        }
        ReadRule rule{row, strings->read(row.queryParam, row.actionParam), {}};
        marks.push_back({mayTake ? stops(rule.read) : false});
        // Only a rule that takes messages must prove that it was read as it stands.
        if (row.isActive && takesMessages(rule.read.values)) {
            rule.written = strings->write(rule.read.values);
            isAnyTaken = true;
        }
        if (isAnyTaken) {
            applied.add(place, rule);
        }
    }
    const auto takers = applied.takers(rules.size());
    for (std::size_t place = 0; place < rules.size(); ++place) {
        marks[place].isNeverReached = takers[place].has_value();
    }
    return marks;
}

} // namespace kvex::host
