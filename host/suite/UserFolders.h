// The folders for the user's own files, as the XDG base directories define them.
#pragma once

#include <filesystem>
#include <system_error>

namespace kvex::host {

/// The user's folders for the suite: "kvex" in $XDG_STATE_HOME, $XDG_DATA_HOME or $XDG_CONFIG_HOME,
/// or in their defaults below $HOME. A variable counts only if it is an absolute path. The result
/// is empty if $HOME does not count either. No variable counts in a program that has more rights
/// than its user. Creates nothing.
[[nodiscard]] std::filesystem::path stateFolder();
[[nodiscard]] std::filesystem::path dataFolder();
[[nodiscard]] std::filesystem::path configurationFolder();

/// Creates `folder` and the missing folders above it. Only their owner can use them. Returns the
/// system's error when `folder` is not there afterwards.
[[nodiscard]] std::error_code makeOwnFolder(const std::filesystem::path &folder);

} // namespace kvex::host
