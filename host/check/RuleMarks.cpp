#include "host/check/RuleMarks.h"

#include "host/check/AppliedRules.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace kvex::host {
namespace {

constexpr std::u16string_view yes = u"YES";

/// A rule can stop or delete only when its actions have this word.
bool mayTakeMessages(const StoredRule &rule) {
    return rule.actionParam.find(yes) != std::u16string::npos;
}

} // namespace

bool marksNeedStrings(const std::vector<StoredRule> &rules) {
    return std::ranges::any_of(rules, mayTakeMessages);
}

std::vector<RuleMarks> marksOf(const std::vector<StoredRule> &rules, const RuleStrings *strings,
                               StopsOf stopsOf) {
    std::vector<RuleMarks> marks(rules.size());
    AppliedRules applied;
    for (std::size_t place = 0; place < rules.size(); ++place) {
        const StoredRule &row = rules[place];
        auto &[stops, isNeverReached] = marks[place];
        isNeverReached = applied.takerOfAll(row).has_value();
        if (isNeverReached && stopsOf == StopsOf::reachedRules) {
            continue;
        }
        const bool mayTake = mayTakeMessages(row);
        const bool isApplied = row.isActive && !isNeverReached;
        stops = mayTake ? std::nullopt : std::optional(false);
        if (strings == nullptr || !(mayTake || (isApplied && !applied.isEmpty()))) {
            continue;
        }
        RuleRead read = strings->read(row.queryParam, row.actionParam);
        if (!read.end) {
            stops = read.values.ignoreFurtherRules == yes;
        }
        isNeverReached = applied.takerOf(row, read).has_value();
        // Only a rule that takes messages must prove that it was read as it stands.
        if (isApplied && takesMessages(read.values)) {
            RuleWritten written = strings->write(read.values);
            applied.add(place, {row, std::move(read), std::move(written)});
        }
    }
    return marks;
}

} // namespace kvex::host
