// What the dialog for the distribution action looks like.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex {

[[nodiscard]] WindowDesign frmRuleDistributeDesign();

} // namespace kvex
