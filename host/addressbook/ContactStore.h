// Takes contacts of a file into the server's database.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "host/addressbook/ContactFile.h"
#include "platform/Error.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kvex::host {

struct StoredCount {
    std::size_t taken = 0;
    /// The user has a live contact of the same name and number.
    std::size_t alreadyThere = 0;
};

/// Adds the contacts as the user's, all or, when the database refuses one, none. Fails as the
/// record set's update does.
StoredCount storeContacts(recordset::ClientConnection &connection, std::int32_t userId,
                          const std::vector<FileContact> &contacts);

} // namespace kvex::host
