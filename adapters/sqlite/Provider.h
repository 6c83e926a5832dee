// Provides record sets on SQLite databases.
#pragma once

#include "adapters/recordset/Driver.h"

#include <string>

namespace kvex::sqlite {

/// Accepts a bare path and "Provider=SQLite;Data Source=PATH". PATH is a database file, a "file:"
/// URI or ":memory:"; the file must exist. "Busy Timeout" sets how many milliseconds to wait for
/// another program's lock, 5000 without it. User id and password are not used.
///
/// Text keeps every character, also NUL; an unpaired surrogate becomes U+FFFD. A BLOB is read as
/// text in UTF-8, with U+FFFD for each invalid byte. A value with such bytes cannot be overwritten,
/// because it never equals what was read.
///
/// SqliteError.h has the numbers and texts of the errors.
[[nodiscard]] recordset::Provider provider();
/// The same, but creates a missing file.
[[nodiscard]] recordset::Provider creatingProvider();

/// The version of the SQLite that this process uses.
[[nodiscard]] std::string libraryVersion();

} // namespace kvex::sqlite
