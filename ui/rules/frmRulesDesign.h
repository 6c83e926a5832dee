// What the rules window looks like.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex {

[[nodiscard]] WindowDesign frmRulesDesign();

} // namespace kvex
