// Names of commands and options as users type them, and what to say about a wrong one.
#pragma once

#include "host/kvexrules/Commands.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// Returns the command that `words` begin with, and removes its name from them. Without a word it
/// is the first of the table. Raises a Failure that names the nearest command when there is none.
[[nodiscard]] const Command &takeCommand(std::vector<std::string> &words, CommandTable commands);

/// The commands whose name begins with the word `first` and has a second one.
[[nodiscard]] std::vector<const Command *> commandsUnder(std::string_view first,
                                                         CommandTable commands);

/// " Did you mean NAME?" for the name that differs least from `word`, or "" when all differ much.
[[nodiscard]] std::string nearest(std::string_view word, std::span<const std::string_view> names);

/// "vcard and csv", or "text, ansi and html". The last conjunction is `conjunction`.
[[nodiscard]] std::string joined(std::span<const std::string_view> names,
                                 std::string_view conjunction);

/// Puts `word` in quotation marks, without anything after its first "=". The user may have
/// forgotten --database before a connection string, which holds a password.
[[nodiscard]] std::string inQuotes(std::string_view word);

} // namespace kvex::host
