// What the completions of all shells are made from.
#pragma once

#include "host/kvexrules/Commands.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// A command as a shell completes it word by word.
struct FirstWord {
    std::string_view word;
    /// The summary of the command, or the second words that it needs.
    std::string summary;
    /// The commands that this word begins, if it needs a second one.
    std::vector<const Command *> under;
};
[[nodiscard]] std::vector<FirstWord> firstWords(CommandTable commands);

/// "import" of "contacts import".
[[nodiscard]] std::string_view secondWord(const Command &command);

/// The names of the options of any command that take a value, each once.
[[nodiscard]] std::vector<std::string> optionsWithValue(CommandTable commands);

/// The name of the command whose words are the name of a command.
[[nodiscard]] std::string_view commandThatTakesCommands(CommandTable commands);

[[nodiscard]] std::string joinedBy(std::string_view separator,
                                   const std::vector<std::string> &words);

/// `text` as one word of a shell.
[[nodiscard]] std::string quoted(std::string_view text);

/// Puts `part` in place of `mark`, which stands once in `text`.
void fillIn(std::string &text, std::string_view mark, std::string_view part);

} // namespace kvex::host
