// Loading a stored rule.
#pragma once

#include <string>

namespace kvex {

/// Loads the rule whose ID `ruleID` is from rsRules into this thread's rule, and leaves rsRules on
/// its row. "" clears the rule and moves nothing. Traps its errors: an unknown id, a Name or ACTIVE
/// without value, an opening tag without its closing tag; the rule then holds what was read
/// before. A parameter string without value holds no tag.
void LoadRuleFromDB(const std::u16string &ruleID);

} // namespace kvex
