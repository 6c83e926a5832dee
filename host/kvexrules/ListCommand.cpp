#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleList.h"
#include "host/kvexrules/Settings.h"

#include <array>

namespace kvex::host {
namespace {

int list(const Request &request) {
    print(listText(rulesOf(settingsFor(request))));
    return exit_status::done;
}

constexpr std::array options{databaseOption};

} // namespace

constexpr Command listCommand{
    .name = "list",
    .words = {},
    .options = options,
    .summary = "list the rules in the order in which they apply",
    .description = R"(Prints one line for each rule, in the order in which the rules apply. The
columns are the position, "on" or "off", the id and the name.

Blanks separate the columns; the name is the rest of the line. Characters that could
break the line appear as \n, \t, \\ or \u{HEX}.
)",
    .example = R"($ kvexrules list | tail -4
4  on   4  Strangers
5  off  5  Advertisements
6  on   6  No services
7  on   7  Everything to the system
)",
    .run = list,
};

} // namespace kvex::host
