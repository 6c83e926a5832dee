#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/ContactFiles.h"
#include "host/kvexrules/ContactsCommands.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/UserFiles.h"

#include <array>

namespace kvex::host {
namespace {

int importContacts(const Request &request) {
    const std::string &file = request.words.front();
    const Settings settings = settingsFor(request);
    const ContactFile found = readContactsFrom(file);
    if (found.isGuessedEncoding) {
        complain(inputName(file) + " is not UTF-8, so it was read as Windows-1252. Check the "
                                   "names: kvexrules contacts list.");
    }
    for (const SkippedEntry &skipped : found.skipped) {
        complain(inputName(file) + ":" + std::to_string(skipped.line) + ": " + skipped.reason +
                 "; skipped");
    }
    StoredCount count{};
    changeContacts(settings, [&](auto &connection, std::int32_t user) {
        Progress progress("Importing contacts", found.contacts.size());
        count = storeContacts(connection, user, found.contacts, [&] { progress.step(); });
    });
    std::string summary = counted(count.added, "added, ");
    if (count.alreadyThere > 0) {
        summary += std::to_string(count.alreadyThere) + " already there, ";
    }
    report(summary + std::to_string(found.skipped.size()) + " skipped.");
    if (found.contacts.empty()) {
        return exit_status::unusable;
    }
    return found.skipped.empty() ? exit_status::done : exit_status::refused;
}

constexpr std::array words{Word{.name = "FILE", .completes = Completes::file}};
constexpr std::array options{databaseOption, userOption};

constexpr std::array statuses{
    ExitStatus{exit_status::done, "all contacts are in the address book"},
    ExitStatus{exit_status::refused, "an entry was skipped, or the database refused the contacts"},
    ExitStatus{exit_status::unusable, "no contact could be read"},
};

} // namespace

constexpr Command contactsImportCommand{
    .name = "contacts import",
    .words = words,
    .options = options,
    .summary = "add contacts from vCards or CSV to the address book",
    .description = R"(Reads vCards (versions 2.1, 3.0 and 4.0), or CSV whose first row names the
columns ("Name,Mobile"), and adds the contacts to the user's address book. "-" means
standard input.

The command reports the line of each entry that it skips. It does not add a contact that
is already there. If the database refuses one contact, none is added.
)",
    .example = R"($ printf 'Name,Mobile\nMeera,98111 00066\nLee,?\n' > office.csv
$ kvexrules contacts import office.csv
kvexrules: office.csv:3: the row has no telephone number; skipped
1 contact added, 1 skipped.
)",
    .run = importContacts,
    .statuses = statuses,
};

} // namespace kvex::host
