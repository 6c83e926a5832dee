// The databases that programs of the suite open: the one list of their providers.
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

/// The same, but makes an SQLite database's file when there is none.
[[nodiscard]] std::unique_ptr<recordset::ClientConnection>
openOrMakeDatabase(std::u16string_view connectionString);

[[nodiscard]] std::unique_ptr<Recordset> createRecordset();

/// The record set's field as text, "" for one without value. Fails as Recordset::field does.
[[nodiscard]] std::u16string textOf(const Recordset &rows, std::u16string_view column);

} // namespace kvex::host
