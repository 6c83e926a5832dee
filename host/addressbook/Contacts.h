// The contacts in the server's database: reading, adding and removing them.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "host/addressbook/ContactFile.h"
#include "platform/Database.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace kvex::host {

struct Contact {
    /// Decimal.
    std::u16string id;
    std::u16string name;
    std::u16string number;
};

/// The live contacts that belong to the user or to nobody, in the order of their ids. Null reads
/// as "". Fails as the record set's open does.
[[nodiscard]] std::vector<Contact> readContacts(Connection &connection, std::int32_t userId);

/// Fails when the database has no table of contacts, as readContacts would for every user.
void requireContacts(Connection &connection);

struct StoredCount {
    std::size_t added = 0;
    /// Contacts that were not added: the user already has one whose export reads as the same name
    /// and number.
    std::size_t alreadyThere = 0;
};

/// Adds the contacts to the user's: all of them or, when the database refuses one, none. Fails as
/// the record set's update does. Calls `afterEach` after each contact.
StoredCount storeContacts(
    recordset::ClientConnection &connection, std::int32_t userId,
    const std::vector<FileContact> &contacts, const std::function<void()> &afterEach = [] {});

/// Marks contacts that readContacts gives the user as deleted: all of them or, when one id is not
/// there, none. Returns the ids that are not there, in ascending order. Fails as the record set's
/// update does; then nothing is removed.
[[nodiscard]] std::vector<std::int64_t> removeContacts(recordset::ClientConnection &connection,
                                                       std::int32_t userId,
                                                       const std::set<std::int64_t> &ids);

} // namespace kvex::host
