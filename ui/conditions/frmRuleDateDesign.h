// What the dialog of the date and time condition looks like.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex {

[[nodiscard]] WindowDesign frmRuleDateDesign();

} // namespace kvex
