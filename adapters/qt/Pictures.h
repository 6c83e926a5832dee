// The pictures that list views show, drawn in the theme's colours, and the product's icon.
#pragma once

#include "platform/controls/WindowDesign.h"

#include <QIcon>

namespace kvex::qt {

[[nodiscard]] QIcon iconOf(Picture picture);

/// The product's icon, which all its windows have.
[[nodiscard]] QIcon productIcon();

} // namespace kvex::qt
