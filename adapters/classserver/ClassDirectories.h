// The directories whose files say which server a class has.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace kvex {

/// `$XDG_DATA_HOME/kvex/classes`, else `$HOME/.local/share/kvex/classes`; none when neither
/// variable holds an absolute path.
[[nodiscard]] std::optional<std::filesystem::path> userClassDirectory();

/// In the order of search: the user's, then `kvex/classes` in each of `$XDG_DATA_DIRS`, by default
/// /usr/local/share and /usr/share. Relative paths in the variable are passed over.
[[nodiscard]] std::vector<std::filesystem::path> classDirectories();

} // namespace kvex
