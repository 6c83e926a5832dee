// The one QApplication of the process. The first window creates it unless the host has one.
#pragma once

#include <QWidget>

#include <string>

namespace kvex::qt {

/// Why this process cannot show windows, and what to do, in sentences; "" when it can.
/// Starts no application. Any thread may call it.
[[nodiscard]] std::u16string obstacleToWindows();

/// Makes sure that this thread can show windows. Otherwise fails with cannotCreateObject and says
/// why. On another thread than that of the windows it fails with invalidCall and names both. An
/// application that it creates lives until the process ends.
void requireApplication();

/// The parent of the next window; null if there is none.
[[nodiscard]] QWidget *windowToShowOver();

} // namespace kvex::qt
