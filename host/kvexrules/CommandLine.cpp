#include "host/kvexrules/CommandLine.h"

#include "host/kvexrules/CommandNames.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/Help.h"
#include "host/suite/ShownText.h"
#include "platform/Text.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <cstring>

namespace kvex::host {
namespace {

/// Names the general help when the command is not known.
[[noreturn]] void refuse(const std::string &what, const Command *command) {
    const std::string name = command == nullptr ? "" : " " + std::string(command->name);
    throw Failure(what + " See: kvexrules help" + name);
}

[[noreturn]] void refuseMissingValue(const Option &option, const Command *command) {
    refuse("The option " + std::string(option.name) + " needs a value: " + formOf(option) + ".",
           command);
}

/// CLI11 knows the options of all commands. Its own subcommands would not do: they take options
/// only after their names.
class Parser {
public:
    Parser(std::span<const char *const> arguments, CommandTable commands)
        : arguments_(arguments.begin(), arguments.end()), commands_(commands) {
        app_.set_help_flag("-h,--help");
        app_.set_version_flag("--version", std::string());
        for (const Command *command : commands) {
            for (const Option &option : command->options) {
                declare(option);
            }
        }
        // Unless the number of words is fixed, CLI11 splits "[a,b]" into two words.
        words_ = app_.add_option("words")
                     ->expected(static_cast<int>(std::max<std::size_t>(arguments.size(), 1)))
                     ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    }

    Request request() {
        refuseSurplusSigns();
        try {
            app_.parse(std::vector<std::string>(arguments_.rbegin(), arguments_.rend()));
        } catch (const CLI::CallForHelp &) {
            return {&commandCalled("help"), {}, words_->results()};
        } catch (const CLI::CallForVersion &) {
            return {&commandCalled("version"), {}, {}};
        } catch (const CLI::ExtrasError &) {
            refuseUnknownOption(app_.remaining().front());
        } catch (const CLI::ArgumentMismatch &) {
            // Only the last argument can lack its value.
            refuseMissingValue(*optionNamed(arguments_.back()), called());
        }
        Request request{nullptr, {}, words_->results()};
        request.command = &takeCommand(request.words, commands_);
        readOptions(request);
        return request;
    }

private:
    /// The option of that name in a command that the arguments seem to name, or else in any one.
    const Option *optionNamed(std::string_view name) const {
        const Option *named = nullptr;
        for (const Command *command : commands_) {
            const auto found = std::ranges::find(command->options, name, &Option::name);
            if (found != command->options.end() && (named == nullptr || seemsNamed(*command))) {
                named = &*found;
            }
        }
        return named;
    }

    bool seemsNamed(const Command &command) const {
        const std::string_view firstWord = command.name.substr(0, command.name.find(' '));
        return std::ranges::find(arguments_, firstWord) != arguments_.end();
    }

    void declare(const Option &option) {
        const std::string name(option.name);
        if (app_.get_option_no_throw(name) != nullptr) {
            return;
        }
        if (option.takesValue()) {
            app_.add_option(name)->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
        } else {
            app_.add_flag(name);
        }
    }

    /// CLI11 takes "--all=" for "--all", and the next argument as the value of "--log=".
    void refuseSurplusSigns() {
        for (auto next = arguments_.begin(); next != arguments_.end() && *next != "--"; ++next) {
            const std::size_t sign = next->find('=');
            const Option *option = optionNamed(next->substr(0, sign));
            if (option == nullptr) {
                continue;
            }
            if (sign == std::string::npos) {
                // The next argument is the value, whatever it is.
                next += option->takesValue() && next + 1 != arguments_.end() ? 1 : 0;
            } else if (!option->takesValue()) {
                refuse("The option " + std::string(option->name) + " takes no value.", nullptr);
            } else if (sign + 1 == next->size()) {
                refuseMissingValue(*option, nullptr);
            }
        }
    }

    [[noreturn]] void refuseUnknownOption(const std::string &argument) {
        const std::string name = argument.substr(0, argument.find('='));
        const Command *command = called();
        std::vector<std::string_view> names;
        for (const Command *other : commands_) {
            if (other == command || command == nullptr) {
                std::ranges::transform(other->options, std::back_inserter(names), &Option::name);
            }
        }
        refuse("There is no option " + name + "." + nearest(name, names), command);
    }

    /// The command that the words read so far begin with, if they do.
    const Command *called() {
        std::vector<std::string> words = words_->results();
        try {
            return &takeCommand(words, commands_);
        } catch (const Failure &) {
            return nullptr;
        }
    }

    const Command &commandCalled(std::string_view name) {
        return **std::ranges::find(commands_, name, &Command::name);
    }

    void readOptions(Request &request) {
        for (const CLI::Option *given : app_.parse_order()) {
            if (given == words_) {
                continue;
            }
            const std::string name = given->get_name();
            const auto &options = request.command->options;
            const auto option = std::ranges::find(options, name, &Option::name);
            if (option == options.end()) {
                refuse("The command " + std::string(request.command->name) + " has no option " +
                           name + ".",
                       request.command);
            }
            const std::string value = option->takesValue() ? given->results().back() : "";
            if (option->takesValue() && value.empty()) {
                refuseMissingValue(*option, request.command);
            }
            request.options.insert_or_assign(name, value);
        }
    }

    std::vector<std::string> arguments_;
    CommandTable commands_;
    CLI::App app_;
    CLI::Option *words_;
};

void requireChoices(const Request &request) {
    for (const Option &option : request.command->options) {
        const std::string value = request.value(option);
        if (request.has(option) && !option.choices.empty() &&
            std::ranges::find(option.choices, value) == option.choices.end()) {
            const std::string kind(option.name.substr(2));
            throw Failure("There is no " + kind + " \"" + value + "\". The " + kind + "s are " +
                          joined(option.choices, "and") + ".");
        }
    }
}

void requireWords(const Request &request) {
    const Command &command = *request.command;
    const auto &words = command.words;
    const auto missing = static_cast<std::size_t>(
        std::ranges::count_if(words, [](const Word &word) { return !word.isOptional; }));
    if (request.words.size() < missing) {
        const Word &word = words[request.words.size()];
        refuse("The command " + std::string(command.name) + " needs " + std::string(word.name) +
                   ", as in: kvexrules " + formOf(command) + ".",
               &command);
    }
    const bool repeats = !words.empty() && words.back().repeats;
    if (request.words.size() > words.size() && !repeats) {
        refuse("The command " + std::string(command.name) + " does not take " +
                   inQuotes(request.words[words.size()]) + ".",
               &command);
    }
}

} // namespace

Request parseArguments(std::span<const char *const> arguments, CommandTable commands) {
    Request request = Parser(arguments, commands).request();
    requireChoices(request);
    requireWords(request);
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

} // namespace kvex::host
