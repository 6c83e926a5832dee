#include "host/addressbook/Contacts.h"

#include "host/suite/Databases.h"
#include "platform/Text.h"

namespace kvex::host {
namespace {

std::unique_ptr<Recordset> openContacts(Connection &connection, const std::u16string &condition) {
    std::unique_ptr<Recordset> rows = createRecordset();
    rows->open(u"SELECT ID, NAME, MOBILE FROM SMS_CONTACTS WHERE DELETED = 0 AND " + condition +
                   u" ORDER BY ID",
               connection);
    return rows;
}

} // namespace

std::vector<Contact> readContacts(Connection &connection, std::int32_t userId) {
    const auto rows = openContacts(connection, u"(USER_ID = " + toText(std::int64_t{userId}) +
                                                   u" OR USER_ID IS NULL)");
    std::vector<Contact> contacts;
    contacts.reserve(static_cast<std::size_t>(rows->recordCount()));
    for (; !rows->eof(); rows->moveNext()) {
        contacts.push_back(
            {textOf(*rows, u"ID"), textOf(*rows, u"NAME"), textOf(*rows, u"MOBILE")});
    }
    return contacts;
}

void requireContacts(Connection &connection) {
    static_cast<void>(openContacts(connection, u"USER_ID IS NULL AND 1 = 0"));
}

} // namespace kvex::host
