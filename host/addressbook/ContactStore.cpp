#include "host/addressbook/ContactStore.h"

#include "adapters/recordset/Transaction.h"
#include "host/suite/Databases.h"
#include "platform/Text.h"

#include <set>
#include <utility>

namespace kvex::host {

StoredCount storeContacts(recordset::ClientConnection &connection, std::int32_t userId,
                          const std::vector<FileContact> &contacts) {
    recordset::Transaction transaction(connection);
    const auto rows = createRecordset();
    rows->open(u"SELECT ID, USER_ID, NAME, MOBILE FROM SMS_CONTACTS WHERE DELETED = 0 AND "
               u"USER_ID = " +
                   toText(std::int64_t{userId}),
               connection, CursorType::staticCopy, LockType::optimistic);
    std::set<std::pair<std::u16string, std::u16string>> known;
    for (; !rows->eof(); rows->moveNext()) {
        known.emplace(textOf(*rows, u"NAME"), textOf(*rows, u"MOBILE"));
    }
    StoredCount count;
    for (const FileContact &contact : contacts) {
        if (!known.emplace(contact.name, contact.number).second) {
            ++count.alreadyThere;
            continue;
        }
        rows->addNew();
        rows->setField(u"USER_ID", std::int64_t{userId});
        rows->setField(u"NAME", contact.name);
        rows->setField(u"MOBILE", contact.number);
        rows->update();
        ++count.taken;
    }
    transaction.commit();
    return count;
}

} // namespace kvex::host
