// The rules of the chosen database, and their ids as users write them.
#pragma once

#include "host/kvexrules/Settings.h"
#include "host/rules/RuleRows.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// Reads the rules of the chosen database. Raises a Failure when that fails.
[[nodiscard]] std::vector<StoredRule> rulesOf(const Settings &settings,
                                              Strings strings = Strings::leaveOut);

/// The two texts that hold a rule, in UTF-8. Null reads as "".
struct StoredTexts {
    std::string queryParam;
    std::string actionParam;
};

/// The texts of the rule with this id in decimal. Both are "" if there is no such rule. Fails as
/// openConnection and the record set's open do.
[[nodiscard]] StoredTexts storedTexts(std::string_view id, const Settings &settings);

/// The rule id that the user wrote, in its usual decimal form. Raises a Failure if it is not an id.
[[nodiscard]] std::string ruleId(std::string_view text);

} // namespace kvex::host
