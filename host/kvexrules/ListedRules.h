// The list of rules that an operator reads.
#pragma once

#include "host/rules/Rule.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kvex::host {

struct ListedRule {
    /// 1 for the first rule of the database.
    std::size_t position;
    StoredRule rule;
    /// True when no other rule follows a message to which this one applies. Nothing when it is not
    /// known, because the rule cannot be read completely.
    std::optional<bool> stops;
};

/// One line for each rule, in columns: position, "on" or "off", id, "stops" or "-", name. "?"
/// stands for what is not known.
[[nodiscard]] std::string listText(const std::vector<ListedRule> &rules);

/// A document with the same, in UTF-8. With `onlyAscii` it escapes all other characters, some of
/// which deceive a terminal.
[[nodiscard]] std::string listJson(const std::vector<ListedRule> &rules, bool onlyAscii = false);

} // namespace kvex::host
