// The contacts in the server's database.
#pragma once

#include "platform/Database.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kvex::host {

struct Contact {
    /// Decimal.
    std::u16string id;
    std::u16string name;
    std::u16string number;
};

/// The live contacts of the user and those of nobody, by their ids. What has no value is "". Fails
/// as the record set's open does.
[[nodiscard]] std::vector<Contact> readContacts(Connection &connection, std::int32_t userId);

/// Fails as readContacts would for every user: the database has no table of contacts.
void requireContacts(Connection &connection);

} // namespace kvex::host
