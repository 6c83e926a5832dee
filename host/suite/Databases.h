// Opens databases for the suite's programs: the one list of their providers.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "platform/Database.h"

#include <memory>
#include <string>
#include <string_view>

namespace kvex::host {

/// Opens the database that `connectionString` names. Fails as Connection::open does.
[[nodiscard]] std::unique_ptr<recordset::ClientConnection>
openDatabase(std::u16string_view connectionString);

/// Like openDatabase, but creates a missing SQLite file.
[[nodiscard]] std::unique_ptr<recordset::ClientConnection>
openOrMakeDatabase(std::u16string_view connectionString);

[[nodiscard]] std::unique_ptr<Recordset> createRecordset();

/// The field's value as text; Null is "". Fails as Recordset::field does.
[[nodiscard]] std::u16string textOf(const Recordset &rows, std::u16string_view column);

} // namespace kvex::host
