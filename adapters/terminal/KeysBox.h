// Says which keys a window understands.
#pragma once

namespace kvex::terminal {

class Desktop;

/// Shows the keys over the active window until the user closes the box.
void showKeysBox(Desktop &desktop);

} // namespace kvex::terminal
