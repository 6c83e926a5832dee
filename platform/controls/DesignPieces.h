// What the designs of all windows are made of.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex::design {

[[nodiscard]] ControlDesign label(std::u16string name, std::u16string caption,
                                  std::u16string buddy = {});
/// A label that explains, rather than names.
[[nodiscard]] ControlDesign hint(std::u16string name, std::u16string caption);
[[nodiscard]] ControlDesign button(std::u16string name, std::u16string caption);
/// Kept for the window's scheme of names; nobody sees it.
[[nodiscard]] ControlDesign hiddenButton(std::u16string name, std::u16string caption);
/// Waits, as `hint` says, until a handler enables it.
[[nodiscard]] ControlDesign waiting(ControlDesign control, std::u16string hint);
[[nodiscard]] ControlDesign waitingButton(std::u16string name, std::u16string caption,
                                          std::u16string hint);

/// The button that Enter presses.
[[nodiscard]] ControlDesign byEnter(ControlDesign button);

/// The end of every window: a line, and OK and Cancel below it. Enter presses OK, but a plain one.
[[nodiscard]] ControlDesign separator();
[[nodiscard]] ControlDesign okButton();
[[nodiscard]] ControlDesign plainOkButton();
[[nodiscard]] ControlDesign cancelButton();

/// A window's layout: `content` from top to bottom, which may scroll, and the end that every window
/// has, with these buttons, which stay in view.
[[nodiscard]] Layout aboveButtons(std::vector<Layout> content,
                                  const std::u16string &accept = u"cmdOK",
                                  const std::u16string &cancel = u"cmdCancel");
/// Buttons beside what they work on, one below the other.
[[nodiscard]] Layout buttonColumn(const std::vector<std::u16string> &buttons, int stretch = 0);

} // namespace kvex::design
