// What a list of rules marks beside a rule.
#pragma once

#include "host/rules/Rule.h"

#include <optional>
#include <vector>

namespace kvex::host {

struct RuleMarks {
    /// True when no other rule follows a message to which this one applies. Nothing when it is not
    /// known, because the rule cannot be read completely.
    std::optional<bool> stops;
    /// True when an earlier enabled rule is proved to take every message of this one.
    bool isNeverReached = false;
};

/// A rule that is never reached may keep `stops` unknown: then it need not be read.
enum class StopsOf { reachedRules, allRules };

/// True when a mark depends on the rules' strings. Else marksOf reads none of them.
[[nodiscard]] bool marksNeedStrings(const std::vector<StoredRule> &rules);

/// `rules` are all live rules in the order of readRules; so are the results. It reads only the
/// rules on which a mark depends, because reading takes most of the time. Null `strings` read none:
/// then nothing is proved, and it is unknown whether a rule stops unless its words exclude it.
[[nodiscard]] std::vector<RuleMarks> marksOf(const std::vector<StoredRule> &rules,
                                             const RuleStrings *strings, StopsOf stopsOf);

} // namespace kvex::host
