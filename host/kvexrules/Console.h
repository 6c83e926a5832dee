// The program's standard streams.
#pragma once

#include <string_view>

namespace kvex::host {

/// Raised when whoever read the output has gone.
struct ReaderGone {};

/// Gives every closed standard stream a stand-in, so that no file opened later takes its place
/// and gets what is printed, and has a write to a reader that has gone fail instead of ending
/// the program. Call first in main.
void secureStandardStreams();

/// Writes `text` to standard output at once. Raises ReaderGone, or a Failure when it cannot be
/// written.
void print(std::string_view text);

/// "kvexrules: " and `sentences`, without passwords, on a line of standard error.
void complain(std::string_view sentences);

/// Writes all of `text` to an open descriptor. 0 or the system's error number.
[[nodiscard]] int writeAll(int descriptor, std::string_view text);

} // namespace kvex::host
