#include "adapters/sqlite/SqliteError.h"

#include "platform/Text.h"

#include <sqlite3.h>

#include <filesystem>
#include <string>

namespace kvex::sqlite {
namespace {

std::u16string cannotOpen(const std::u16string &name) {
    std::error_code ignored;
    const std::filesystem::path path(name);
    if (std::filesystem::is_directory(path, ignored)) {
        return u"The database " + name + u" is a folder: name a file in it.";
    }
    if (!name.starts_with(u"file:") && !std::filesystem::exists(path, ignored)) {
        return u"The database file " + name +
               u" does not exist: correct the path, or create the database with kvexrules init in "
               u"a folder that you may write.";
    }
    return u"The database file " + name +
           u" cannot be opened: check that it exists and that you may read and write it and its "
           u"folder.";
}

std::u16string refusedStatement(std::u16string_view name, std::u16string_view message) {
    const std::u16string database(name);
    constexpr std::u16string_view noTable = u"no such table: ";
    if (message.starts_with(noTable)) {
        return u"The database " + database + u" has no table " +
               std::u16string(message.substr(noTable.size())) +
               u": name the server's database, or create the tables with kvexrules init.";
    }
    return u"The database " + database + u" cannot do this: " + std::u16string(message) +
           u". Check that its tables are those of the server.";
}

std::u16string description(int code, std::u16string_view name, std::u16string_view message) {
    const std::u16string database(name);
    switch (code & 0xFF) {
    case SQLITE_ERROR:
        return refusedStatement(name, message);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return u"The database " + database +
               u" is locked by another program: wait until it has finished, then try again.";
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return u"The database " + database +
               u" is read-only, so nothing was stored: ask for the right to write the file and "
               u"its folder.";
    case SQLITE_FULL:
        return u"The disk that holds the database " + database +
               u" is full, so nothing was stored: free some space and try again.";
    case SQLITE_IOERR:
        return u"The database " + database + u" cannot be read or written (" +
               std::u16string(message) + u"): check the disk, then try again.";
    case SQLITE_NOTADB:
        return u"The file " + database + u" is no database: name the server's database file.";
    case SQLITE_CORRUPT:
        return u"The database " + database + u" is damaged: restore it from a backup.";
    case SQLITE_CONSTRAINT:
        return u"The database " + database + u" refuses these values (" + std::u16string(message) +
               u"): change them and try again.";
    case SQLITE_TOOBIG:
        return u"A text is too long for the database " + database + u": shorten it.";
    case SQLITE_CANTOPEN:
        return cannotOpen(database);
    default:
        return u"The database " + database + u" failed: " + std::u16string(message) +
               u". Open the rules, or run the command, again and repeat the change.";
    }
}

} // namespace

Error errorOf(int code, std::u16string_view name, std::u16string_view message) {
    if ((code & 0xFF) == SQLITE_NOMEM) {
        return Error(error_number::outOfMemory);
    }
    return errorWith(code, description(code, name, message));
}

Error errorWith(int code, std::u16string description) {
    return Error(errorBase + code, std::move(description), u"SQLite");
}

} // namespace kvex::sqlite
