// The one place where the component is put together from real things.
#pragma once

#include "platform/Platform.h"

namespace kvex {

/// What this build of the component stands on. Lives as long as the process.
[[nodiscard]] Platform &composition();

} // namespace kvex
