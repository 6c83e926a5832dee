// A run as a text of one event a line: kept while it happens, played again, and made shorter.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace kvex::torture {

using Lines = std::vector<std::string>;

/// Reads a script. Lines that are empty or begin with "#" are no events. Fails with
/// std::runtime_error when the file cannot be read.
[[nodiscard]] Lines readScript(const std::string &file);

/// Removes events as long as `fails` says that the rest still fails. The first line always stays.
/// Calls `fails` at most `attempts` times.
[[nodiscard]] Lines shortest(Lines script, const std::function<bool(const Lines &)> &fails,
                             std::size_t attempts);

} // namespace kvex::torture
