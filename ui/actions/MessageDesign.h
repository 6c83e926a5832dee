// The controls that the dialogs of reply and alert share.
#pragma once

#include "platform/controls/WindowDesign.h"

#include <string>

namespace kvex::design {

/// Where the message is typed.
[[nodiscard]] ControlDesign messageText(std::u16string name);
/// Its length; a label names it.
[[nodiscard]] ControlDesign characterCount();
/// The accounts, of which one is ticked, with the pictures of listIcons.
[[nodiscard]] ControlDesign outAccounts();

/// The pictures of accounts and of people, which lists name by their positions.
[[nodiscard]] ControlDesign listIcons();
inline constexpr int accountPicture = 1;
inline constexpr int personPicture = 2;

} // namespace kvex::design
