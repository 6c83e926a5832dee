// Lays out a window's controls as its design says.
#pragma once

#include "adapters/qt/ControlWidget.h"
#include "adapters/qt/ScrollPane.h"
#include "platform/controls/WindowDesign.h"

#include <QWidget>

#include <functional>
#include <string>

namespace kvex::qt {

/// Gives the control of a name, null when the window has none.
using FindControl = std::function<ControlWidget *(const std::u16string &name)>;

/// Lays out `layout` in `window`, and gives the pane that scrolls. A name without a control is left
/// out.
ScrollPane &buildLayout(QWidget &window, const Layout &layout, const FindControl &find);

} // namespace kvex::qt
