// What holds in every window, whatever it is for.
#pragma once

#include "tests/support/QtPlay.h"

#include <map>
#include <string>
#include <vector>

namespace kvex::test {

/// Access keys that more than one control has, each with its controls.
using SharedKeys = std::map<char16_t, std::vector<std::u16string>>;

/// The controls that Tab reaches stand in the order `tabOrder`, and each says to assistive
/// technology what it is and what it is called.
void expectAccessible(QtUser &user, const std::vector<std::u16string> &tabOrder);

/// The access keys that more than one of the controls has that can be used now.
[[nodiscard]] SharedKeys sharedAccessKeys(QtUser &user);

/// Every fixed text of the window has the room that it takes, and the window fits on its screen.
void expectNothingCut(QtUser &user);

} // namespace kvex::test
