// A row of the table of commands. The parser, the help, the manual page, the completions and
// docs/commands.md are made from these rows.
#pragma once

#include <span>
#include <string_view>

namespace kvex::host {

struct Request;

/// What a shell offers for a word or for the value of an option.
enum class Completes { nothing, file, command };

/// An option of a command. Options of the same name are alike in all commands: with a value in all
/// of them, or in none.
struct Option {
    /// With its dashes: "--format".
    std::string_view name;
    /// The name of its value in capital letters; "" for an option without one, and with choices.
    std::string_view value;
    /// What it does, without a capital letter and a full stop.
    std::string_view help;
    Completes completes = Completes::nothing;
    /// The only values that it takes; empty when it takes others as well.
    std::span<const std::string_view> choices = {};

    [[nodiscard]] constexpr bool takesValue() const { return !value.empty() || !choices.empty(); }
};

/// A word that a command takes after its name.
struct Word {
    /// In capital letters.
    std::string_view name;
    bool isOptional = false;
    /// Only the last word of a command may repeat.
    bool repeats = false;
    Completes completes = Completes::nothing;
};

struct ExitStatus {
    int status;
    std::string_view meaning;
};

/// Texts are in UTF-8. `description` and `example` are lines that end in a newline. Paragraphs of
/// the description are separated by empty lines. A line of it that begins with a blank is shown as
/// it stands.
struct Command {
    /// One word, or two as in "contacts import".
    std::string_view name;
    std::span<const Word> words;
    std::span<const Option> options;
    /// What it does, without a capital letter and a full stop.
    std::string_view summary;
    std::string_view description;
    /// Lines that begin with "$ " are typed, and the others are the output. docs/commands.md shows
    /// the examples one after the other, and a test types them in that order.
    std::string_view example;
    /// Returns the exit status, or raises a Failure.
    int (*run)(const Request &request);
    /// Empty when the exit statuses have their usual meaning.
    std::span<const ExitStatus> statuses = {};
};

/// Options that several commands take.
inline constexpr Option databaseOption{
    .name = "--database",
    .value = "CONNECTION|PATH",
    .help = "the database: connection string or SQLite file",
    .completes = Completes::file,
};
inline constexpr Option userOption{
    .name = "--user",
    .value = "ID",
    .help = "the user whose contacts to use (default: 1)",
};
inline constexpr Option logOption{
    .name = "--log",
    .value = "FILE",
    .help = "the file in which to log errors",
    .completes = Completes::file,
};

} // namespace kvex::host
