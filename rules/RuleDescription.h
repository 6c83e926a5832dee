// The plain-language description of this thread's rule.
#pragma once

#include "platform/controls/RichTextBox.h"

namespace kvex {

/// Fills `target` with one line for each condition and action: fixed words black, the user's
/// values blue, the command remark red. Traps its errors (a reply or alert account that is no
/// number): `target` then keeps the lines written so far. Changes nothing but `target`.
void BuildRuleDescription(RichTextBox &target);

} // namespace kvex
