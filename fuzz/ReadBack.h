// What is read back of a rule that was stored, as docs/behaviour.md says it. It is written apart
// from the code that stores and reads, so that a target can compare the two.
#pragma once

#include "rules/RuleState.h"

#include <string>
#include <string_view>

namespace kvex::fuzz {

/// Whether a text of the rule holds a tag that moves the beginning or the end of a value:
/// - the closing tag of its own value, or of one that stands later,
/// - the opening tag of a value that stands later, or that the rule does not have.
[[nodiscard]] bool hasTagThatCounts(const RuleState &rule);

/// The rule as it is read back, if no tag counts. Blanks around values and one ";" at the end of a
/// list are gone. Words that begin with modifiers, "<ALLMESSAGES>" in a condition, and ";" in the
/// texts of reply and alert count as the documentation says.
[[nodiscard]] RuleState whatIsReadBack(const RuleState &rule);

struct StoredRule {
    std::u16string queryParam;
    std::u16string actionParam;
    friend bool operator==(const StoredRule &, const StoredRule &) = default;
};

[[nodiscard]] StoredRule stored(const RuleState &rule);
/// Reads a rule as the editor does. What was read before an error stays; the only errors are those
/// of ParameterStrings.h, else a property is broken.
[[nodiscard]] RuleState loaded(const StoredRule &rule);

/// Compares all that a rule stores, and names the first difference.
void requireSameRule(const RuleState &is, const RuleState &expected, std::string_view property);

} // namespace kvex::fuzz
