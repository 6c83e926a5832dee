#include "host/check/AppliedRules.h"

#include "host/check/Tags.h"
#include "host/rules/StoredIds.h"

#include <utility>

namespace kvex::host {
namespace {

/// Nothing when the rule is not applied.
std::optional<std::int32_t> priorityOf(const StoredRule &row) {
    return row.isActive ? idOf(row.priority) : std::nullopt;
}

} // namespace

bool takesMessages(const RuleValues &rule) {
    return rule.ignoreFurtherRules == u"YES" || (rule.deleteIt == u"YES" && rule.allMessages);
}

void AppliedRules::add(std::size_t place, const ReadRule &rule) {
    const auto priority = priorityOf(rule.row);
    if (!priority || !takesMessages(rule.read.values) || !hasSoundConditions(rule)) {
        return;
    }
    Conditions conditions = outerConditions(rule.read.values, vocabulary_);
    if (conditions.areCertain) {
        takers_.add(place, *priority, std::move(conditions));
    }
}

std::optional<std::size_t> AppliedRules::takerOfAll(const StoredRule &row) const {
    const auto priority = priorityOf(row);
    return priority ? takers_.takerOfAll(*priority) : std::nullopt;
}

std::optional<std::size_t> AppliedRules::takerOf(const StoredRule &row,
                                                 const RuleRead &read) const {
    const auto priority = priorityOf(row);
    if (!priority) {
        return std::nullopt;
    }
    // Nothing is said about conditions that could not be read to their end.
    return read.end ? takers_.takerOfAll(*priority)
                    : takers_.takerOf(*priority, innerConditions(read.values, vocabulary_));
}

} // namespace kvex::host
