// Reads the contact files that the user names; "-" is standard input.
#pragma once

#include "host/addressbook/ContactFile.h"

#include <string>

namespace kvex::host {

/// Reads the file, or standard input. Raises a Failure when it cannot be read, is longer than
/// 256 MiB or holds no readable contacts.
[[nodiscard]] ContactFile readContactsFrom(const std::string &file);

} // namespace kvex::host
