// The pictures of list views in the theme's colours, and the product's icon.
#pragma once

#include "platform/controls/WindowDesign.h"

#include <QIcon>

namespace kvex::qt {

[[nodiscard]] QIcon iconOf(Picture picture);

/// The icon of all windows.
[[nodiscard]] QIcon productIcon();

} // namespace kvex::qt
