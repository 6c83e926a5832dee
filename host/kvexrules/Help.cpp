#include "host/kvexrules/Help.h"

#include "host/kvexrules/TextBlocks.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kvex::host {
namespace {

constexpr std::size_t pageWidth = 80;
constexpr std::size_t widestName = 30;

/// Breaks `text` between words. It begins in `column`, and so do its other lines.
std::string wrappedIn(std::size_t column, std::string_view text) {
    std::string page;
    for (const std::string &line : wrapped(text, pageWidth - column)) {
        page += (page.empty() ? "" : std::string(column, ' ')) + line + "\n";
    }
    return page;
}

/// Breaks the paragraphs of `text`. An empty line follows each block, except before the lines that
/// belong to a paragraph.
std::string pageOf(std::string_view text) {
    std::string page;
    for (const TextBlock &block : blocksOf(text)) {
        page += page.empty() || block.isLiteral ? "" : "\n";
        for (const std::string &line : block.lines) {
            page += block.isLiteral ? line + "\n" : wrappedIn(0, line);
        }
    }
    return page;
}

/// A row of a table with two columns: `name` from the third character on, then its explanation.
std::string row(const std::string &name, std::string_view explanation, std::size_t column) {
    std::string text = "  " + name;
    const std::size_t width = charactersIn(text);
    if (width + 2 > column) {
        text += "\n" + std::string(column, ' ');
    } else {
        text += std::string(column - width, ' ');
    }
    return text + wrappedIn(column, explanation);
}

/// The column in which the explanations of these names begin.
template <class Names> std::size_t columnAfter(const Names &names, std::size_t widest) {
    std::size_t column = 0;
    for (const std::string &name : names) {
        const std::size_t width = charactersIn(name);
        column = width > widest ? column : std::max(column, width);
    }
    return column + 4;
}

constexpr std::array sections{
    HelpSection{"Database", R"(The database is the first of these that is set:
  --database CONNECTION|PATH
  $KVEX_DATABASE
  "database" in kvex/kvexrules.conf, which is in $XDG_CONFIG_HOME (~/.config)
  kvex/rules.db in $XDG_DATA_HOME (~/.local/share), your own database

kvexrules.conf has lines of "key = value" with the keys database, user and log.
A line that begins with "#" is a comment.

For a database on a server, give an ODBC connection string, such as
  Driver={PostgreSQL Unicode};Server=db;Database=sms;UID=editor;PWD=...
Put the password into kvexrules.conf or $KVEX_DATABASE. After --database, other
users may see it.
)"},
    HelpSection{"Options", R"(Options may stand before and after the command and
its words. "--name value" and "--name=value" mean the same. After "--" no argument
is an option.
)"},
    HelpSection{"Terminal", R"(On a terminal, long work shows its progress, and "show" uses
colours. It uses none when $NO_COLOR is set, or when $TERM is "dumb". A pipe or a file
gets neither, unless --format asks for colours.
)"},
    HelpSection{"Exit status", R"(  0   done
  1   something was not found or was skipped, or a request was refused
  2   the command line was wrong, or nothing could be read

When the reader of the output goes away early, as in "kvexrules list | head -1",
the command ends quietly with 0.
)"},
};

} // namespace

std::string formOf(const Option &option) {
    std::string form =
        std::string(option.name) + (option.takesValue() ? " " : "") + std::string(option.value);
    for (const std::string_view choice : option.choices) {
        form += (choice == option.choices.front() ? "" : "|") + std::string(choice);
    }
    return form;
}

std::string formOf(const Command &command) {
    std::string form(command.name);
    form += command.options.empty() ? "" : " [OPTION...]";
    for (const Word &word : command.words) {
        const std::string shown = std::string(word.name) + (word.repeats ? "..." : "");
        form += word.isOptional ? " [" + shown + "]" : " " + shown;
    }
    return form;
}

std::string generalHelp(CommandTable commands) {
    std::vector<std::string> names;
    for (const Command *command : commands) {
        names.emplace_back(command->name);
    }
    std::string text = "Usage: kvexrules [COMMAND] [OPTION...] [WORD...]\n\nCommands (" +
                       names.front() + " if you name none):\n";
    const std::size_t column = columnAfter(names, widestName);
    for (const Command *command : commands) {
        text += row(std::string(command->name), command->summary, column);
    }
    text += "\n\"kvexrules help COMMAND\" and \"kvexrules COMMAND --help\" explain a command.\n";
    for (const HelpSection &section : sections) {
        text += "\n" + std::string(section.title) + ":\n" + pageOf(section.text);
    }
    return text;
}

std::string helpFor(const Command &command) {
    std::string text = "Usage: kvexrules " + formOf(command) + "\n\n" + pageOf(command.description);
    if (!command.options.empty()) {
        std::vector<std::string> forms;
        for (const Option &option : command.options) {
            forms.push_back(formOf(option));
        }
        const std::size_t column = columnAfter(forms, widestName);
        text += "\nOptions:\n";
        for (const Option &option : command.options) {
            text += row(formOf(option), option.help, column);
        }
    }
    if (!command.statuses.empty()) {
        text += "\nExit status:\n";
        for (const ExitStatus &status : command.statuses) {
            text += row(std::to_string(status.status), status.meaning, 6);
        }
    }
    text += "\nExample:\n";
    for (const std::string_view line : linesOf(command.example)) {
        text += "  " + std::string(line) + "\n";
    }
    return text;
}

std::span<const HelpSection> helpSections() {
    return sections;
}

} // namespace kvex::host
