#include "host/kvexrules/CommandLine.h"

#include "host/kvexrules/Failure.h"
#include "host/suite/ShownText.h"
#include "platform/Text.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace kvex::host {
namespace {

using Options = std::span<const OptionDescription>;
using Commands = std::span<const CommandDescription>;

[[noreturn]] void refuse(const std::string &what) {
    throw Failure(what + " See: kvexrules help");
}

/// Puts `word` in quotation marks, without anything after its first "=". The user may have
/// forgotten --database before a connection string, which holds a password.
std::string inQuotes(std::string_view word) {
    const std::size_t sign = word.find('=');
    const bool isWhole = sign == std::string_view::npos;
    return "\"" + std::string(word.substr(0, sign)) + (isWhole ? "\"" : "=…\"");
}

const CommandDescription &commandNamed(std::string_view name, Commands commands) {
    const auto found = std::ranges::find(commands, name, &CommandDescription::name);
    if (found == commands.end()) {
        refuse("There is no command " + inQuotes(name) + ".");
    }
    return *found;
}

/// One pass over the arguments.
class Reader {
public:
    Reader(std::span<const char *const> arguments, Options options)
        : arguments_(arguments), options_(options) {}

    void read() {
        while (!arguments_.empty()) {
            const std::string_view argument = next();
            if (onlyWords_ || !argument.starts_with('-') || argument == "-") {
                words.emplace_back(argument);
            } else if (argument == "--") {
                onlyWords_ = true;
            } else if (argument == "--help" || argument == "-h") {
                standIn = "help";
            } else if (argument == "--version") {
                standIn = "version";
            } else {
                readOption(argument);
            }
        }
    }

    std::map<Option, std::string> values;
    std::vector<std::string> words;
    /// The command that an option stands for, or "".
    std::string_view standIn;

private:
    std::string_view next() {
        const std::string_view argument = arguments_.front();
        arguments_ = arguments_.subspan(1);
        return argument;
    }

    void readOption(std::string_view argument) {
        const std::size_t sign = argument.find('=');
        const std::string name(argument.substr(0, sign));
        const auto found = std::ranges::find(options_, name, &OptionDescription::name);
        if (found == options_.end()) {
            refuse("There is no option " + name + ".");
        }
        if (found->value.empty() && sign != std::string_view::npos) {
            refuse("The option " + name + " takes no value.");
        }
        std::string_view value;
        if (sign != std::string_view::npos) {
            value = argument.substr(sign + 1);
        } else if (!found->value.empty() && !arguments_.empty()) {
            value = next();
        }
        if (value.empty() && !found->value.empty()) {
            refuse("The option " + name + " needs a value: " + name + " " +
                   std::string(found->value) + ".");
        }
        values.insert_or_assign(found->option, value);
    }

    std::span<const char *const> arguments_;
    Options options_;
    bool onlyWords_ = false;
};

/// Adds blanks up to `width` characters, and at least one. `text` is UTF-8.
std::string paddedTo(std::ptrdiff_t width, const std::string &text) {
    const auto characters = std::ranges::count_if(
        text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80; });
    const std::ptrdiff_t missing = std::max<std::ptrdiff_t>(width - characters, 1);
    return text + std::string(static_cast<std::size_t>(missing), ' ');
}

} // namespace

Request parseArguments(std::span<const char *const> arguments, Commands commands, Options options) {
    Reader reader(arguments, options);
    reader.read();
    if (!reader.standIn.empty()) {
        return {&commandNamed(reader.standIn, commands), {}, {}};
    }
    Request request{&commands.front(), std::move(reader.values), std::move(reader.words)};
    if (!request.words.empty()) {
        request.command = &commandNamed(request.words.front(), commands);
        request.words.erase(request.words.begin());
    }
    const std::string name(request.command->name);
    for (const OptionDescription &option : options) {
        if (request.has(option.option) &&
            std::ranges::find(request.command->options, option.option) ==
                request.command->options.end()) {
            refuse("The command " + name + " has no option " + std::string(option.name) + ".");
        }
    }
    if (!request.words.empty() && !request.command->takesWords) {
        refuse("The command " + name + " does not take " + inQuotes(request.words.front()) + ".");
    }
    return request;
}

void hidePasswords(std::span<char *const> arguments) {
    for (char *const argument : arguments) {
        const std::size_t room = std::strlen(argument);
        std::string shown = toUtf8(withoutPasswords(fromUtf8(argument)));
        shown.resize(room);
        std::ranges::copy(shown, argument);
    }
}

std::string helpText(Commands commands, Options options) {
    constexpr std::ptrdiff_t width = 36;
    std::string text = "Usage: kvexrules [COMMAND] [OPTION…]\n\nCommands (" +
                       std::string(commands.front().name) + " if you name none):\n";
    for (const CommandDescription &command : commands) {
        text +=
            paddedTo(width, "  " + std::string(command.name) + " " + std::string(command.form)) +
            std::string(command.help) + "\n";
    }
    text += "\nOptions:\n";
    for (const OptionDescription &option : options) {
        text += paddedTo(width, "  " + std::string(option.name) + " " + std::string(option.value)) +
                std::string(option.help) + "\n";
    }
    return text;
}

} // namespace kvex::host
