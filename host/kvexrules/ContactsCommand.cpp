#include "host/addressbook/ContactExport.h"
#include "host/addressbook/Contacts.h"
#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Commands.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/ContactFiles.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/Settings.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <span>

namespace kvex::host {
namespace {

constexpr const char *whereIdsAre = "The ids are the numbers that kvexrules contacts list shows.";

std::int32_t userOf(const Settings &settings) {
    return *wholeNumber<std::int32_t>(settings.user);
}

std::unique_ptr<recordset::ClientConnection> openContacts(const Settings &settings) {
    try {
        auto connection = openConnection(settings);
        requireContacts(*connection);
        return connection;
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

/// Runs `change` on the contacts. If the database refuses it, raises a Failure with the status
/// `refused`.
template <class Change> auto changed(const Settings &settings, Change change) {
    const auto connection = openContacts(settings);
    try {
        return change(*connection, userOf(settings));
    } catch (const Error &error) {
        failFor(settings, error, exit_status::refused);
    }
}

std::vector<Contact> contactsOf(const Settings &settings) {
    try {
        return readContacts(*openConnection(settings), userOf(settings));
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

std::string counted(std::size_t count, std::string_view what) {
    return std::to_string(count) + (count == 1 ? " contact " : " contacts ") + std::string(what);
}

/// Prints the sentence, which says what has been done. If that fails, standard error gets it.
void report(const std::string &sentence) {
    try {
        printLine(sentence);
    } catch (const ReaderGone &) {
        complain(sentence);
    } catch (const Failure &failure) {
        throw Failure(sentence + " " + failure.what(), exit_status::refused);
    }
}

int importContacts(const Request &request, const std::string &file) {
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
    const auto count = changed(settings, [&](auto &connection, std::int32_t user) {
        return storeContacts(connection, user, found.contacts);
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

int exportContacts(const Request &request, const std::string &file) {
    std::string format = request.value(Option::format);
    if (format.empty()) {
        format = lowerCase(file).ends_with(".csv") ? "csv" : "vcard";
    }
    if (format != "csv" && format != "vcard") {
        throw Failure("There is no format \"" + format + "\". The formats are vcard and csv.");
    }
    const std::vector<Contact> contacts = contactsOf(settingsFor(request));
    const std::string text = format == "csv" ? asCsv(contacts) : asVCards(contacts);
    if (file == "-") {
        print(printsToTerminal() ? toUtf8(harmlessLines(fromUtf8(text))) : text);
    } else {
        writeOwnersFile(file, text, request.has(Option::replace));
        report(counted(contacts.size(), "written."));
    }
    return exit_status::done;
}

std::int64_t contactId(const std::string &word) {
    const auto id = wholeNumber<std::int64_t>(word);
    if (!id) {
        throw Failure("\"" + word + "\" is not the id of a contact. " + whereIdsAre);
    }
    return *id;
}

/// "There are no contacts 4, 5 and 9".
std::string sayMissing(std::span<const std::int64_t> ids) {
    std::string text = ids.size() == 1 ? "There is no contact " : "There are no contacts ";
    for (std::size_t index = 0; index < ids.size(); ++index) {
        const bool isLast = index + 1 == ids.size();
        text += (index == 0 ? "" : isLast ? " and " : ", ") + std::to_string(ids[index]);
    }
    return text;
}

int removeContactsAskedFor(const Request &request, std::span<const std::string> words) {
    std::set<std::int64_t> ids;
    std::ranges::transform(words, std::inserter(ids, ids.end()), contactId);
    const auto missing = changed(settingsFor(request), [&](auto &connection, std::int32_t user) {
        return removeContacts(connection, user, ids);
    });
    if (!missing.empty()) {
        throw Failure(sayMissing(missing) + ", so none was removed. " + whereIdsAre,
                      exit_status::refused);
    }
    report(counted(ids.size(), "removed."));
    return exit_status::done;
}

int listContacts(const Request &request) {
    std::string text;
    for (const Contact &contact : contactsOf(settingsFor(request))) {
        text += toUtf8(visible(contact.id) + u"\t" + visible(contact.name) + u"\t" +
                       visible(contact.number) + u"\n");
    }
    print(text);
    return exit_status::done;
}

} // namespace

int contactsCommand(const Request &request) {
    const std::span<const std::string> words(request.words);
    const std::string verb = words.empty() ? "" : words.front();
    const bool isExport = verb == "export" && words.size() <= 2;
    if (!isExport && (request.has(Option::format) || request.has(Option::replace))) {
        throw Failure("Of the contacts commands, only export takes --format and --replace.");
    }
    if (isExport) {
        return exportContacts(request, words.size() == 2 ? words.back() : "-");
    }
    if (verb == "import" && words.size() == 2) {
        return importContacts(request, words.back());
    }
    if (verb == "remove" && words.size() >= 2) {
        return removeContactsAskedFor(request, words.subspan(1));
    }
    if (verb == "list" && words.size() == 1) {
        return listContacts(request);
    }
    throw Failure("Say what to do with the contacts: kvexrules contacts import FILE, export "
                  "[FILE], remove ID… or list.");
}

} // namespace kvex::host
