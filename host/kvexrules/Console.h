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

/// A line of standard error: exactly `text`, but on a terminal with control characters written
/// out, as visible() does.
void complainExactly(std::string_view text);

/// True when somebody reads standard output on a terminal.
[[nodiscard]] bool printsToTerminal();

/// Asks on standard error, and reads the answer from standard input. True for "y" and "yes", in
/// whatever case. Nothing when the two are not both a terminal.
[[nodiscard]] std::optional<bool> askAtTerminal(std::string_view question);

} // namespace kvex::host
