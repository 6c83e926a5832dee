// The pictures that list views show, drawn in the theme's colours.
#pragma once

#include "platform/controls/WindowDesign.h"

#include <QIcon>

namespace kvex::qt {

[[nodiscard]] QIcon iconOf(Picture picture);

} // namespace kvex::qt
