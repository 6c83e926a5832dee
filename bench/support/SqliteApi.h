// SQLite's C API, used without any other layer. Our figures are compared with it.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

namespace kvex::bench {

struct SqliteCloser {
    void operator()(sqlite3 *handle) const noexcept { sqlite3_close(handle); }
    void operator()(sqlite3_stmt *handle) const noexcept { sqlite3_finalize(handle); }
};
using SqliteHandle = std::unique_ptr<sqlite3, SqliteCloser>;
using SqliteQuery = std::unique_ptr<sqlite3_stmt, SqliteCloser>;

/// Opens the file with the log and synchronisation that the product uses. Throws when that fails.
[[nodiscard]] SqliteHandle openSqlite(const std::string &file);
[[nodiscard]] SqliteQuery prepared(sqlite3 *database, std::string_view text);
/// Runs the statement to its end and resets it. Throws when the database refuses.
void run(sqlite3_stmt *statement);
void execute(sqlite3 *database, const char *statements);
/// The text must stay valid until the statement has run.
void bindText(sqlite3_stmt *statement, int parameter, std::string_view text);
void bindNumber(sqlite3_stmt *statement, int parameter, std::int64_t number);

} // namespace kvex::bench
