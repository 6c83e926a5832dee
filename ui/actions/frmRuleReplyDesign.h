// What the dialog for the reply action looks like.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex {

[[nodiscard]] WindowDesign frmRuleReplyDesign();

} // namespace kvex
