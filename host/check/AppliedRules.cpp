#include "host/check/AppliedRules.h"

#include "host/check/Tags.h"
#include "host/rules/StoredIds.h"

#include <utility>

namespace kvex::host {

void AppliedRules::add(std::size_t place, const ReadRule &rule) {
    const auto priority = idOf(rule.row.priority);
    if (!rule.row.isActive || !priority) {
        return;
    }
    const RuleValues &values = rule.read.values;
    Conditions conditions = conditionsOf(values, vocabulary_);
    conditions.areCertain = conditions.areCertain && hasSoundConditions(rule);
    rules_.push_back({*priority, std::move(conditions), values.ignoreFurtherRules == u"YES",
                      values.deleteIt == u"YES", !rule.read.end});
    places_.push_back(place);
}

std::vector<std::optional<std::size_t>> AppliedRules::takers(std::size_t count) const {
    std::vector<std::optional<std::size_t>> takers(count);
    const auto found = takersOf(rules_);
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (found[i]) {
            takers[places_[i]] = places_[*found[i]];
        }
    }
    return takers;
}

} // namespace kvex::host
