// Changes of a list of rules, in memory. OpenRules stores the result.
#pragma once

#include "host/rules/Rule.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

using Rules = std::vector<StoredRule>;
using RuleIds = std::set<std::u16string>;

/// A place beside another rule.
struct Place {
    enum class Side { before, behind };
    Side side;
    std::u16string neighbour;
};

/// Each function takes the rules in their order. Where a rule is added, moved or removed, the
/// result has the priorities 1, 2, 3 and so on. Every id must be there.
[[nodiscard]] Rules switched(Rules rules, const RuleIds &ids, bool on);
[[nodiscard]] Rules moved(Rules rules, std::u16string_view id, const Place &place);
[[nodiscard]] Rules without(Rules rules, const RuleIds &ids);
/// The copy is a new rule behind the original, with the same two strings. It is switched off, so
/// that no message is answered twice.
[[nodiscard]] Rules withCopy(Rules rules, std::u16string_view id, std::u16string_view name);
[[nodiscard]] Rules renamed(Rules rules, std::u16string_view id, std::u16string_view name);

/// Null when there is no such rule.
[[nodiscard]] const StoredRule *findRule(const Rules &rules, std::u16string_view id);

enum class Naming { existingRule, newRule };

/// Why the editor would not store `rule` under `name`, which has no blanks around it. Nothing when
/// it would. An existing rule keeps its own name without a search. Fails as `strings` does.
[[nodiscard]] std::optional<std::u16string> refusalOfName(const RuleStrings &strings,
                                                          const Rules &rules,
                                                          const StoredRule &rule,
                                                          std::u16string_view name, Naming naming);

} // namespace kvex::host
