// What the dialog for the alert action looks like.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex {

[[nodiscard]] WindowDesign frmRuleAlertDesign();

} // namespace kvex
