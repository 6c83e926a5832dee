// Says what the server makes of a text that holds ";", "<" or ">".
//
// Nothing in a rule's texts is escaped, so some of them are read back as something else. Each
// function writes the text into a copy of `rule`, reads that copy back as the server does, and says
// the difference in one sentence. It gives "" when no text holds one of the three characters.
#pragma once

#include "rules/RuleState.h"

#include <string>
#include <vector>

namespace kvex {

[[nodiscard]] std::u16string replyTextHint(RuleState rule, const std::u16string &text);
[[nodiscard]] std::u16string alertTextHint(RuleState rule, const std::u16string &text);

/// The entries of a list, without blanks around them.
using Entries = std::vector<std::u16string>;

[[nodiscard]] std::u16string peopleHint(RuleState rule, const Entries &numbers);
[[nodiscard]] std::u16string wordsHint(RuleState rule, const Entries &words);
[[nodiscard]] std::u16string recipientsHint(RuleState rule, const Entries &numbers);

} // namespace kvex
