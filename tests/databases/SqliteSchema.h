// Makes an SQLite database with the server's tables.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/Schema.h"
#include "adapters/sqlite/Provider.h"

#include <string_view>

namespace kvex::test {

/// As recordset::createSchema; makes the database's file when there is none.
inline bool createSqliteSchema(std::u16string_view connectionString) {
    recordset::ClientConnection connection{{sqlite::creatingProvider()}};
    static_cast<Connection &>(connection).open(connectionString);
    return recordset::createSchema(connection);
}

} // namespace kvex::test
