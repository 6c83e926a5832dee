// The lists of a rule as readable text.
//
// Each function traps its errors and then returns what it has joined so far. An id that is no
// number ends the list of accounts or users. The result is "" for a date that does not exist, and
// when memory runs out for a list of people, words or recipients.
#pragma once

#include "rules/RuleState.h"

#include <string>

namespace kvex {

/// Joined with " and " when all entries must match, else with " or ".
[[nodiscard]] std::u16string BuildPeopleList(const RuleState &rule = ruleState());
[[nodiscard]] std::u16string BuildAccountList(const RuleState &rule = ruleState());
[[nodiscard]] std::u16string BuildWordList(const RuleState &rule = ruleState());
/// Joined with " and ".
[[nodiscard]] std::u16string BuildDistributionList(const RuleState &rule = ruleState());
[[nodiscard]] std::u16string BuildAlertList(const RuleState &rule = ruleState());
/// "dd/mm/yyyy hh:mm:ss Hrs. to dd/mm/yyyy hh:mm:ss Hrs.", with the user's date separator.
[[nodiscard]] std::u16string BuildDateTimeList(const RuleState &rule = ruleState());

} // namespace kvex
