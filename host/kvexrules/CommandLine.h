// What the user asked for: a command, its options and its words.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

enum class Option { database, user, log, rule, format, all, replace, sample };

struct OptionDescription {
    Option option;
    std::string_view name;
    /// What stands after it, as the help calls it; "" for an option that stands alone.
    std::string_view value;
    std::string_view help;
};

struct Request;

struct CommandDescription {
    std::string_view name;
    /// The command's words and own options, as the help shows them.
    std::string_view form;
    std::string_view help;
    std::vector<Option> options;
    bool takesWords;
    /// Gives the exit status, or raises a Failure.
    int (*run)(const Request &request);
};

struct Request {
    const CommandDescription *command;
    std::map<Option, std::string> options;
    std::vector<std::string> words;

    [[nodiscard]] bool has(Option option) const { return options.contains(option); }
    /// "" when it was not given.
    [[nodiscard]] std::string value(Option option) const {
        const auto found = options.find(option);
        return found == options.end() ? std::string() : found->second;
    }
};

/// Reads the arguments after the program's name: options, anywhere, as "--name value" or
/// "--name=value", of which the last counts; the first word is the command, and `commands`' first
/// one where there is no word. "--help" and "-h" mean the command "help", "--version" "version".
/// After "--" everything is a word. Raises a Failure for what nobody knows, for an option that
/// the command has not, a value that is missing and words where none belong.
[[nodiscard]] Request parseArguments(std::span<const char *const> arguments,
                                     std::span<const CommandDescription> commands,
                                     std::span<const OptionDescription> options);

/// Writes "***" over the passwords in `arguments`, for which the system lists each process's to
/// every user. Nothing may refer to them any more but who wants them without.
void hidePasswords(std::span<char *const> arguments);

/// The text of the command "help".
[[nodiscard]] std::string helpText(std::span<const CommandDescription> commands,
                                   std::span<const OptionDescription> options);

} // namespace kvex::host
