// The rules of a database, as an operator lists them.
#pragma once

#include "host/kvexrules/Settings.h"
#include "platform/Database.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

struct ListedRule {
    /// Decimal.
    std::u16string id;
    bool isActive;
    std::u16string name;
};

/// The live rules in priority order, those of one priority by their ids. A rule without name has
/// "". Fails as the record set's open does.
[[nodiscard]] std::vector<ListedRule> readRules(Connection &connection);

/// The same from the chosen database. Raises a Failure when it cannot be read.
[[nodiscard]] std::vector<ListedRule> rulesOf(const Settings &settings);

/// The two texts that hold a rule, in UTF-8; "" for one without value.
struct StoredTexts {
    std::string queryParam;
    std::string actionParam;
};

/// Those of the rule whose id, in decimal, is `id`; both "" where there is no such rule. Fails as
/// openConnection and the record set's open do.
[[nodiscard]] StoredTexts storedTexts(std::string_view id, const Settings &settings);

/// One line a rule, in columns: position, "on" or "off", id, and the name to the line's end.
[[nodiscard]] std::string listText(const std::vector<ListedRule> &rules);

/// A rule's id as the user writes it, in its one decimal form. Raises a Failure when it is none.
[[nodiscard]] std::string ruleId(std::string_view text);

} // namespace kvex::host
