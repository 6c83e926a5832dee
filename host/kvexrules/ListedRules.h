// The list of rules that an operator reads.
#pragma once

#include "host/check/RuleMarks.h"
#include "host/rules/Rule.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kvex::host {

struct ListedRule {
    /// 1 for the first rule of the database.
    std::size_t position;
    StoredRule rule;
    RuleMarks marks;
};

/// One line for each rule, in columns: position, "on" or "off", id, a mark, name. The mark is
/// "never" for a rule that is never reached, else "stops", "-", or "?" for what is not known.
[[nodiscard]] std::string listText(const std::vector<ListedRule> &rules);

/// A document with the same, in UTF-8. With `onlyAscii` it escapes all other characters, some of
/// which deceive a terminal.
[[nodiscard]] std::string listJson(const std::vector<ListedRule> &rules, bool onlyAscii = false);

} // namespace kvex::host
