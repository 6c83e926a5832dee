// What the rule editor checks before it stores a rule.
#pragma once

#include "rules/RuleState.h"
#include "ui/rules/RuleParts.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex {

/// What a message points at.
enum class RefusedPart { ticks, name, description };

struct Refusal {
    /// The message to the user.
    const char16_t *text;
    RefusedPart part;
};

/// Whether each row is ticked, in the order of ruleConditions and ruleActions.
struct RowTicks {
    std::vector<bool> conditions;
    std::vector<bool> actions;
};

/// The ticks with which the editor opens on `rule`.
[[nodiscard]] RowTicks heldTicks(const RuleState &rule);

/// The first of the checks that come before the one for a taken name. `name` has no blanks around
/// it.
[[nodiscard]] std::optional<Refusal>
refusalOfIncomplete(const RuleState &rule, const RowTicks &ticks, std::u16string_view name);
[[nodiscard]] Refusal refusalOfTakenName();
/// The check of the lengths, which is the last.
[[nodiscard]] std::optional<Refusal> refusalOfLength(std::u16string_view queryParam,
                                                     std::u16string_view actionParam);

/// The text for which the editor searches the names of the rules, without regard to case.
[[nodiscard]] std::u16string searchedName(std::u16string_view name);

} // namespace kvex
