#include "host/commandpages/CommandPages.h"
#include "host/commandpages/ShellWords.h"

namespace kvex::host {
namespace {

/// A word that a shell offers, and what it says about it.
struct Offer {
    std::string_view word;
    std::string_view explanation;
};
using Offers = std::vector<Offer>;

/// How bash or zsh says what to complete. The frame has marks for what the commands decide.
struct Shell {
    std::string_view frame;
    std::string_view caseBegin;
    std::string_view offerFiles;
    std::string (*offerChoices)(const Offers &choices);
    std::string (*offerOptions)(const Offers &options);
    std::string (*offerCommands)(const Offers &commands);
};

constexpr std::string_view bashFrame =
    R"(# Completion of kvexrules in bash. Made from the table of commands of kvexrules.

_kvexrules() {
    local cur=${COMP_WORDS[COMP_CWORD]} command='' option='' only_words='' help='' word offered=''
    local -i i count=0
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        if [[ $word == [=:] ]]; then
            # Bash makes words of a value at these signs.
            if [[ -z $option ]]; then
                i+=1
            fi
        elif [[ -n $option ]]; then
            option=''
        elif [[ -z $only_words && $word == -- ]]; then
            only_words=1
        elif [[ -z $only_words && $word == -* ]]; then
            case $word in
            @VALUED@) option=$word ;;
            esac
        elif [[ -z $command$help && $word == @HELP@ ]]; then
            help=1
        elif [[ -z $command@GROUPS@ ]]; then
            command+=${command:+ }$word
        else
            count+=1
        fi
    done
    if [[ $cur == = ]]; then
        cur=''
    fi
    if [[ -n $option ]]; then
        case "$command $option" in
@VALUES@        *)
            compopt +o default
            return
            ;;
        esac
    elif [[ -z $only_words && $cur == -* ]]; then
        case $command in
@OPTIONS@        esac
        offered+=' --help'
    else
        case "$command:$count" in
        ':0') @FIRST@ ;;
@WORDS@        esac
    fi
    compopt +o default
    mapfile -t COMPREPLY < <(compgen -W "$offered" -- "$cur")
}

# Bash completes files itself when it is offered nothing.
complete -o default -F _kvexrules kvexrules
)";

constexpr std::string_view zshFrame = R"(#compdef kvexrules
# Completion of kvexrules in zsh. Made from the table of commands of kvexrules.

_kvexrules() {
    local command='' option='' only_words='' help='' word
    local -i i count=0
    local -a offered
    for ((i = 2; i < CURRENT; i++)); do
        word=${words[i]}
        if [[ -n $option ]]; then
            option=''
        elif [[ -z $only_words && $word == -- ]]; then
            only_words=1
        elif [[ -z $only_words && $word == -* ]]; then
            case $word in
                (@VALUED@) option=$word ;;
            esac
        elif [[ -z $command$help && $word == @HELP@ ]]; then
            help=1
        elif [[ -z $command@GROUPS@ ]]; then
            command+=${command:+ }$word
        else
            count+=1
        fi
    done
    if [[ -z $option$only_words && $PREFIX == --*=* ]]; then
        option=${PREFIX%%=*}
        compset -P 1 '*='
    fi
    if [[ -n $option ]]; then
        case "$command $option" in
@VALUES@        esac
    elif [[ -z $only_words && $PREFIX == -* ]]; then
        case $command in
@OPTIONS@        esac
        offered+=('--help:explain the command')
        _describe -o option offered
    else
        case "$command:$count" in
            (':0') @FIRST@ ;;
@WORDS@        esac
    fi
}

_kvexrules "$@"
)";

std::string bashOffer(const Offers &offers) {
    std::vector<std::string> words;
    for (const Offer &offer : offers) {
        words.emplace_back(offer.word);
    }
    return "offered=" + quoted(joinedBy(" ", words));
}

constexpr Shell bash{bashFrame, "        ", "return", bashOffer, bashOffer, bashOffer};

std::string zshChoices(const Offers &choices) {
    std::string text = "compadd --";
    for (const Offer &choice : choices) {
        text += " " + std::string(choice.word);
    }
    return text;
}

std::string zshList(const Offers &offers) {
    std::vector<std::string> entries;
    for (const Offer &offer : offers) {
        entries.push_back(quoted(std::string(offer.word) + ":" + std::string(offer.explanation)));
    }
    return "offered=(" + joinedBy(" ", entries) + ")";
}

std::string zshCommands(const Offers &commands) {
    return zshList(commands) + "; _describe command offered";
}

constexpr Shell zsh{zshFrame, "            (", "_files", zshChoices, zshList, zshCommands};

std::string oneCase(const Shell &shell, const std::string &pattern, std::string_view action) {
    return std::string(shell.caseBegin) + pattern + ") " + std::string(action) + " ;;\n";
}

/// What to offer for the value of each option.
std::string valueCases(const Shell &shell, const Command &command, bool isFirst) {
    std::string cases;
    for (const Option &option : command.options) {
        const std::string name(option.name);
        const std::string pattern =
            quoted(std::string(command.name) + " " + name) + (isFirst ? " | ' " + name + "'" : "");
        Offers choices;
        for (const std::string_view choice : option.choices) {
            choices.push_back({choice, ""});
        }
        if (!choices.empty()) {
            cases += oneCase(shell, pattern, shell.offerChoices(choices));
        } else if (option.completes == Completes::file) {
            cases += oneCase(shell, pattern, shell.offerFiles);
        }
    }
    return cases;
}

std::string optionCase(const Shell &shell, const Command &command, bool isFirst) {
    Offers options;
    for (const Option &option : command.options) {
        options.push_back({option.name, option.help});
    }
    return options.empty() ? ""
                           : oneCase(shell, quoted(command.name) + (isFirst ? " | ''" : ""),
                                     shell.offerOptions(options));
}

/// Where a file is due among the words of the command.
std::string fileCases(const Shell &shell, const Command &command) {
    const std::string before = std::string(command.name) + ":";
    std::string cases;
    for (std::size_t count = 0; count < command.words.size(); ++count) {
        const Word &word = command.words[count];
        if (word.completes == Completes::file) {
            cases += oneCase(
                shell, word.repeats ? quoted(before) + "*" : quoted(before + std::to_string(count)),
                "[[ -n $help ]] || " + std::string(shell.offerFiles));
        }
    }
    return cases;
}

std::string completion(const Shell &shell, CommandTable commands) {
    std::string values;
    std::string options;
    std::string words;
    for (const Command *command : commands) {
        const bool isFirst = command == commands.front();
        values += valueCases(shell, *command, isFirst);
        options += optionCase(shell, *command, isFirst);
        words += fileCases(shell, *command);
    }
    Offers firsts;
    std::string groups;
    const std::vector<FirstWord> allFirstWords = firstWords(commands);
    for (const FirstWord &first : allFirstWords) {
        firsts.push_back({first.word, first.summary});
        Offers seconds;
        for (const Command *command : first.under) {
            seconds.push_back({secondWord(*command), command->summary});
        }
        if (!seconds.empty()) {
            groups += " || $command == " + std::string(first.word);
            words += oneCase(shell, quoted(std::string(first.word) + ":0"),
                             shell.offerCommands(seconds));
        }
    }
    std::string text(shell.frame);
    fillIn(text, "@VALUED@", joinedBy(" | ", optionsWithValue(commands)));
    fillIn(text, "@HELP@", commandThatTakesCommands(commands));
    fillIn(text, "@GROUPS@", groups);
    fillIn(text, "@VALUES@", values);
    fillIn(text, "@OPTIONS@", options);
    fillIn(text, "@FIRST@", shell.offerCommands(firsts));
    fillIn(text, "@WORDS@", words);
    return text;
}

} // namespace

std::string bashCompletion(CommandTable commands) {
    return completion(bash, commands);
}

std::string zshCompletion(CommandTable commands) {
    return completion(zsh, commands);
}

} // namespace kvex::host
