// The errors that SQLite's result codes become.
#include "adapters/sqlite/SqliteError.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

namespace kvex::test {

TEST(SqliteError, EachCodeSaysWhatHappenedInSqlitesWordsTooAndHasItsContext) {
    const struct {
        int code;
        HelpContext context;
        std::u16string description;
    } cases[] = {
        {SQLITE_ERROR, HelpContext::badStatement, u"The database D cannot do this (words)."},
        {SQLITE_BUSY, HelpContext::locked, u"The database D is locked by another program (words)."},
        {SQLITE_LOCKED, HelpContext::locked,
         u"The database D is locked by another program (words)."},
        {SQLITE_READONLY, HelpContext::forbidden, u"The database D is read-only (words)."},
        {SQLITE_PERM, HelpContext::forbidden, u"The database D is read-only (words)."},
        {SQLITE_AUTH, HelpContext::forbidden, u"The database D is read-only (words)."},
        {SQLITE_FULL, HelpContext::diskFull,
         u"The disk that holds the database D is full (words)."},
        {SQLITE_IOERR_WRITE, HelpContext::inputOutput,
         u"The database D cannot be read or written (words)."},
        {SQLITE_NOTADB, HelpContext::notADatabase, u"The file D is no database (words)."},
        {SQLITE_CORRUPT, HelpContext::damaged, u"The database D is damaged (words)."},
        {SQLITE_CONSTRAINT_UNIQUE, HelpContext::constraint,
         u"The database D refuses these values (words)."},
        {SQLITE_TOOBIG, HelpContext::tooLong, u"A text is too long for the database D (words)."},
        {SQLITE_CANTOPEN, HelpContext::noFile, u"The database file D does not exist (words)."},
        {SQLITE_MISUSE, HelpContext::failed, u"The database D failed (words)."}};
    for (const auto &one : cases) {
        const Error error = sqlite::errorOf(one.code, u"D", u"words");
        EXPECT_EQ(error.helpContext(), one.context) << one.code;
        EXPECT_EQ(error.description(), one.description);
    }
    EXPECT_EQ(sqlite::errorOf(SQLITE_ERROR, u"D", u"no such table: T").helpContext(),
              HelpContext::noTable);
}

TEST(SqliteError, EveryCodeHasItsNumberASourceAndASentenceWithTheDatabasesName) {
    for (const int code :
         {SQLITE_ERROR,    SQLITE_INTERNAL,    SQLITE_PERM,          SQLITE_ABORT,
          SQLITE_BUSY,     SQLITE_LOCKED,      SQLITE_READONLY,      SQLITE_INTERRUPT,
          SQLITE_IOERR,    SQLITE_CORRUPT,     SQLITE_FULL,          SQLITE_CANTOPEN,
          SQLITE_PROTOCOL, SQLITE_SCHEMA,      SQLITE_TOOBIG,        SQLITE_CONSTRAINT,
          SQLITE_MISMATCH, SQLITE_MISUSE,      SQLITE_AUTH,          SQLITE_RANGE,
          SQLITE_NOTADB,   SQLITE_IOERR_WRITE, SQLITE_BUSY_SNAPSHOT, SQLITE_CONSTRAINT_UNIQUE}) {
        const Error error = sqlite::errorOf(code, u"/data/rules.db", u"its own words");
        EXPECT_EQ(error.number(), sqlite::errorBase + code);
        EXPECT_TRUE(error.fromDatabase());
        EXPECT_EQ(error.source(), u"SQLite");
        EXPECT_NE(error.description().find(u"/data/rules.db"), std::u16string::npos) << code;
        EXPECT_TRUE(error.description().ends_with(u'.')) << code;
    }
}

TEST(SqliteError, MemoryThatRanOutIsNoRefusalOfTheDatabase) {
    EXPECT_EQ(sqlite::errorOf(SQLITE_NOMEM, u"x", u"").number(), error_number::outOfMemory);
}

} // namespace kvex::test
