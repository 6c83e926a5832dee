// Pieces that the designs of several windows share.
#pragma once

#include "platform/controls/WindowDesign.h"

namespace kvex::design {

[[nodiscard]] ControlDesign label(std::u16string name, std::u16string caption,
                                  std::u16string buddy = {});
/// A label with an explanation instead of a control's name.
[[nodiscard]] ControlDesign hint(std::u16string name, std::u16string caption);
/// A hint that code shows while it is needed, on what the user does in the control `describes`.
[[nodiscard]] ControlDesign hintOn(std::u16string describes, std::u16string name);
[[nodiscard]] ControlDesign button(std::u16string name, std::u16string caption);
/// A button that the user never sees. Its window must have a control of this name.
[[nodiscard]] ControlDesign hiddenButton(std::u16string name, std::u16string caption);
/// Disabled until a handler enables it. `hint` says what it waits for.
[[nodiscard]] ControlDesign waiting(ControlDesign control, std::u16string hint);
[[nodiscard]] ControlDesign waitingButton(std::u16string name, std::u16string caption,
                                          std::u16string hint);

/// Makes the button the one that Enter presses.
[[nodiscard]] ControlDesign byEnter(ControlDesign button);

/// Every window ends with a line, OK and Cancel. Enter presses the OK of okButton(), but not that
/// of plainOkButton().
[[nodiscard]] ControlDesign separator();
[[nodiscard]] ControlDesign okButton();
[[nodiscard]] ControlDesign plainOkButton();
[[nodiscard]] ControlDesign cancelButton();

/// A window's layout: `content` from top to bottom, a line, and these two buttons. The content may
/// scroll; the buttons stay visible.
[[nodiscard]] Layout aboveButtons(std::vector<Layout> content,
                                  const std::u16string &accept = u"cmdOK",
                                  const std::u16string &cancel = u"cmdCancel");
/// Buttons below each other, for a place beside the list that they change.
[[nodiscard]] Layout buttonColumn(const std::vector<std::u16string> &buttons, int stretch = 0);

} // namespace kvex::design
