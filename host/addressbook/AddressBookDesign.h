// What the address book looks like.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex::host {

/// `multiple`: rows are ticked; else the selected row is the choice.
[[nodiscard]] WindowDesign addressBookDesign(bool multiple);

} // namespace kvex::host
