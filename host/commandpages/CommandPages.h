// The files that are made from the table of commands when the program is built.
#pragma once

#include "host/kvexrules/Commands.h"

#include <string>
#include <string_view>

namespace kvex::host {

/// kvexrules.1, in the macros of man(7). `date` is the date of the release, as in 2026-01-31.
[[nodiscard]] std::string manualPage(CommandTable commands, std::string_view date);

/// The completions of the shells. They offer commands, the options of a command, the choices of an
/// option, and files where a file is due.
[[nodiscard]] std::string bashCompletion(CommandTable commands);
[[nodiscard]] std::string zshCompletion(CommandTable commands);
[[nodiscard]] std::string fishCompletion(CommandTable commands);

/// docs/commands.md.
[[nodiscard]] std::string commandsDocument(CommandTable commands);

} // namespace kvex::host
