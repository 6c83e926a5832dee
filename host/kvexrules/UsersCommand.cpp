#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/TextColumns.h"
#include "host/rules/RuleRows.h"

#include <array>
#include <vector>

namespace kvex::host {
namespace {

int users(const Request &request) {
    const Settings settings = settingsFor(request);
    TextColumns lines({Align::right, Align::left});
    try {
        for (const NamedRow &user : readUsers(*openToRead(settings))) {
            lines.add({user.id, user.name});
        }
    } catch (const Error &error) {
        failFor(settings, error);
    }
    print(lines.text());
    return exit_status::done;
}

constexpr std::array options{databaseOption};

} // namespace

constexpr Command usersCommand{
    .name = "users",
    .words = {},
    .options = options,
    .summary = "list the users to whom rules can distribute messages",
    .description = R"(Prints one line for each user, with the id and the name, in the order of the
ids. Users who are marked as deleted are left out.

Blanks separate the columns; the name is the rest of the line. Characters that could
break the line appear as \n, \t, \\ or \u{HEX}.
)",
    .example = R"($ kvexrules users
1  SYSTEM
2  Asha Rao
3  Ravi Kumar
4  प्रिया शर्मा
5  Zoë O'Neill
6  Night shift 🌙
7  Meera Nair
)",
    .run = users,
};

} // namespace kvex::host
