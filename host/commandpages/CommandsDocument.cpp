#include "host/commandpages/CommandPages.h"
#include "host/kvexrules/Help.h"
#include "host/kvexrules/TextBlocks.h"

#include <algorithm>

namespace kvex::host {
namespace {

constexpr std::size_t pageWidth = 100;

/// The text for Markdown, which reads "\" as an escape and "<" as the beginning of a tag.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char letter : text) {
        result += letter == '\\' || letter == '<' ? "\\" : "";
        result += letter;
    }
    return result;
}

std::string fenced(std::string_view kind, std::string_view lines) {
    return "\n```" + std::string(kind) + "\n" + std::string(lines) + "```\n";
}

std::string bodyOf(std::string_view text) {
    std::string body;
    for (const TextBlock &block : blocksOf(text)) {
        std::string lines;
        if (block.isLiteral) {
            for (const std::string &line : block.lines) {
                lines += line.substr(2) + "\n";
            }
            body += fenced("", lines);
            continue;
        }
        for (const std::string &line : wrapped(escaped(block.lines.front()), pageWidth)) {
            lines += line + "\n";
        }
        body += "\n" + lines;
    }
    return body;
}

std::string linkTo(std::string_view name) {
    std::string anchor(name);
    std::ranges::replace(anchor, ' ', '-');
    return "[" + std::string(name) + "](#" + anchor + ")";
}

std::string sectionOf(const Command &command) {
    std::string text = "\n## " + std::string(command.name) + "\n\n`kvexrules " + formOf(command) +
                       "`\n" + bodyOf(command.description);
    text += command.options.empty() ? "" : "\n";
    for (const Option &option : command.options) {
        text += "- `" + formOf(option) + "`: " + escaped(option.help) + "\n";
    }
    text += command.statuses.empty() ? "" : "\n| exit status | |\n|---|---|\n";
    for (const ExitStatus &status : command.statuses) {
        text += "| " + std::to_string(status.status) + " | " + escaped(status.meaning) + " |\n";
    }
    return text + fenced("console", command.example);
}

} // namespace

std::string commandsDocument(CommandTable commands) {
    std::string text = R"(# Commands

<!-- Made from the table of commands. After a change of the table, copy build/dev/pages/commands.md
here. -->

`kvexrules` opens the rule editor and serves operators at a terminal. Without a command it does what
`kvexrules )" + std::string(commands.front()->name) +
                       R"(` does. `kvexrules help COMMAND` prints what this page says.

| command | |
|---|---|
)";
    for (const Command *command : commands) {
        text += "| " + linkTo(command->name) + " | " + escaped(command->summary) + " |\n";
    }
    text += R"(
The examples on this page follow each other. They begin with the sample database:
)" + fenced("console", "$ kvexrules init --sample\n"
                       "ready: /home/you/.local/share/kvex/rules.db\n");
    for (const Command *command : commands) {
        text += sectionOf(*command);
    }
    for (const HelpSection &section : helpSections()) {
        text += "\n## " + std::string(section.title) + "\n" + bodyOf(section.text);
    }
    return text;
}

} // namespace kvex::host
