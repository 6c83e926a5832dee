#include "host/addressbook/ContactExport.h"
#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/ContactsCommands.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/UserFiles.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <array>

namespace kvex::host {
namespace {

constexpr std::array<std::string_view, 2> formats{"vcard", "csv"};
constexpr Option formatOption{.name = "--format",
                              .value = "",
                              .help = "the format (default: csv for a FILE that ends in .csv, "
                                      "else vcard)",
                              .choices = formats};
constexpr Option replaceOption{
    .name = "--replace", .value = "", .help = "replace an existing file"};

int exportContacts(const Request &request) {
    const std::string file = request.words.empty() ? "-" : request.words.front();
    std::string format = request.value(formatOption);
    if (format.empty()) {
        format = lowerCase(file).ends_with(".csv") ? "csv" : "vcard";
    }
    const std::vector<Contact> contacts = contactsOf(settingsFor(request));
    const std::string text = format == "csv" ? asCsv(contacts) : asVCards(contacts);
    if (file == "-") {
        print(printsToTerminal() ? toUtf8(harmlessLines(fromUtf8(text))) : text);
    } else {
        writeOwnersFile(file, text,
                        request.has(replaceOption) ? Existing::replace : Existing::refuse);
        report(counted(contacts.size(), "written."));
    }
    return exit_status::done;
}

constexpr std::array words{Word{.name = "FILE", .isOptional = true, .completes = Completes::file}};
constexpr std::array options{formatOption, replaceOption, databaseOption, userOption};

} // namespace

constexpr Command contactsExportCommand{
    .name = "contacts export",
    .words = words,
    .options = options,
    .summary = "write the contacts of the address book as vCards or CSV",
    .description = R"(Writes the contacts that "kvexrules contacts list" shows. Without FILE, or
with "-", it writes to standard output. Only you can read the file. An existing file is
replaced only with --replace.
)",
    .example = R"($ kvexrules contacts export book.vcf
5 contacts written.
)",
    .run = exportContacts,
};

} // namespace kvex::host
