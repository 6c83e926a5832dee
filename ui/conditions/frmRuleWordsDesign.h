// What the dialog for the words condition looks like.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex {

[[nodiscard]] WindowDesign frmRuleWordsDesign();

} // namespace kvex
