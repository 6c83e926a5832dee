// What the dialog for the options of a condition looks like.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex {

[[nodiscard]] WindowDesign frmRuleOptionsDesign();

} // namespace kvex
