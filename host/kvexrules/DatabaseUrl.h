// Advice for URLs of databases: other programs accept them, this one takes connection strings.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvex::host {

/// If `database` is a URL ("postgresql://...", "jdbc:mysql://..."), returns sentences that say so,
/// with the connection string or path to use instead. They repeat no password and nothing after
/// "?". Returns nothing for other texts, also for "file:", which names an SQLite file.
[[nodiscard]] std::optional<std::string> adviceForUrl(std::string_view database);

} // namespace kvex::host
