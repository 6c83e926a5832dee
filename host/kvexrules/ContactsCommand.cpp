#include "host/addressbook/ContactFile.h"
#include "host/addressbook/ContactStore.h"
#include "host/addressbook/Contacts.h"
#include "host/kvexrules/Commands.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/Numbers.h"
#include "host/kvexrules/Settings.h"
#include "host/suite/VisibleText.h"
#include "platform/Text.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace kvex::host {
namespace {

std::string contentOf(const std::filesystem::path &file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream || std::filesystem::is_directory(file)) {
        throw Failure(file.string() + " cannot be read. Name a file of vCards or CSV.");
    }
    return {std::istreambuf_iterator<char>(stream), {}};
}

ContactFile read(const std::filesystem::path &file) {
    const std::string ending = lowerCase(file.extension().string());
    try {
        return readContactFile(contentOf(file), ending == ".vcf" || ending == ".vcard");
    } catch (const std::invalid_argument &error) {
        throw Failure(file.string() + " holds no contacts that can be read. " + error.what());
    }
}

std::int32_t userOf(const Settings &settings) {
    return *wholeNumber<std::int32_t>(settings.user);
}

StoredCount store(const Settings &settings, const std::vector<FileContact> &contacts) {
    try {
        return storeContacts(*openConnection(settings), userOf(settings), contacts);
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

int importContacts(const Request &request, const std::filesystem::path &file) {
    const Settings settings = settingsFor(request);
    const ContactFile found = read(file);
    for (const SkippedEntry &skipped : found.skipped) {
        complain(file.string() + ":" + std::to_string(skipped.line) + ": " + skipped.reason +
                 "; skipped");
    }
    const StoredCount count = store(settings, found.contacts);
    std::string told =
        std::to_string(count.taken) + (count.taken == 1 ? " contact taken, " : " contacts taken, ");
    if (count.alreadyThere > 0) {
        told += std::to_string(count.alreadyThere) + " already there, ";
    }
    print(told + std::to_string(found.skipped.size()) + " skipped.\n");
    if (found.contacts.empty()) {
        return exit_status::unusable;
    }
    return found.skipped.empty() ? exit_status::done : exit_status::refused;
}

int listContacts(const Request &request) {
    const Settings settings = settingsFor(request);
    std::vector<Contact> contacts;
    try {
        contacts = readContacts(*openConnection(settings), userOf(settings));
    } catch (const Error &error) {
        failFor(settings, error);
    }
    std::string text;
    for (const Contact &contact : contacts) {
        text += toUtf8(contact.id + u"\t" + visible(contact.name) + u"\t" +
                       visible(contact.number) + u"\n");
    }
    print(text);
    return exit_status::done;
}

} // namespace

int contactsCommand(const Request &request) {
    const std::vector<std::string> &words = request.words;
    if (words.size() == 1 && words[0] == "list") {
        return listContacts(request);
    }
    if (words.size() == 2 && words[0] == "import") {
        return importContacts(request, words[1]);
    }
    throw Failure("Say what to do with the contacts: kvexrules contacts import FILE, or "
                  "kvexrules contacts list.");
}

} // namespace kvex::host
