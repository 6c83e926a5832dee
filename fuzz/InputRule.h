// Rules that the bytes of an input choose.
#pragma once

#include "fuzz/Input.h"
#include "fuzz/ReadBack.h"
#include "rules/RuleState.h"

namespace kvex::fuzz {

/// A rule as the editor's dialogs can make it. Any condition and action may be there, and each that
/// is there is complete. The entries of lists, the texts of the reply and of the alert are any
/// texts; ids are numbers, and dates exist.
[[nodiscard]] RuleState editedRule(Input &input);

/// Any two strings: QueryParam, a byte of value 0 and ActionParam, in UTF-8.
[[nodiscard]] StoredRule storedRow(Input &input);

} // namespace kvex::fuzz
