// The errors that SQLite's result codes become.
#include "adapters/sqlite/SqliteError.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

namespace kvex::test {

TEST(SqliteError, EachCodeSaysWhatIsWrongAndWhatToDo) {
    const struct {
        int code;
        std::u16string description;
    } cases[] = {
        {SQLITE_ERROR,
         u"The database D cannot do this: words. Check that its tables are those of the server."},
        {SQLITE_BUSY,
         u"The database D is locked by another program: wait until it has finished, then try "
         u"again."},
        {SQLITE_LOCKED,
         u"The database D is locked by another program: wait until it has finished, then try "
         u"again."},
        {SQLITE_READONLY, u"The database D is read-only, so nothing was stored: ask for the right "
                          u"to write the file and its folder."},
        {SQLITE_PERM, u"The database D is read-only, so nothing was stored: ask for the right to "
                      u"write the file and its folder."},
        {SQLITE_AUTH, u"The database D is read-only, so nothing was stored: ask for the right to "
                      u"write the file and its folder."},
        {SQLITE_FULL, u"The disk that holds the database D is full, so nothing was stored: free "
                      u"some space and try again."},
        {SQLITE_IOERR_WRITE,
         u"The database D cannot be read or written (words): check the disk, then try again."},
        {SQLITE_NOTADB, u"The file D is no database: name the server's database file."},
        {SQLITE_CORRUPT, u"The database D is damaged: restore it from a backup."},
        {SQLITE_CONSTRAINT_UNIQUE,
         u"The database D refuses these values (words): change them and try again."},
        {SQLITE_TOOBIG, u"A text is too long for the database D: shorten it."},
        {SQLITE_MISUSE,
         u"The database D failed: words. Open the rules, or run the command, again and repeat "
         u"the change."}};
    for (const auto &one : cases) {
        EXPECT_EQ(sqlite::errorOf(one.code, u"D", u"words").description(), one.description);
    }
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

TEST(SqliteError, AFullDiskIsSaidToBeFull) {
    const Error error = sqlite::errorOf(SQLITE_FULL, u"/data/rules.db", u"");
    EXPECT_NE(error.description().find(u"is full, so nothing was stored"), std::u16string::npos);
}

TEST(SqliteError, MemoryThatRanOutIsNoRefusalOfTheDatabase) {
    EXPECT_EQ(sqlite::errorOf(SQLITE_NOMEM, u"x", u"").number(), error_number::outOfMemory);
}

} // namespace kvex::test
