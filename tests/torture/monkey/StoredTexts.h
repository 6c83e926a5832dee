// Whether a stored rule reads back as what was saved.
#pragma once

#include "rules/RuleState.h"
#include "tests/torture/monkey/Tables.h"

#include <string>

namespace kvex::torture {

/// True for a rule that must read back as it is: it has no ";", "<", ">" or blanks in places where
/// docs/behaviour.md says that they get lost.
[[nodiscard]] bool isPlain(const RuleState &rule);

/// Says what is wrong when the rule's stored texts do not write back to themselves. Says it also
/// when `description`, apart from its first line, describes another rule. "" when all is well.
/// Needs an open session.
[[nodiscard]] std::string unlike(const StoredRule &stored, const std::u16string &description);

} // namespace kvex::torture
