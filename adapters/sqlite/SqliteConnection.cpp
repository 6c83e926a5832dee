#include "adapters/sqlite/SqliteConnection.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "adapters/sqlite/SqliteError.h"
#include "platform/Text.h"

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>

namespace kvex::sqlite {
namespace {

constexpr int defaultBusyTimeout = 5000;

int busyTimeout(const recordset::ConnectionString &text) {
    constexpr std::u16string_view key = u"Busy Timeout";
    if (!text.has(key)) {
        return defaultBusyTimeout;
    }
    const std::u16string_view value = text.value(key);
    const bool whole =
        !value.empty() && value.size() <= 9 &&
        std::ranges::all_of(value, [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
    if (!whole) {
        throw Error(error_number::badArgument,
                    u"The connection string's Busy Timeout is not a whole number of "
                    u"milliseconds.");
    }
    return toInt32(value);
}

std::u16string_view nameIn(const recordset::ConnectionString &text) {
    const std::u16string_view name = text.value(u"Data Source");
    if (name.empty()) {
        throw Error(error_number::badArgument,
                    u"The connection string has no Data Source, so it names no database file.");
    }
    return name;
}

/// True for SQLite's errors when it may not write the file or its folder.
bool isForbidden(const Error &error) {
    const int code = (error.number() - errorBase) & 0xFF;
    return error.fromDatabase() && (code == SQLITE_CANTOPEN || code == SQLITE_READONLY);
}

/// A URI that lets SQLite read the file without locks and without a log.
std::string unchangingUri(const std::string &path) {
    std::string uri = "file:";
    for (const char byte : path) {
        switch (byte) {
        case '%':
            uri += "%25";
            break;
        case '?':
            uri += "%3f";
            break;
        case '#':
            uri += "%23";
            break;
        default:
            uri += byte;
        }
    }
    return uri + "?immutable=1";
}

} // namespace

bool namesSqlite(const recordset::ConnectionString &text) {
    return text.isPath() || recordset::equalIgnoringCase(text.value(u"Provider"), u"SQLite");
}

void SqliteConnection::Closer::operator()(sqlite3 *handle) const noexcept {
    sqlite3_close(handle);
}

SqliteConnection::SqliteConnection(const recordset::ConnectionString &text, Missing missing)
    : name_(nameIn(text)), busyTimeout_(busyTimeout(text)) {
    const int create = missing == Missing::create ? SQLITE_OPEN_CREATE : 0;
    open(toUtf8(name_), SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI | create);
    try {
        execute("PRAGMA schema_version");
    } catch (const Error &error) {
        if (!isForbidden(error)) {
            throw;
        }
        openUnchanging();
    }
    const bool isNew = isEmptyFile();
    if (missing == Missing::refuse && isNew) {
        throw errorWith(SQLITE_NOTADB, HelpContext::noTable,
                        u"The database file " + name_ + u" is empty.");
    }
    if (isNew || holdsRules()) {
        writeAhead();
    }
    execute("PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON");
}

Error SqliteConnection::lastError() const {
    return errorOf(sqlite3_extended_errcode(handle()), name_, fromUtf8(sqlite3_errmsg(handle())));
}

void SqliteConnection::execute(const char *statements) const {
    if (sqlite3_exec(handle(), statements, nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw lastError();
    }
}

void SqliteConnection::requireInPlace() const {
    int moved = 0;
    if (sqlite3_file_control(handle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK &&
        moved != 0) {
        throw errorWith(SQLITE_READONLY_DBMOVED, HelpContext::fileMoved,
                        u"The database file " + name_ +
                            u" was moved, replaced or removed since it was opened.");
    }
}

void SqliteConnection::open(const std::string &path, int flags) {
    sqlite3 *opened = nullptr;
    // One thread at a time uses the connection, so the many calls for each value need no lock.
    const int code = sqlite3_open_v2(path.c_str(), &opened, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    handle_.reset(opened);
    if (code != SQLITE_OK) {
        const Error error = errorOf(code, name_, fromUtf8(sqlite3_errstr(code)));
        if (error.helpContext() == HelpContext::noFile && (flags & SQLITE_OPEN_CREATE) != 0) {
            throw errorWith(code, HelpContext::cannotMake,
                            u"The database file " + name_ + u" cannot be made.");
        }
        throw error;
    }
    sqlite3_extended_result_codes(handle(), 1);
    sqlite3_busy_timeout(handle(), busyTimeout_);
}

void SqliteConnection::openUnchanging() {
    const char *file = sqlite3_db_filename(handle(), "main");
    const std::string path = file ? file : "";
    if (path.empty() || std::filesystem::exists(path + "-wal")) {
        throw lastError();
    }
    open(unchangingUri(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
    execute("PRAGMA schema_version");
}

bool SqliteConnection::isEmptyFile() const {
    const char *file = sqlite3_db_filename(handle(), "main");
    return file && *file && !isTrue("PRAGMA page_count");
}

bool SqliteConnection::holdsRules() const {
    return isTrue("SELECT count(*) FROM sqlite_master WHERE type = 'table' AND "
                  "name = 'SMS_RULES' COLLATE NOCASE");
}

bool SqliteConnection::isTrue(const char *query) const {
    bool result = false;
    const auto take = [](void *target, int /*columns*/, char **values, char ** /*names*/) {
        *static_cast<bool *>(target) = std::string_view(values[0]) != "0";
        return 0;
    };
    if (sqlite3_exec(handle(), query, take, &result, nullptr) != SQLITE_OK) {
        throw lastError();
    }
    return result;
}

void SqliteConnection::writeAhead() const {
    if (sqlite3_db_readonly(handle(), "main") == 1) {
        return;
    }
    try {
        execute("PRAGMA journal_mode = WAL");
    } catch (const Error &error) {
        // When the file may be written but its folder may not, the file can still be read.
        if (!isForbidden(error)) {
            throw;
        }
    }
}

} // namespace kvex::sqlite
