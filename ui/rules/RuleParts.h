// The conditions and actions that a rule is composed of: one row each of the editor's lists.
#pragma once

#include "rules/RuleState.h"

#include <span>

namespace kvex {

/// Positions of the rows.
namespace condition_row {
inline constexpr int ignoreIfService = 1;
inline constexpr int dateTime = 5;
inline constexpr int allMessages = 6;
} // namespace condition_row

namespace action_row {
inline constexpr int deleteIt = 4;
inline constexpr int ignoreFurtherRules = 5;
} // namespace action_row

struct RulePart {
    /// The row's text.
    const char16_t *text;
    /// Whether the rule holds it: its row is ticked.
    bool (*held)(const RuleState &rule);
    /// What unticking its row takes from the rule.
    void (*clear)(RuleState &rule);
    /// For a part with values: whether the rule has them all, what the user is told when it has
    /// not, and what shows the dialog that edits them, until it is closed. Null for a part that is
    /// only ticked.
    bool (*complete)(const RuleState &rule) = nullptr;
    const char16_t *incompleteText = nullptr;
    void (*showDialog)() = nullptr;

    [[nodiscard]] bool hasDialog() const { return showDialog != nullptr; }
};

[[nodiscard]] std::span<const RulePart> ruleConditions();
[[nodiscard]] std::span<const RulePart> ruleActions();

} // namespace kvex
