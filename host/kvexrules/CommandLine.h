// The arguments of the program: a command, its options, its words, and numbers among them.
#pragma once

#include "host/kvexrules/Commands.h"

#include <charconv>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

struct Request {
    const Command *command;
    /// The values of the options by their names. An option without a value has "".
    std::map<std::string, std::string, std::less<>> options;
    /// The words after the command's name.
    std::vector<std::string> words;

    [[nodiscard]] bool has(const Option &option) const { return options.contains(option.name); }
    /// "" when the user did not give it.
    [[nodiscard]] std::string value(const Option &option) const {
        const auto found = options.find(option.name);
        return found == options.end() ? std::string() : found->second;
    }
};

/// Reads the arguments after the program's name. The first word is the command, or the first two
/// are; without a word it is the first of the table. Options may stand anywhere, as "--name value"
/// or "--name=value". If one is given twice, the last counts. After "--" every argument is a word.
/// "--help" and "-h" mean the command "help" with the given words, and "--version" means "version".
///
/// Raises a Failure for an unknown command or option, and for an option of another command. A
/// missing value, a value that is no choice, missing words and words that the command does not take
/// are Failures as well.
[[nodiscard]] Request parseArguments(std::span<const char *const> arguments, CommandTable commands);

/// Writes "***" over the passwords in `arguments`, because every user can list the arguments of a
/// process. Afterwards the arguments no longer hold the passwords, so read them first.
void hidePasswords(std::span<char *const> arguments);

/// The value of `text`, which is digits after an optional "-". Returns nothing for other text and
/// for a value that does not fit.
template <class Integer> [[nodiscard]] std::optional<Integer> wholeNumber(std::string_view text) {
    Integer number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

} // namespace kvex::host
