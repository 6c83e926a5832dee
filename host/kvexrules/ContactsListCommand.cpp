#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/ContactsCommands.h"
#include "host/kvexrules/Failure.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <array>

namespace kvex::host {
namespace {

int listContacts(const Request &request) {
    std::string text;
    for (const Contact &contact : contactsOf(settingsFor(request))) {
        text += toUtf8(visible(contact.id) + u"\t" + visible(contact.name) + u"\t" +
                       visible(contact.number) + u"\n");
    }
    print(text);
    return exit_status::done;
}

constexpr std::array options{databaseOption, userOption};

} // namespace

constexpr Command contactsListCommand{
    .name = "contacts list",
    .words = {},
    .options = options,
    .summary = "list the contacts of the address book",
    .description = R"(Prints one line for each contact of the user, and for each that belongs to
nobody. Tabs separate the columns, which are the id, the name and the number. Characters
that could break the line appear as \n, \t, \\ or \u{HEX}.
)",
    .example = R"($ kvexrules contacts list | head -1
1	Branch office	9811100011
)",
    .run = listContacts,
};

} // namespace kvex::host
