// The process's one QApplication: the host's, else one that is made when the first window is.
#pragma once

#include <QWidget>

namespace kvex::qt {

/// Makes sure that windows can be shown from this thread. Fails with cannotCreateObject, and a
/// sentence that says why, where they cannot. An application that it makes lives as long as the
/// process does.
void requireApplication();

/// The window over which the next one is to be shown, null for none.
[[nodiscard]] QWidget *windowToShowOver();

} // namespace kvex::qt
