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
         "open the rule editor, on a new rule unless --rule names one",
         {database, user, log, rule},
         false,
         editCommand},
        {"list",
         "",
         "list all rules by priority: position, on or off, id, name",
         {database},
         false,
         listCommand},
        {"show",
         "ID… | --all",
         "describe rules, separated by a blank line",
         {database, log, format, all},
         true,
         showCommand},
        {"contacts",
         "VERB…",
         "import, export, remove or list contacts (see below)",
         {database, user, format, replace},
         true,
         contactsCommand},
        {"init",
         "[--sample]",
         "create missing tables; with --sample, fill empty ones",
         {database, sample},
         false,
         initCommand},
        {"register",
         "",
         "register the rule component, so that hosts find it",
         {},
         false,
         registerCommand},
        {"unregister",
         "",
         "remove the registration of the rule component",
         {},
         false,
         unregisterCommand},
        {"help", "", "print this text", {}, false, helpCommand},
        {"version", "", "print the program's version", {}, false, versionCommand},
    };
    return table;
}

std::span<const OptionDescription> options() {
    using enum Option;
    static constexpr std::array table{
        OptionDescription{database, "--database", "CONNECTION|PATH",
                          "the database: a connection string or an SQLite file"},
        OptionDescription{user, "--user", "ID", "the user whose contacts to use (default: 1)"},
        OptionDescription{log, "--log", "FILE", "the file in which to log errors"},
        OptionDescription{rule, "--rule", "ID", "the rule to open"},
        OptionDescription{format, "--format", "FORMAT",
                          "text, ansi or html for rules; vcard or csv for contacts"},
        OptionDescription{all, "--all", "", "show all rules"},
        OptionDescription{replace, "--replace", "", "replace an existing file (contacts export)"},
        OptionDescription{sample, "--sample", "", "add sample users, accounts and rules"},
    };
    return table;
}

int listCommand(const Request &request) {
    print(listText(rulesOf(settingsFor(request))));
    return exit_status::done;
}

int initCommand(const Request &request) {
    const Content content = request.has(Option::sample) ? Content::sample : Content::empty;
    printLine("ready: " + makeDatabase(settingsFor(request), content));
    return exit_status::done;
}

int helpCommand(const Request & /*request*/) {
    print(helpText(commands(), options()) + R"(
The database is the first of these that is set:
  --database CONNECTION|PATH
  $KVEX_DATABASE
  "database" in kvex/kvexrules.conf, which is in $XDG_CONFIG_HOME (~/.config)
  kvex/rules.db in $XDG_DATA_HOME (~/.local/share), your own database
kvexrules.conf has lines of "key = value" with the keys database, user and log. A line
that begins with "#" is a comment.

For a database on a server, give an ODBC connection string, such as
  Driver={PostgreSQL Unicode};Server=db;Database=sms;UID=editor;PWD=...
Put the password into kvexrules.conf or $KVEX_DATABASE. After --database, other users
may see it.

"list" separates its columns by blanks; the name is the rest of the line. Characters
that could break the line appear as \n, \t, \\ or \u{HEX}. "contacts list" separates
its columns by tabs. It also lists the contacts that belong to no user.

"contacts import FILE" reads vCards (versions 2.1, 3.0 and 4.0), or CSV whose first row
names the columns ("Name,Mobile"). "-" means standard input. The command reports the
line of each entry that it skips. It does not add a contact that is already there. If
the database refuses one contact, none is added.
"contacts export [FILE]" writes the contacts that "contacts list" shows: as CSV if the
file's name ends in .csv, else as vCards. Without FILE, or with "-", it writes to
standard output. Only you can read the file. An existing file is replaced only with
--replace.
"contacts remove ID…" removes contacts that "contacts list" shows. If one of the ids is
not there, none is removed.

The last line that "edit" prints is its result:
  result: 99   the user may have edited something
  result: 1    no edit was noted, but rules may have been removed
  result: 0    the rules could not be opened
A program that keeps the rules in memory must read them again after 99 and after 1. If
an SQLite file is missing, "edit" offers to make it.

Exit status:
  0   done
  1   something was not found or was skipped, or a request was refused
  2   the command line was wrong, or nothing could be read
)");
    return exit_status::done;
}

int versionCommand(const Request & /*request*/) {
    print("kvexrules " KVEX_VERSION "\n");
    return exit_status::done;
}

} // namespace kvex::host
