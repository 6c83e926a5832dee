// Everything that a database file holds, read as another program reads it.
#pragma once

#include <filesystem>
#include <string>

namespace kvex::torture {

/// The rows of all tables, a line each, after the line "damaged" when SQLite finds the file so. A
/// file that cannot be read gives the reason instead.
[[nodiscard]] std::string snapshot(const std::filesystem::path &database);

/// The lines that only one of the snapshots has, with "-" before those of `expected` and "+" before
/// those of `found`.
[[nodiscard]] std::string difference(const std::string &expected, const std::string &found);

} // namespace kvex::torture
