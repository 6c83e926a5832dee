#include "host/kvexrules/Commands.h"

#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleList.h"
#include "host/kvexrules/Settings.h"

#include <array>
#include <vector>

namespace kvex::host {

std::span<const CommandDescription> commands() {
    using enum Option;
    static const std::vector<CommandDescription> table{
        {"edit",
         "[--rule ID]",
         "open the rule editor; without --rule on a new rule",
         {database, user, log, rule},
         false,
         editCommand},
        {"list",
         "",
         "position, on or off, id and name of every rule in priority order",
         {database},
         false,
         listCommand},
        {"show",
         "ID… | --all",
         "the description of rules, with a blank line between two",
         {database, log, format, all},
         true,
         showCommand},
        {"contacts",
         "VERB…",
         "import, export, remove or list contacts, as told below",
         {database, user, format, replace},
         true,
         contactsCommand},
        {"init",
         "[--sample]",
         "create the tables, and sample data, where there are none",
         {database, sample},
         false,
         initCommand},
        {"register",
         "",
         "let hosts find the rule component by its class",
         {},
         false,
         registerCommand},
        {"unregister", "", "undo that", {}, false, unregisterCommand},
        {"help", "", "this text", {}, false, helpCommand},
        {"version", "", "the program's version", {}, false, versionCommand},
    };
    return table;
}

std::span<const OptionDescription> options() {
    using enum Option;
    static constexpr std::array table{
        OptionDescription{database, "--database", "CONNECTION|PATH",
                          "the database: a connection string or a SQLite file"},
        OptionDescription{user, "--user", "ID", "whose rules and contacts, 1 by default"},
        OptionDescription{log, "--log", "FILE", "where errors are logged"},
        OptionDescription{rule, "--rule", "ID", "the rule to open"},
        OptionDescription{format, "--format", "FORMAT",
                          "of rules text, ansi or html; of contacts vcard or csv"},
        OptionDescription{all, "--all", "", "show every rule"},
        OptionDescription{replace, "--replace", "", "let contacts export replace a file"},
        OptionDescription{sample, "--sample", "", "add users, accounts and rules to try out"},
    };
    return table;
}

int listCommand(const Request &request) {
    print(listText(rulesOf(settingsFor(request))));
    return exit_status::done;
}

int initCommand(const Request &request) {
    const Content content = request.has(Option::sample) ? Content::sample : Content::empty;
    print("ready: " + makeDatabase(settingsFor(request), content) + "\n");
    return exit_status::done;
}

int helpCommand(const Request & /*request*/) {
    print(helpText(commands(), options()) + R"(
The database is the one that --database names, else $KVEX_DATABASE, else the
setting "database" of kvex/kvexrules.conf in $XDG_CONFIG_HOME (~/.config), else
kvex/rules.db in $XDG_DATA_HOME (~/.local/share). That file holds lines of
"key = value" with the keys database, user and log, and comments after "#" at
the beginning of a line.

A server's database is named by an ODBC connection string, as in
  Driver={PostgreSQL Unicode};Server=db;Database=sms;UID=editor;PWD=...
A password belongs in that file, or in $KVEX_DATABASE: other users may see it
after --database.

"list" separates its columns by blanks; the name is the rest of the line, and
what could break the line is written as \n, \t, \\ or \u{HEX}. "contacts list"
separates them by tabs, and lists the contacts that belong to nobody as well.

"contacts import FILE" reads vCards of the versions 2.1, 3.0 and 4.0, and CSV whose
first row names its columns ("Name,Mobile"); "-" is standard input. What it skips is
named with its line; a contact that is there already is not added again. All
contacts are added or, when the database refuses one, none.
"contacts export [FILE]" writes what "contacts list" shows: as CSV into a file whose
name ends in .csv, else as vCards, to standard output without FILE or with "-". The
file is its owner's alone. One that exists is only replaced with --replace.
"contacts remove ID…" removes contacts that "contacts list" shows: all of them or,
when one is not there, none.

"edit" ends with the line "result: 99" when the user may have edited something,
"result: 1" when no edit was noted (rules may still have been removed), and
"result: 0" when the rules could not be opened. Whoever keeps rules in memory
reloads them after 99 and after 1. Where an SQLite file is missing, it offers to
make one.

Exit status: 0 done; 1 something was not found or skipped, or a request was refused;
2 wrong use, or nothing could be read.
)");
    return exit_status::done;
}

int versionCommand(const Request & /*request*/) {
    print("kvexrules " KVEX_VERSION "\n");
    return exit_status::done;
}

} // namespace kvex::host
