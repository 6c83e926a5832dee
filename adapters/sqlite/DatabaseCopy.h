// Copies a whole SQLite database while other programs use it.
#pragma once

#include <string>

namespace kvex::sqlite {

class SqliteConnection;

/// Copies everything in the database, also what other programs keep there, into `file`, an empty
/// file. The copy is the state of one moment. With a write-ahead log nobody waits meanwhile. Fails
/// with the provider's number, and with its help context locked when the connection itself is in a
/// transaction that writes. After a failure the file can hold anything.
void copyDatabase(const SqliteConnection &source, const std::string &file);

} // namespace kvex::sqlite
