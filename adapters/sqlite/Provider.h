// SQLite as a provider of record sets.
#pragma once

#include "adapters/recordset/Driver.h"

namespace kvex::sqlite {

/// Accepts a bare path and "Provider=SQLite;Data Source=PATH". PATH is a database file, a
/// "file:" URI or ":memory:"; the file must exist. "Busy Timeout", in milliseconds, says how
/// long to wait for another program's lock: 5000 without it. User id and password are not used.
///
/// Text comes back as it was written: NULs too, only unpaired surrogates become U+FFFD. A BLOB
/// is read as text in UTF-8, each byte that cannot be read as U+FFFD; a value that holds such
/// bytes cannot be overwritten, it never compares equal to what was read.
///
/// Numbers and texts of the errors: SqliteError.h.
[[nodiscard]] recordset::Provider provider();
/// The same, but makes the file when there is none.
[[nodiscard]] recordset::Provider creatingProvider();

} // namespace kvex::sqlite
