// Creates the server's tables in an SQLite database.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "adapters/sqlite/Provider.h"
#include "host/suite/Schema.h"

#include <string_view>

namespace kvex::test {

/// Like host::createSchema, but creates a missing file.
inline bool createSqliteSchema(std::u16string_view connectionString) {
    recordset::ClientConnection connection{{sqlite::creatingProvider()}};
    static_cast<Connection &>(connection).open(connectionString);
    return host::createSchema(connection);
}

} // namespace kvex::test
