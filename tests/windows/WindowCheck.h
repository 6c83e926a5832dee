// The checks that every window must pass.
#pragma once

#include "tests/support/QtPlay.h"

#include <map>
#include <string>
#include <vector>

namespace kvex::test {

/// Access keys that several controls share, each with these controls.
using SharedKeys = std::map<char16_t, std::vector<std::u16string>>;

/// Tab reaches the controls in the order `tabOrder`, and each tells assistive technology its role
/// and name.
void expectAccessible(QtUser &user, const std::vector<std::u16string> &tabOrder);

/// The access keys that several enabled controls share.
[[nodiscard]] SharedKeys sharedAccessKeys(QtUser &user);

/// Every fixed text has enough room in the window, and the window fits on its screen.
void expectNothingCut(QtUser &user);

} // namespace kvex::test
