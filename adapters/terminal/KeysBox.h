// Says which keys a window understands.
#pragma once

#include <string>

namespace kvex::terminal {

class Desktop;

/// Shows `status`, if it is not "", and the keys over the active window until the user closes the
/// box.
void showKeysBox(Desktop &desktop, const std::u16string &status);

} // namespace kvex::terminal
