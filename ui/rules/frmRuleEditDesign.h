// What the rule editor looks like.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex {

[[nodiscard]] WindowDesign frmRuleEditDesign();

} // namespace kvex
