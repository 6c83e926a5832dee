// What a button's access key does.
#pragma once

#include <QAbstractButton>

namespace kvex::qt {

/// Lets the button's access key work as a click into it does: the button takes the focus and is
/// pressed at once.
void clickByAccessKey(QAbstractButton &button);

} // namespace kvex::qt
