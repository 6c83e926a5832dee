// What the dialog for the people condition looks like.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex {

[[nodiscard]] WindowDesign frmRulePeopleDesign();

} // namespace kvex
