// Backups of the server's tables: SQLite files that every command reads as a database.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "host/suite/NewFile.h"

#include <filesystem>
#include <memory>
#include <string_view>

namespace kvex::host {

/// Copies the state of one moment into a new file, while other programs read and write. Of an
/// SQLite database the file has everything. Of a server's database it has the six tables with all
/// their columns, and the version of the tables. Ids, Null and every character of a text stay.
///
/// Fails as NewFile and the driver do; then no file was made. Fails with badArgument when the
/// database has none of the tables, or when the name is no UTF-8. It also does when SQLite's files
/// of another database stand beside the name.
void backUp(recordset::ClientConnection &connection, const std::filesystem::path &file,
            Existing existing);

/// Makes a backup in the user's state folder, before a change that replaces what is stored.
/// `reason` is a part of its name. Returns its path. Fails as backUp does, and with badArgument
/// when there is no state folder.
[[nodiscard]] std::filesystem::path keepBackup(recordset::ClientConnection &connection,
                                               std::string_view reason);

/// Opens an SQLite file by its path, whatever characters the path has. Fails as openDatabase does.
[[nodiscard]] std::unique_ptr<recordset::ClientConnection>
openFile(const std::filesystem::path &file);

} // namespace kvex::host
