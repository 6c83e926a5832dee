// URLs of databases: other programs take them, this one takes connection strings.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvex::host {

/// Where `database` is a URL of a database ("postgresql://...", "jdbc:mysql://..."): sentences
/// that say so, and which connection string or path to use instead. They repeat no password and
/// nothing behind "?". Nothing for all else; "file:" names an SQLite file.
[[nodiscard]] std::optional<std::string> adviceForUrl(std::string_view database);

} // namespace kvex::host
