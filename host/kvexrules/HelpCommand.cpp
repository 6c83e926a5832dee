#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/CommandNames.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/Help.h"

#include <array>

namespace kvex::host {
namespace {

int help(const Request &request) {
    std::vector<std::string> words = request.words;
    if (words.empty()) {
        print(generalHelp(commands()));
        return exit_status::done;
    }
    const std::vector<const Command *> under = commandsUnder(words.front(), commands());
    if (words.size() > 1 || under.empty()) {
        print(helpFor(takeCommand(words, commands())));
        return exit_status::done;
    }
    std::string pages;
    for (const Command *command : under) {
        pages += (pages.empty() ? "" : "\n\n") + helpFor(*command);
    }
    print(pages);
    return exit_status::done;
}

constexpr std::array words{
    Word{.name = "COMMAND", .isOptional = true, .repeats = true, .completes = Completes::command}};

} // namespace

constexpr Command helpCommand{
    .name = "help",
    .words = words,
    .options = {},
    .summary = "explain a command, or list all of them",
    .description = R"(Explains the command with its options and an example. Without a name it lists
all commands, and says which database they use. "kvexrules COMMAND --help" and
"kvexrules --help" mean the same.
)",
    .example = R"($ kvexrules help unregister
Usage: kvexrules unregister

Removes what "kvexrules register" has registered.

Example:
  $ kvexrules unregister
  unregistered: .../libKVEXMessageRules.so
)",
    .run = help,
};

} // namespace kvex::host
