// Contact files as the commands name them: "-" is a standard stream.
#pragma once

#include "host/addressbook/ContactFile.h"

#include <string>
#include <string_view>

namespace kvex::host {

/// What the user calls the input `file`: standard input, or the file's name.
[[nodiscard]] std::string inputName(const std::string &file);

/// Reads the file, or standard input. Raises a Failure when it cannot be read, is longer than 256
/// MiB or holds no contacts that can be read.
[[nodiscard]] ContactFile readContactsFrom(const std::string &file);

/// Makes a file for its owner alone, whole or not at all. Raises a Failure: with the status
/// `refused` where a file is already that `replaces` does not give up, else with `unusable`.
void writeOwnersFile(const std::string &file, std::string_view text, bool replaces);

} // namespace kvex::host
