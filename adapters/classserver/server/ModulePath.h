// Where the module stands on the disk that this code was linked into.
#pragma once

#include <filesystem>

namespace kvex {

/// Absolute. A std::system_error when the loader does not know.
[[nodiscard]] std::filesystem::path modulePath();

} // namespace kvex
