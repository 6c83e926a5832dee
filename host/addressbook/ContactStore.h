// Changes the contacts in the server's database.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "host/addressbook/ContactFile.h"
#include "platform/Error.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

namespace kvex::host {

struct StoredCount {
    std::size_t taken = 0;
    /// The user has a live contact of the same number, and of the name that a file would give it.
    std::size_t alreadyThere = 0;
};

/// Adds the contacts as the user's, all or, when the database refuses one, none. Fails as the
/// record set's update does.
StoredCount storeContacts(recordset::ClientConnection &connection, std::int32_t userId,
                          const std::vector<FileContact> &contacts);

/// Marks the contacts of these ids, which readContacts gives the user, as deleted: all or, when one
/// is not there, none. Gives the ids that are not there, in their order. Fails as the record set's
/// update does; nothing is removed then.
[[nodiscard]] std::vector<std::int64_t> removeContacts(recordset::ClientConnection &connection,
                                                       std::int32_t userId,
                                                       const std::set<std::int64_t> &ids);

} // namespace kvex::host
