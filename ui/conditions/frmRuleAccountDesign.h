// What the dialog for the account condition looks like.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex {

[[nodiscard]] WindowDesign frmRuleAccountDesign();

} // namespace kvex
