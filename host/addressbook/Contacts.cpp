#include "host/addressbook/Contacts.h"

#include "host/suite/Databases.h"
#include "platform/Text.h"
#include "platform/Transaction.h"

#include <utility>

namespace kvex::host {
namespace {

std::unique_ptr<Recordset> openContacts(Connection &connection, const std::u16string &condition) {
    std::unique_ptr<Recordset> rows = createRecordset();
    rows->open(u"SELECT ID, NAME, MOBILE FROM SMS_CONTACTS WHERE DELETED = 0 AND " + condition +
                   u" ORDER BY ID",
               connection);
    return rows;
}

using NameAndNumber = std::pair<std::u16string, std::u16string>;

/// The name and number that an import reads from the contact's export.
NameAndNumber asFromAFile(const std::u16string &name, const std::u16string &number) {
    std::u16string numberLine = oneLine(toUtf8(number));
    std::u16string nameLine = oneLine(toUtf8(name));
    return {nameLine.empty() ? numberLine : nameLine, numberLine};
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

StoredCount storeContacts(recordset::ClientConnection &connection, std::int32_t userId,
                          const std::vector<FileContact> &contacts,
                          const std::function<void()> &afterEach) {
    Transaction transaction(connection);
    const auto rows = createRecordset();
    rows->open(u"SELECT ID, USER_ID, NAME, MOBILE FROM SMS_CONTACTS WHERE DELETED = 0 AND "
               u"USER_ID = " +
                   toText(std::int64_t{userId}),
               connection, CursorType::staticCopy, LockType::optimistic);
    std::set<NameAndNumber> known;
    for (; !rows->eof(); rows->moveNext()) {
        known.insert(asFromAFile(textOf(*rows, u"NAME"), textOf(*rows, u"MOBILE")));
    }
    StoredCount count;
    for (const FileContact &contact : contacts) {
        if (known.emplace(contact.name, contact.number).second) {
            rows->addNew();
            rows->setField(u"USER_ID", std::int64_t{userId});
            rows->setField(u"NAME", contact.name);
            rows->setField(u"MOBILE", contact.number);
            rows->update();
            ++count.added;
        } else {
            ++count.alreadyThere;
        }
        afterEach();
    }
    transaction.commit();
    return count;
}

std::vector<std::int64_t> removeContacts(recordset::ClientConnection &connection,
                                         std::int32_t userId, const std::set<std::int64_t> &ids) {
    Transaction transaction(connection);
    const auto rows = createRecordset();
    const std::u16string user = toText(std::int64_t{userId});
    rows->open(u"SELECT ID, DELETED FROM SMS_CONTACTS WHERE DELETED = 0 AND (USER_ID = " + user +
                   u" OR USER_ID IS NULL)",
               connection, CursorType::staticCopy, LockType::optimistic);
    std::vector<std::int64_t> missing;
    for (const std::int64_t id : ids) {
        rows->moveFirst();
        rows->find(u"ID = " + toText(id));
        if (rows->eof()) {
            missing.push_back(id);
            continue;
        }
        rows->setField(u"DELETED", std::int64_t{1});
        rows->update();
    }
    if (missing.empty()) {
        transaction.commit();
    }
    return missing;
}

} // namespace kvex::host
