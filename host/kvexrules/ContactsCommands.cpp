#include "host/kvexrules/ContactsCommands.h"

#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Database.h"

namespace kvex::host {
namespace {

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

} // namespace

std::vector<Contact> contactsOf(const Settings &settings) {
    try {
        return readContacts(*openToRead(settings), userOf(settings));
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

void changeContacts(const Settings &settings, const ContactChange &change) {
    const auto connection = openContacts(settings);
    try {
        change(*connection, userOf(settings));
    } catch (const Error &error) {
        failFor(settings, error, exit_status::refused);
    }
}

std::string counted(std::size_t count, std::string_view what) {
    return std::to_string(count) + (count == 1 ? " contact " : " contacts ") + std::string(what);
}

} // namespace kvex::host
