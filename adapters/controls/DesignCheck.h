// Checks a window's design before a toolkit builds it.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex::controls {

/// Fails with invalidCall if the design contradicts itself. The description names the window and
/// the fault. These are faults:
/// - Two controls share a name, or a control has no name.
/// - The layout places an unknown name, an image list, or a name twice.
/// - The layout leaves out a visible control. An image list needs no place.
/// - A label's buddy or what it describes is not a control, or a list's image list is not an image
/// list.
/// - Two buttons are the default button, or two are the cancel button.
void checkDesign(const WindowDesign &design);

} // namespace kvex::controls
