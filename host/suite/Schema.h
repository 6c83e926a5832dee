// The tables of the server's database: the one list of their columns.
#pragma once

#include "adapters/recordset/ClientConnection.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

struct TableColumn {
    std::u16string_view name;
    /// Null for a column without a type, which only SQLite has.
    std::u16string_view recordset::ColumnTypes::*type;
    /// "" means Null.
    std::u16string_view defaultValue;
};

struct Table {
    std::u16string_view name;
    std::vector<TableColumn> columns;
};

/// The six tables, in the newest version that this program knows. A table stands behind those whose
/// rows its columns name.
[[nodiscard]] const std::vector<Table> &serverTables();

/// The statement that creates the table.
[[nodiscard]] std::u16string creation(const Table &table, const recordset::ColumnTypes &types);

/// Creates those of the server's six tables that the open database lacks. Returns true when it
/// created one. When none was there, the database also gets the table with their version. Tables
/// that another program made get none.
///
/// Fails with objectClosed when the connection is not open. Fails with itemNotFound when a table
/// has one of the six names but lacks a column. Fails as a record set's write does when the tables
/// are newer than this program. Fails with the provider's number when the database refuses. After a
/// failure the database is as it was. MariaDB is the exception, because it cannot undo the creation
/// of a table: there the new tables stay, and a second call creates the rest.
bool createSchema(recordset::ClientConnection &connection);

/// Creates the table that says the version, unless it is there. It has no row then.
void makeVersionTable(recordset::Driver &driver);
/// Makes this the version of the tables. The last step of a creation or an upgrade.
void addVersion(recordset::Driver &driver, std::int64_t version);

} // namespace kvex::host
