// Reads and writes the files that the user names; "-" is a standard stream.
#pragma once

#include "host/suite/NewFile.h"

#include <string>
#include <string_view>

namespace kvex::host {

/// The name of `file` in messages, escaped as visible() does: "standard input" for "-".
[[nodiscard]] std::string inputName(const std::string &file);

/// The bytes of the file, or of standard input. Raises a Failure when it cannot be read, is empty
/// or is longer than 256 MiB. `wanted` says what to name instead: "a vCard or CSV file".
[[nodiscard]] std::string contentOf(const std::string &file, std::string_view wanted);

/// Writes the whole text or no file at all. Only the file's owner can use it. Raises a Failure as
/// NewFile fails: with the status `refused` when the file exists, else with `unusable`.
void writeOwnersFile(const std::string &file, std::string_view text, Existing existing);

} // namespace kvex::host
