// Copies of rules that a command is about to replace.
#pragma once

#include <filesystem>
#include <string_view>

namespace kvex::host {

/// Writes an export document into a new file of the user's state folder, which only the user can
/// read. Returns the file. Raises a Failure when there is no such folder or it cannot be written.
[[nodiscard]] std::filesystem::path keepCopy(std::string_view document);

} // namespace kvex::host
