// What the designs of all windows are made of.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex::design {

[[nodiscard]] ControlDesign label(std::u16string name, std::u16string caption,
                                  std::u16string buddy = {});
[[nodiscard]] ControlDesign button(std::u16string name, std::u16string caption);
/// Kept for the window's scheme of names; nobody sees it.
[[nodiscard]] ControlDesign hiddenButton(std::u16string name, std::u16string caption);
/// Waits, as `hint` says, until a handler enables it.
[[nodiscard]] ControlDesign waitingButton(std::u16string name, std::u16string caption,
                                          std::u16string hint);

/// The end of every window: a line, and OK and Cancel below it.
[[nodiscard]] ControlDesign separator();
[[nodiscard]] ControlDesign okButton();
[[nodiscard]] ControlDesign cancelButton();

} // namespace kvex::design
