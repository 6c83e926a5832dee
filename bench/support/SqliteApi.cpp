#include "bench/support/SqliteApi.h"

#include <stdexcept>

namespace kvex::bench {
namespace {

void require(bool done, sqlite3 *database) {
    if (!done) {
        throw std::runtime_error(sqlite3_errmsg(database));
    }
}

} // namespace

SqliteHandle openSqlite(const std::string &file) {
    sqlite3 *opened = nullptr;
    const int code = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    SqliteHandle handle(opened);
    require(code == SQLITE_OK, opened);
    execute(opened, "PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON");
    return handle;
}

SqliteQuery prepared(sqlite3 *database, std::string_view text) {
    sqlite3_stmt *statement = nullptr;
    require(sqlite3_prepare_v2(database, text.data(), static_cast<int>(text.size()), &statement,
                               nullptr) == SQLITE_OK,
            database);
    return SqliteQuery(statement);
}

void run(sqlite3_stmt *statement) {
    int code = SQLITE_ROW;
    while (code == SQLITE_ROW) {
        code = sqlite3_step(statement);
    }
    require(sqlite3_reset(statement) == SQLITE_OK, sqlite3_db_handle(statement));
}

void execute(sqlite3 *database, const char *statements) {
    require(sqlite3_exec(database, statements, nullptr, nullptr, nullptr) == SQLITE_OK, database);
}

void bindText(sqlite3_stmt *statement, int parameter, std::string_view text) {
    require(sqlite3_bind_text(statement, parameter, text.data(), static_cast<int>(text.size()),
                              SQLITE_STATIC) == SQLITE_OK,
            sqlite3_db_handle(statement));
}

void bindNumber(sqlite3_stmt *statement, int parameter, std::int64_t number) {
    require(sqlite3_bind_int64(statement, parameter, number) == SQLITE_OK,
            sqlite3_db_handle(statement));
}

} // namespace kvex::bench
