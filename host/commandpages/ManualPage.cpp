#include "host/commandpages/CommandPages.h"
#include "host/kvexrules/Help.h"
#include "host/kvexrules/TextBlocks.h"

#include <cctype>

namespace kvex::host {
namespace {

/// The text for roff, which reads "\" as an escape, "-" as a hyphen, and "." and "'" as requests at
/// the beginning of a line.
std::string escaped(std::string_view text) {
    std::string result;
    for (const char letter : text) {
        switch (letter) {
        case '\\':
            result += "\\e";
            break;
        case '-':
            result += "\\-";
            break;
        case '~':
            result += "\\(ti";
            break;
        case '^':
            result += "\\(ha";
            break;
        case '\'':
            result += "\\(aq";
            break;
        case '`':
            result += "\\(ga";
            break;
        case '.':
            result += result.empty() ? "\\&." : ".";
            break;
        default:
            result += letter;
        }
    }
    return result;
}

std::string bold(std::string_view text) {
    return "\\fB" + escaped(text) + "\\fR";
}

/// Lines as they stand, indented. mandoc wants no tabs outside of tables of its own.
template <class Lines> std::string literal(const Lines &lines) {
    std::string text = ".RS 4\n.nf\n";
    for (const std::string_view line : lines) {
        for (const char letter : escaped(line)) {
            text += letter == '\t' ? std::string(4, ' ') : std::string(1, letter);
        }
        text += '\n';
    }
    return text + ".fi\n.RE\n";
}

/// A paragraph in short lines, which escapes make longer.
std::string paragraph(std::string_view text) {
    constexpr std::size_t width = 60;
    std::string lines;
    for (const std::string &line : wrapped(text, width)) {
        lines += escaped(line) + "\n";
    }
    return lines;
}

/// The blocks of a text. The heading before them begins the first paragraph.
std::string bodyOf(std::string_view text) {
    std::string body;
    for (const TextBlock &block : blocksOf(text)) {
        body += body.empty() ? "" : ".PP\n";
        body += block.isLiteral ? literal(block.lines) : paragraph(block.lines.front());
    }
    return body;
}

std::string row(const std::string &name, std::string_view explanation) {
    return ".TP\n" + name + "\n" + paragraph(explanation);
}

std::string sectionOf(const Command &command) {
    std::string text = ".SS " + escaped(formOf(command)) + "\n" + bodyOf(command.description);
    for (const Option &option : command.options) {
        const std::string form = formOf(option);
        text += row(bold(option.name) + escaped(form.substr(option.name.size())), option.help);
    }
    if (!command.statuses.empty()) {
        text += ".PP\nExit status:\n";
    }
    for (const ExitStatus &status : command.statuses) {
        text += row(std::to_string(status.status), status.meaning);
    }
    return text + ".PP\nExample:\n.PP\n" + literal(linesOf(command.example));
}

std::string inCapitals(std::string_view title) {
    std::string text;
    for (const char letter : title) {
        text += static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    }
    return text;
}

} // namespace

std::string manualPage(CommandTable commands, std::string_view date) {
    std::string text = ".\\\" Made from the table of commands of kvexrules.\n"
                       ".TH KVEXRULES 1 " +
                       std::string(date) +
                       " \"kvexrules " KVEX_VERSION "\" \"User Commands\"\n"
                       ".SH NAME\n"
                       "kvexrules \\- edit and list the rules of an SMS notification server\n"
                       ".SH SYNOPSIS\n" +
                       bold("kvexrules") +
                       " [\\fICOMMAND\\fR] [\\fIOPTION\\fR...] [\\fIWORD\\fR...]\n"
                       ".SH DESCRIPTION\n"
                       "A rule says what the server does with an incoming message. This program\n"
                       "opens the rule editor, and serves operators at a terminal. Without a\n"
                       "command it does what " +
                       bold(commands.front()->name) + " does.\n.SH COMMANDS\n";
    for (const Command *command : commands) {
        text += sectionOf(*command);
    }
    for (const HelpSection &section : helpSections()) {
        text += ".SH " + escaped(inCapitals(section.title)) + "\n" + bodyOf(section.text);
    }
    return text;
}

} // namespace kvex::host
