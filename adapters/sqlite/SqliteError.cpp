#include "adapters/sqlite/SqliteError.h"

#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <utility>

namespace kvex::sqlite {
namespace {

struct Meaning {
    HelpContext context;
    /// What happened, without a full stop.
    std::u16string what;
};

Meaning cannotOpen(const std::u16string &name) {
    std::error_code ignored;
    const std::filesystem::path path(name);
    if (std::filesystem::is_directory(path, ignored)) {
        return {HelpContext::notADatabase, u"The database " + name + u" is a folder"};
    }
    if (!name.starts_with(u"file:") && !std::filesystem::exists(path, ignored)) {
        return {HelpContext::noFile, u"The database file " + name + u" does not exist"};
    }
    return {HelpContext::forbidden, u"The database file " + name + u" cannot be opened"};
}

Meaning meaningOf(int code, const std::u16string &name, std::u16string_view message) {
    const std::u16string database = u"The database " + name;
    switch (code & 0xFF) {
    case SQLITE_ERROR:
        return message.starts_with(u"no such table: ")
                   ? Meaning{HelpContext::noTable, database + u" lacks a table"}
                   : Meaning{HelpContext::badStatement, database + u" cannot do this"};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {HelpContext::locked, database + u" is locked by another program"};
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return {HelpContext::forbidden, database + u" is read-only"};
    case SQLITE_FULL:
        return {HelpContext::diskFull, u"The disk that holds the database " + name + u" is full"};
    case SQLITE_IOERR:
        return {HelpContext::inputOutput, database + u" cannot be read or written"};
    case SQLITE_NOTADB:
        return {HelpContext::notADatabase, u"The file " + name + u" is no database"};
    case SQLITE_CORRUPT:
        return {HelpContext::damaged, database + u" is damaged"};
    case SQLITE_CONSTRAINT:
        return {HelpContext::constraint, database + u" refuses these values"};
    case SQLITE_TOOBIG:
        return {HelpContext::tooLong, u"A text is too long for the database " + name};
    case SQLITE_CANTOPEN:
        return cannotOpen(name);
    default:
        return {HelpContext::failed, database + u" failed"};
    }
}

} // namespace

Error errorOf(int code, std::u16string_view name, std::u16string_view message) {
    if ((code & 0xFF) == SQLITE_NOMEM) {
        return Error(error_number::outOfMemory);
    }
    const Meaning meaning = meaningOf(code, std::u16string(name), message);
    return errorWith(code, meaning.context, meaning.what + u" (" + std::u16string(message) + u").");
}

Error errorWith(int code, HelpContext context, std::u16string description) {
    return Error(errorBase + code, std::move(description), u"SQLite", context);
}

} // namespace kvex::sqlite
