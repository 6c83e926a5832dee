// A rule as fields: pairs of a name and a value. kvex/RuleStrings.h lists them.
#pragma once

#include "rules/RuleState.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

namespace kvex {

struct FieldView {
    std::u16string_view name;
    std::u16string_view value;
};

/// The names of all fields, in their order.
[[nodiscard]] std::span<const std::u16string_view> ruleFieldNames();

/// Calls `visit` with the place of the name in ruleFieldNames and with the value. A list gives one
/// call for each entry. Ends when `visit` returns false.
void visitRuleFields(
    const RuleState &rule,
    const std::function<bool(std::size_t place, std::u16string_view value)> &visit);

/// The rule that holds these fields, and otherwise the values of a new rule. Nothing when a name is
/// unknown. Of a field that is no list the last value counts.
[[nodiscard]] std::optional<RuleState> ruleOfFields(std::span<const FieldView> fields);

} // namespace kvex
