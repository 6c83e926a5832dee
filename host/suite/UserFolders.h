// Where the user's own files belong, as the XDG base directories say.
#pragma once

#include <filesystem>
#include <system_error>

namespace kvex::host {

/// The suite's folders of this user: "kvex" in $XDG_STATE_HOME, $XDG_DATA_HOME and
/// $XDG_CONFIG_HOME, else in their places below the home directory. A variable that is no
/// absolute path does not count. Empty where $HOME does not count either. Nothing is created.
[[nodiscard]] std::filesystem::path stateFolder();
[[nodiscard]] std::filesystem::path dataFolder();
[[nodiscard]] std::filesystem::path configurationFolder();

/// Makes `folder` and the folders above it, as far as they are missing, for their owner alone.
/// Gives the system's error when `folder` is not there afterwards.
[[nodiscard]] std::error_code makeOwnFolder(const std::filesystem::path &folder);

} // namespace kvex::host
