// The program's standard streams.
#pragma once

#include <optional>
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

/// "kvexrules: " and `sentences`, without passwords, on a line of standard error. On a terminal
/// U+FFFD stands for what could control it.
void complain(std::string_view sentences);

/// Writes a line of standard error: exactly `text`. On a terminal it shows control characters as
/// visible() does.
void complainExactly(std::string_view text);

/// True when standard output is a terminal.
[[nodiscard]] bool printsToTerminal();

/// Asks on standard error and reads the answer from standard input. True for "y" and "yes" in any
/// case. Returns nothing unless both are a terminal.
[[nodiscard]] std::optional<bool> askAtTerminal(std::string_view question);

/// Writes all of `text` to an open descriptor. Returns 0 or the system's error number.
[[nodiscard]] int writeAll(int descriptor, std::string_view text);

} // namespace kvex::host
