// Reads and writes the contact files that the user names; "-" is a standard stream.
#pragma once

#include "host/addressbook/ContactFile.h"

#include <string>
#include <string_view>

namespace kvex::host {

/// The name of `file` in messages, escaped as visible() does: "standard input" for "-".
[[nodiscard]] std::string inputName(const std::string &file);

/// Reads the file, or standard input. Raises a Failure when it cannot be read, is longer than
/// 256 MiB or holds no readable contacts.
[[nodiscard]] ContactFile readContactsFrom(const std::string &file);

/// Writes the whole text or no file at all. Only the file's owner can use it. If the file exists
/// and `replaces` is not set, raises a Failure with the status `refused`. Other Failures have
/// `unusable`.
void writeOwnersFile(const std::string &file, std::string_view text, bool replaces);

} // namespace kvex::host
