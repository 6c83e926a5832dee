#include "host/commandpages/CommandPages.h"
#include "host/commandpages/ShellWords.h"

namespace kvex::host {
namespace {

constexpr std::string_view frame =
    R"fish(# Completion of kvexrules in fish. Made from the table of commands of kvexrules.

# The words before the cursor, without options and their values.
function __kvexrules_words
    set -l words
    set -l option
    set -l tokens (commandline -opc)
    for word in $tokens[2..-1]
        if test -n "$option"
            set option
            continue
        end
        switch $word
            case @VALUED@
                set option $word
            case '-*'
            case '*'
                set -a words $word
        end
    end
    echo "$words"
end

# True when the words are one of the arguments.
function __kvexrules_at
    contains -- (__kvexrules_words) $argv
end

# True when the words begin with the argument.
function __kvexrules_in
    string match -q -r -- "^$argv(?: |\$)" (__kvexrules_words)
end

complete -c kvexrules -f
complete -c kvexrules -l help -s h -d 'explain the command'
)fish";

std::string offer(const std::string &condition, const std::string &what,
                  std::string_view explanation) {
    return "complete -c kvexrules -n " + quoted(condition) + " " + what +
           (explanation.empty() ? "" : " -d " + quoted(explanation)) + "\n";
}

std::string optionOffer(const std::string &condition, const Option &option) {
    std::string what = "-l " + std::string(option.name.substr(2));
    if (!option.choices.empty()) {
        std::vector<std::string> choices(option.choices.begin(), option.choices.end());
        what += " -x -a " + quoted(joinedBy(" ", choices));
    } else if (option.takesValue()) {
        what += option.completes == Completes::file ? " -r -F" : " -x";
    }
    return offer(condition, what, option.help);
}

std::string offersFor(const Command &command, bool isFirst) {
    const std::string name(command.name);
    const std::string inCommand = "__kvexrules_in \"" + name + "\"";
    std::string text;
    for (const Option &option : command.options) {
        text += optionOffer(inCommand + (isFirst ? "; or __kvexrules_at \"\"" : ""), option);
    }
    if (!command.words.empty() && command.words.back().completes == Completes::file) {
        text += offer(command.words.back().repeats ? inCommand : "__kvexrules_at \"" + name + "\"",
                      "-F", "");
    }
    return text;
}

} // namespace

std::string fishCompletion(CommandTable commands) {
    std::string text(frame);
    fillIn(text, "@VALUED@", joinedBy(" ", optionsWithValue(commands)));
    const std::string help(commandThatTakesCommands(commands));
    for (const FirstWord &first : firstWords(commands)) {
        const std::string word(first.word);
        text += offer("__kvexrules_at \"\" " + help, "-a " + word, first.summary);
        for (const Command *command : first.under) {
            text += offer("__kvexrules_at " + word + " \"" + help + " " + word + "\"",
                          "-a " + std::string(secondWord(*command)), command->summary);
        }
    }
    for (const Command *command : commands) {
        text += offersFor(*command, command == commands.front());
    }
    return text;
}

} // namespace kvex::host
