// Lays out a window's controls by its design.
#pragma once

#include "adapters/qt/QtControl.h"
#include "adapters/qt/ScrollPane.h"
#include "platform/controls/WindowDesign.h"

#include <QWidget>

#include <functional>
#include <string>

namespace kvex::qt {

/// Returns the control of this name, or null.
using FindControl = std::function<Element *(const std::u16string &name)>;

/// Fills `window` with `layout` and returns the part that scrolls. Skips names without a control.
ScrollPane &buildLayout(QWidget &window, const Layout &layout, const FindControl &find);

} // namespace kvex::qt
