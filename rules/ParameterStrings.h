// The two tagged strings of a rule's row, QueryParam (conditions) and ActionParam (actions).
//
// The server that applies the rules reads them too, so they are exact to the character:
//
//   QueryParam  = "<ALLMESSAGES>" | ignore [people] [account] [word] [datetime]
//   ignore      = "<IGNOREIFSERVICE>" yesno "</IGNOREIFSERVICE>"
//   people      = "<PEOPLE>" modifiers list "</PEOPLE>"
//   account     = "<ACCOUNT>" modifiers list "</ACCOUNT>"
//   word        = "<WORD>" modifiers ["<ASCOMMAND>"] list "</WORD>"
//   datetime    = "<DATETIME>" moment "," moment "</DATETIME>"
//   modifiers   = ("<NOT>" | "<CON>") ("<ALL>" | "<ANY>")
//   ActionParam = [dist] [reply] [alert] delete ignorefurther
//   dist        = "<DIST>" list "</DIST>"
//   reply       = "<REPLY>" text ";" id "</REPLY>"
//   alert       = "<ALERT>" text ";" id ";" list "</ALERT>"
//   delete      = "<DELETE>" yesno "</DELETE>"
//   ignorefurther = "<IGNOREFURTHERRULES>" yesno "</IGNOREFURTHERRULES>"
//
// Nothing is escaped.
#pragma once

#include "rules/RuleState.h"

#include <string>
#include <string_view>

namespace kvex {

/// The longest strings that a row may hold, in UTF-16 units.
inline constexpr std::size_t longestQueryParam = 5000;
inline constexpr std::size_t longestActionParam = 2500;

[[nodiscard]] std::u16string buildQueryParam(const RuleState &rule);
[[nodiscard]] std::u16string buildActionParam(const RuleState &rule);

/// Reads a parameter string into `rule`, tag by tag; a tag that does not occur leaves its
/// variables alone. Tags are found wherever they stand, the first occurrence counts, case matters.
/// What was read before a failure stays. Fails with invalidCall for an opening tag without its
/// closing tag behind it, with overflow where a position exceeds 16 bits.
void readQueryParam(std::u16string_view queryParam, RuleState &rule);
void readActionParam(std::u16string_view actionParam, RuleState &rule);

} // namespace kvex
