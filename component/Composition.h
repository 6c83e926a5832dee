// The place where the component is put together from its adapters.
#pragma once

#include "platform/Platform.h"

namespace kvex {

/// The platform of this build of the component. It lives as long as the process.
[[nodiscard]] Platform &composition();

} // namespace kvex
