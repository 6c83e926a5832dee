// The arguments of the program: a command, its options, its words, and numbers among them.
#pragma once

#include <charconv>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

enum class Option { database, user, log, rule, format, all, replace, sample };

struct OptionDescription {
    Option option;
    std::string_view name;
    /// The name of its value in the help; "" for an option without one.
    std::string_view value;
    std::string_view help;
};

struct Request;

struct CommandDescription {
    std::string_view name;
    /// The command's words and its own options, as the help shows them.
    std::string_view form;
    std::string_view help;
    std::vector<Option> options;
    bool takesWords;
    /// Returns the exit status, or raises a Failure.
    int (*run)(const Request &request);
};

struct Request {
    const CommandDescription *command;
    std::map<Option, std::string> options;
    std::vector<std::string> words;

    [[nodiscard]] bool has(Option option) const { return options.contains(option); }
    /// "" when the user did not give it.
    [[nodiscard]] std::string value(Option option) const {
        const auto found = options.find(option);
        return found == options.end() ? std::string() : found->second;
    }
};

/// Reads the arguments after the program's name. The first word is the command; without a word it
/// is the first of `commands`. Options may stand anywhere, as "--name value" or "--name=value". If
/// one is given twice, the last counts. After "--" every argument is a word. "--help" and "-h" mean
/// the command "help", and "--version" means "version".
///
/// Raises a Failure for an unknown command or option, and for an option of another command. A
/// missing value and words that the command does not take are Failures as well.
[[nodiscard]] Request parseArguments(std::span<const char *const> arguments,
                                     std::span<const CommandDescription> commands,
                                     std::span<const OptionDescription> options);

/// Writes "***" over the passwords in `arguments`, because every user can list the arguments of a
/// process. Afterwards the arguments no longer hold the passwords, so read them first.
void hidePasswords(std::span<char *const> arguments);

/// The text of the command "help".
[[nodiscard]] std::string helpText(std::span<const CommandDescription> commands,
                                   std::span<const OptionDescription> options);

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
