#include "ui/rules/SavingChecks.h"

#include "platform/Unicode.h"
#include "rules/ParameterStrings.h"

#include <algorithm>
#include <iterator>

namespace kvex {
namespace {

/// The message of the first ticked part that lacks a value.
std::optional<Refusal> refusalOfValues(const RuleState &rule, std::span<const RulePart> parts,
                                       const std::vector<bool> &ticks) {
    for (std::size_t row = 0; row < parts.size(); ++row) {
        const RulePart &part = parts[row];
        if (ticks[row] && part.hasDialog() && !part.dialog.complete(rule)) {
            return Refusal{part.dialog.incompleteText, RefusedPart::ticks};
        }
    }
    return std::nullopt;
}

std::vector<bool> heldParts(const RuleState &rule, std::span<const RulePart> parts) {
    std::vector<bool> ticks;
    std::ranges::transform(parts, std::back_inserter(ticks),
                           [&](const RulePart &part) { return part.held(rule); });
    return ticks;
}

bool hasTick(const std::vector<bool> &ticks) {
    return std::ranges::find(ticks, true) != ticks.end();
}

} // namespace

RowTicks heldTicks(const RuleState &rule) {
    RowTicks ticks{heldParts(rule, ruleConditions()), heldParts(rule, ruleActions())};
    if (rule.blnAllMessages) {
        // "For All Messages" excludes every other condition.
        const auto allMessages = static_cast<std::size_t>(rowOf(RulePartId::allMessages)) - 1;
        ticks.conditions.assign(ticks.conditions.size(), false);
        ticks.conditions[allMessages] = true;
    }
    return ticks;
}

std::optional<Refusal> refusalOfIncomplete(const RuleState &rule, const RowTicks &ticks,
                                           std::u16string_view name) {
    if (!hasTick(ticks.conditions)) {
        return Refusal{u"Please select some conditions for this Rule.", RefusedPart::ticks};
    }
    if (!hasTick(ticks.actions)) {
        return Refusal{u"Please select some actions for this Rule.", RefusedPart::ticks};
    }
    if (name.empty()) {
        return Refusal{u"Type a name for this Rule.", RefusedPart::name};
    }
    const auto refusal = refusalOfValues(rule, ruleConditions(), ticks.conditions);
    return refusal ? refusal : refusalOfValues(rule, ruleActions(), ticks.actions);
}

Refusal refusalOfTakenName() {
    return {u"A Rule already exists in this name, please select a different name.",
            RefusedPart::name};
}

std::optional<Refusal> refusalOfLength(std::u16string_view queryParam,
                                       std::u16string_view actionParam) {
    if (queryParam.size() > longestQueryParam) {
        return Refusal{u"Length of Condition parameter cannot exceed 5000 characters.",
                       RefusedPart::description};
    }
    if (actionParam.size() > longestActionParam) {
        return Refusal{u"Length of Action parameter cannot exceed 2500 characters.",
                       RefusedPart::description};
    }
    return std::nullopt;
}

std::u16string searchedName(std::u16string_view name) {
    return upperCase(name);
}

} // namespace kvex
