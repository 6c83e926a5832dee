#include "host/commandpages/ShellWords.h"

#include "host/kvexrules/CommandNames.h"

#include <algorithm>

namespace kvex::host {

std::vector<FirstWord> firstWords(CommandTable commands) {
    std::vector<FirstWord> words;
    for (const Command *command : commands) {
        const std::string_view word = command->name.substr(0, command->name.find(' '));
        if (std::ranges::find(words, word, &FirstWord::word) == words.end()) {
            std::vector<const Command *> under = commandsUnder(word, commands);
            std::vector<std::string_view> seconds(under.size());
            std::ranges::transform(under, seconds.begin(),
                                   [](const Command *other) { return secondWord(*other); });
            words.push_back({word,
                             under.empty() ? std::string(command->summary) : joined(seconds, "or"),
                             std::move(under)});
        }
    }
    return words;
}

std::string_view secondWord(const Command &command) {
    return command.name.substr(command.name.find(' ') + 1);
}

std::vector<std::string> optionsWithValue(CommandTable commands) {
    std::vector<std::string> names;
    for (const Command *command : commands) {
        for (const Option &option : command->options) {
            if (option.takesValue() && std::ranges::find(names, option.name) == names.end()) {
                names.emplace_back(option.name);
            }
        }
    }
    return names;
}

std::string_view commandThatTakesCommands(CommandTable commands) {
    const auto found = std::ranges::find_if(commands, [](const Command *command) {
        return !command->words.empty() && command->words.front().completes == Completes::command;
    });
    return (*found)->name;
}

std::string joinedBy(std::string_view separator, const std::vector<std::string> &words) {
    std::string text;
    for (const std::string &word : words) {
        text += (text.empty() ? "" : std::string(separator)) + word;
    }
    return text;
}

std::string quoted(std::string_view text) {
    std::string result = "'";
    for (const char letter : text) {
        result += letter == '\'' ? "'\\''" : std::string(1, letter);
    }
    return result + "'";
}

void fillIn(std::string &text, std::string_view mark, std::string_view part) {
    text.replace(text.find(mark), mark.size(), part);
}

} // namespace kvex::host
