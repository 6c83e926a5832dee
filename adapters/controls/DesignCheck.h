// Whether a window's design can be built as it says.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex::controls {

/// Fails with invalidCall for a design that contradicts itself; the description names the window
/// and the fault. These are the faults:
/// - two controls have one name, or one control has none;
/// - the layout places a name that no control has, or an image list, or one name twice;
/// - the layout does not place a visible control (an image list needs no place);
/// - a label's buddy is no control, or a list's image list is none;
/// - two buttons are default, or two are cancel.
void checkDesign(const WindowDesign &design);

} // namespace kvex::controls
