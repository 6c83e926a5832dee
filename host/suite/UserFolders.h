// Where the user's own files belong, as the XDG base directories say.
#pragma once

#include <filesystem>

namespace kvex::host {

/// The suite's folders of this user: "kvex" in $XDG_STATE_HOME, $XDG_DATA_HOME and
/// $XDG_CONFIG_HOME, else in their places below the home directory. A variable that is no
/// absolute path does not count. Empty where $HOME does not count either. Nothing is created.
[[nodiscard]] std::filesystem::path stateFolder();
[[nodiscard]] std::filesystem::path dataFolder();
[[nodiscard]] std::filesystem::path configurationFolder();

} // namespace kvex::host
