// SQLite databases that cannot be opened, read or written.
#include "platform/Text.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/databases/SqliteSchema.h"
#include "tests/recordset/Faults.h"
#include "tests/recordset/SqliteSession.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace kvex::test {
namespace {

class SqliteFault : public testing::Test {
protected:
    [[nodiscard]] std::string path(const std::string &file = "rules.db") const {
        return folder_.path() / file;
    }
    [[nodiscard]] std::u16string name(const std::string &file = "rules.db") const {
        return fromUtf8(path(file));
    }
    void makeRules(const std::string &file = "rules.db") const {
        createSqliteSchema(name(file));
        OtherProgram(path(file)).run(u"INSERT INTO SMS_RULES (ID, Name) VALUES (1, 'stored')");
    }
    void write(const std::string &content) const { std::ofstream(path()) << content; }
    [[nodiscard]] Refusal opening() const {
        return refusalOf([this] { SqliteSession session(name()); });
    }
    [[nodiscard]] const std::filesystem::path &folder() const { return folder_.path(); }

private:
    TemporaryFolder folder_;
};

} // namespace

TEST_F(SqliteFault, AMissingFileIsNamedAndNotCreated) {
    const Refusal refusal = opening();
    EXPECT_EQ(refusal.code, SQLITE_CANTOPEN);
    EXPECT_TRUE(refusal.says(name()));
    EXPECT_TRUE(refusal.says(u"does not exist"));
    EXPECT_EQ(refusal.context, HelpContext::noFile);
    EXPECT_FALSE(std::filesystem::exists(path()));
}

TEST_F(SqliteFault, AFolderIsNoDatabase) {
    const Refusal refusal =
        refusalOf([this] { SqliteSession session(fromUtf8(folder().string())); });
    EXPECT_EQ(refusal.code, SQLITE_CANTOPEN);
    EXPECT_TRUE(refusal.says(u"is a folder"));
    EXPECT_EQ(refusal.context, HelpContext::notADatabase);
}

TEST_F(SqliteFault, AnEmptyFileIsRefusedAndStaysEmpty) {
    write("");
    const Refusal refusal = opening();
    EXPECT_EQ(refusal.code, SQLITE_NOTADB);
    EXPECT_TRUE(refusal.says(u"is empty"));
    EXPECT_EQ(refusal.context, HelpContext::noTable);
    EXPECT_EQ(std::filesystem::file_size(path()), 0U);
}

TEST_F(SqliteFault, AFileOfAnotherKindIsNoDatabase) {
    for (const std::string &content : {std::string("text"), std::string(5000, 'x')}) {
        write(content);
        const Refusal refusal = opening();
        EXPECT_EQ(refusal.code, SQLITE_NOTADB);
        EXPECT_TRUE(refusal.says(u"is no database"));
        EXPECT_EQ(std::filesystem::file_size(path()), content.size());
    }
}

TEST_F(SqliteFault, ADamagedFileIsSaidToBeDamaged) {
    makeRules();
    for (int i = 0; i < 50; ++i) {
        OtherProgram(path()).run(u"INSERT INTO SMS_RULES (QueryParam) VALUES (hex(zeroblob(900)))");
    }
    const auto size = static_cast<std::streamoff>(std::filesystem::file_size(path()));
    std::fstream file(path(), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(size / 2);
    file << std::string(static_cast<std::size_t>(size / 2), '\xA5');
    file.close();
    SqliteSession session(name());
    const Refusal refusal = refusalOf([&] { static_cast<void>(session.records()); });
    EXPECT_EQ(refusal.code, SQLITE_CORRUPT);
    EXPECT_TRUE(refusal.says(u"is damaged"));
    EXPECT_EQ(refusal.context, HelpContext::damaged);
}

TEST_F(SqliteFault, AnotherProgramsDatabaseHasNoRulesAndKeepsItsJournal) {
    OtherProgram(path()).run(u"CREATE TABLE OTHER (X)");
    SqliteSession session(name());
    const Refusal refusal = refusalOf([&] { static_cast<void>(session.records()); });
    EXPECT_EQ(refusal.code, SQLITE_ERROR);
    EXPECT_TRUE(refusal.says(u"lacks a table (no such table: SMS_RULES)."));
    EXPECT_EQ(OtherProgram(path()).valueOf(u"PRAGMA journal_mode"), u"delete");
}

TEST_F(SqliteFault, ALockedDatabaseIsReadAndWrittenOnceItIsFree) {
    makeRules();
    SqliteSession session(u"Provider=SQLite;Busy Timeout=5;Data Source=" + name());
    OtherProgram other(path());
    other.run(u"BEGIN IMMEDIATE");
    const auto rules = session.records();
    rules->setField(u"Name", u"mine");
    const Refusal refusal = refusalOf([&] { rules->update(); });
    EXPECT_EQ(refusal.code, SQLITE_BUSY);
    EXPECT_TRUE(refusal.says(u"is locked by another program"));
    EXPECT_EQ(rules->field(u"Name").text(), u"mine");
    other.run(u"ROLLBACK");
    rules->update();
    EXPECT_EQ(other.valueOf(u"SELECT Name FROM SMS_RULES"), u"mine");
}

TEST_F(SqliteFault, AWriteWaitsForTheLockOfAnotherProgram) {
    makeRules();
    SqliteSession session(u"Provider=SQLite;Busy Timeout=600000;Data Source=" + name());
    OtherProgram other(path());
    other.run(u"BEGIN IMMEDIATE");
    std::thread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        other.run(u"COMMIT");
    });
    const auto rules = session.records();
    rules->setField(u"Name", u"mine");
    EXPECT_EQ(refusalOf([&] { rules->update(); }).code, 0);
    release.join();
    EXPECT_EQ(other.valueOf(u"SELECT Name FROM SMS_RULES"), u"mine");
}

TEST_F(SqliteFault, AnExclusivelyLockedDatabaseDoesNotOpen) {
    OtherProgram other(path());
    other.run(u"CREATE TABLE OTHER (X); BEGIN EXCLUSIVE");
    const Refusal refusal = refusalOf(
        [&] { SqliteSession session(u"Provider=SQLite;Busy Timeout=5;Data Source=" + name()); });
    EXPECT_EQ(refusal.code, SQLITE_BUSY);
    EXPECT_TRUE(refusal.says(u"is locked by another program"));
}

TEST_F(SqliteFault, AReadOnlyFileIsReadAndNotWritten) {
    makeRules();
    const WithoutRights guard(folder(), path(), FolderRights::write);
    SqliteSession session(name());
    const auto rules = session.records();
    EXPECT_EQ(rules->field(u"Name").text(), u"stored");
    rules->setField(u"Name", u"mine");
    const Refusal refusal = refusalOf([&] { rules->update(); });
    EXPECT_EQ(refusal.code, SQLITE_READONLY);
    EXPECT_TRUE(refusal.says(u"is read-only"));
    EXPECT_EQ(session.records()->field(u"Name").text(), u"stored");
}

TEST_F(SqliteFault, AReadOnlyFileInAReadOnlyFolderIsReadAndNotWritten) {
    const std::string file = "a b?c#d%25\u00E9.db";
    makeRules(file);
    const WithoutRights guard(folder(), path(file), FolderRights::read);
    SqliteSession session(u"Provider=SQLite;Data Source=" + name(file));
    const auto rules = session.records();
    EXPECT_EQ(rules->field(u"Name").text(), u"stored");
    rules->setField(u"Name", u"mine");
    EXPECT_EQ(refusalOf([&] { rules->update(); }).code, SQLITE_READONLY);
}

TEST_F(SqliteFault, AnOlderJournalInAReadOnlyFolderIsRead) {
    makeRules();
    OtherProgram(path()).run(u"PRAGMA journal_mode = DELETE");
    const WithoutRights guard(folder(), path(), FolderRights::read);
    SqliteSession session(name());
    EXPECT_EQ(session.records()->field(u"Name").text(), u"stored");
}

TEST_F(SqliteFault, AWritableFileInAReadOnlyFolderIsReadAndNotWritten) {
    makeRules();
    OtherProgram(path()).run(u"PRAGMA journal_mode = DELETE");
    const WithoutRights guard(folder(), path(), FolderRights::read, FileRights::write);
    SqliteSession session(name());
    const auto rules = session.records();
    EXPECT_EQ(rules->field(u"Name").text(), u"stored");
    rules->setField(u"Name", u"mine");
    const Refusal refusal = refusalOf([&] { rules->update(); });
    EXPECT_EQ(refusal.context, HelpContext::forbidden);
    EXPECT_EQ(session.records()->field(u"Name").text(), u"stored");
}

TEST_F(SqliteFault, AFileInAReadOnlyFolderIsNotReadWithoutTheLogThatLiesThere) {
    makeRules();
    OtherProgram(path()).run(u"PRAGMA journal_mode = WAL");
    OtherProgram other(path());
    other.run(u"UPDATE SMS_RULES SET Name = 'in the log'");
    std::filesystem::copy_file(path(), path("copy.db"));
    std::filesystem::copy_file(path() + "-wal", path("copy.db-wal"));
    const WithoutRights guard(folder(), path("copy.db"), FolderRights::read);
    const Refusal refusal = refusalOf([&] { SqliteSession session(name("copy.db")); });
    EXPECT_EQ(refusal.code, SQLITE_CANTOPEN);
    EXPECT_TRUE(refusal.says(name("copy.db")));
}

TEST_F(SqliteFault, ADatabaseWithTheRulesTableWritesAheadWhateverTheCaseOfItsName) {
    OtherProgram(path()).run(u"CREATE TABLE sms_rules (ID INTEGER PRIMARY KEY, Name)");
    EXPECT_TRUE(SqliteSession(name()).records()->eof());
    EXPECT_EQ(OtherProgram(path()).valueOf(u"PRAGMA journal_mode"), u"wal");
    OtherProgram(path("view.db"))
        .run(u"CREATE TABLE T (ID); CREATE VIEW SMS_RULES AS SELECT * FROM T");
    EXPECT_TRUE(SqliteSession(name("view.db")).records()->eof());
    EXPECT_EQ(OtherProgram(path("view.db")).valueOf(u"PRAGMA journal_mode"), u"delete");
}

TEST_F(SqliteFault, AnUnreadableFileIsNamed) {
    makeRules();
    const WithoutRights guard(folder(), path(), FolderRights::write, FileRights::none);
    const Refusal refusal = opening();
    EXPECT_EQ(refusal.code, SQLITE_CANTOPEN);
    EXPECT_TRUE(refusal.says(name()));
    EXPECT_TRUE(refusal.says(u"cannot be opened"));
}

TEST_F(SqliteFault, AUriForReadingIsNotWritten) {
    makeRules();
    SqliteSession session(u"file:" + name() + u"?mode=ro");
    const auto rules = session.records();
    rules->setField(u"Name", u"mine");
    EXPECT_EQ(refusalOf([&] { rules->update(); }).code, SQLITE_READONLY);
}

TEST_F(SqliteFault, AFileThatWasMovedReplacedOrRemovedIsNotWrittenUntilItIsBack) {
    makeRules();
    SqliteSession session(name());
    const std::u16string why =
        u"The database file " + name() + u" was moved, replaced or removed since it was opened.";
    const auto expectRefused = [&](const std::u16string &outcome, const auto &call) {
        expectError(sqlite::errorBase + SQLITE_READONLY_DBMOVED,
                    outcome + u" was not stored. " + why, call);
    };
    const auto rules = session.records();
    rules->setField(u"Name", u"mine");
    std::filesystem::rename(path(), path("aside.db"));
    expectRefused(u"The change of record ID 1", [&] { rules->update(); });
    write("another file");
    expectRefused(u"The change of record ID 1", [&] { rules->update(); });
    expectRefused(u"The removal of record ID 1", [&] { rules->deleteCurrent(); });
    rules->addNew();
    expectRefused(u"The new record", [&] { rules->update(); });
    EXPECT_EQ(std::filesystem::file_size(path()), std::string("another file").size());
    std::filesystem::rename(path("aside.db"), path());
    rules->moveFirst();
    rules->setField(u"Name", u"mine");
    rules->update();
    EXPECT_EQ(OtherProgram(path()).valueOf(u"SELECT group_concat(Name) FROM SMS_RULES"), u"mine");
}

TEST_F(SqliteFault, AFailedWriteStoresNothingAndCanBeRepeated) {
    makeRules();
    SqliteSession session(name());
    const auto rules = session.records();
    const std::u16string text(70000, u'x');
    rules->setField(u"Name", u"mine");
    rules->setField(u"QueryParam", text);
    {
        const FileSizeLimit limit(0x4000);
        const Refusal refusal = refusalOf([&] { rules->update(); });
        EXPECT_EQ(refusal.code, SQLITE_IOERR);
        EXPECT_TRUE(refusal.says(u"cannot be read or written"));
    }
    EXPECT_EQ(OtherProgram(path()).valueOf(u"SELECT Name FROM SMS_RULES"), u"stored");
    rules->update();
    EXPECT_EQ(OtherProgram(path()).valueOf(u"SELECT QueryParam FROM SMS_RULES"), text);
}

TEST_F(SqliteFault, ARefusedValueGivesAnErrorThatNamesTheConstraint) {
    makeRules();
    SqliteSession session(name());
    const auto rules = session.records();
    rules->addNew();
    rules->setField(u"ID", std::int64_t{1});
    const Refusal refusal = refusalOf([&] { rules->update(); });
    EXPECT_EQ(refusal.code, SQLITE_CONSTRAINT);
    EXPECT_TRUE(refusal.says(u"SMS_RULES.ID"));
}

TEST_F(SqliteFault, AStringWithoutADataSourceNamesNoDatabase) {
    for (const std::u16string_view text :
         {u"Provider=SQLite", u"Provider=SQLite;Data Source=", u""}) {
        const auto error = raisedBy([&] { SqliteSession session(text); }).value();
        EXPECT_EQ(error.number(), error_number::badArgument);
        EXPECT_NE(error.description().find(u"Data Source"), std::u16string::npos);
    }
}

TEST_F(SqliteFault, ABusyTimeoutMustBeANumber) {
    makeRules();
    for (const std::u16string_view timeout : {u"", u"-1", u"soon", u"1.5", u"99999999999"}) {
        EXPECT_EQ(refusalOf([&] {
                      SqliteSession session(u"Provider=SQLite;Data Source=" + name() +
                                            u";Busy Timeout=" + std::u16string(timeout));
                  }).description,
                  u"The connection string's Busy Timeout is not a whole number of milliseconds.");
    }
}

TEST_F(SqliteFault, ABusyTimeoutHasUpToNineDigits) {
    makeRules();
    for (const std::u16string_view timeout : {u"0", u"999999999"}) {
        SqliteSession session(u"Provider=SQLite;Data Source=" + name() + u";Busy Timeout=" +
                              std::u16string(timeout));
        EXPECT_EQ(session.records(u"PRAGMA busy_timeout")->field(u"timeout").text(), timeout);
    }
    for (const std::u16string_view timeout : {u"1000000000", u"1/", u"1:", u"+1", u"1 0"}) {
        EXPECT_EQ(refusalOf([&] {
                      SqliteSession session(u"Provider=SQLite;Data Source=" + name() +
                                            u";Busy Timeout=" + std::u16string(timeout));
                  }).description,
                  u"The connection string's Busy Timeout is not a whole number of milliseconds.");
    }
}

TEST_F(SqliteFault, TheErrorSaysWhetherAFileIsMissingAFolderOrForbidden) {
    EXPECT_EQ(opening().description,
              u"The database file " + name() + u" does not exist (unable to open database file).");
    const std::u16string folderName = fromUtf8(folder().string());
    EXPECT_EQ(refusalOf([&] { SqliteSession session(folderName); }).description,
              u"The database " + folderName + u" is a folder (unable to open database file).");
    EXPECT_EQ(
        refusalOf([&] { SqliteSession session(u"file:" + name() + u"?mode=rw"); }).description,
        u"The database file file:" + name() +
            u"?mode=rw cannot be opened (unable to open database file).");
    write("");
    EXPECT_EQ(opening().description, u"The database file " + name() + u" is empty.");
    OtherProgram(path()).run(u"CREATE TABLE OTHER (X)");
    EXPECT_EQ(refusalOf([&] {
                  SqliteSession session(name());
                  static_cast<void>(session.records());
              }).description,
              u"The database " + name() + u" lacks a table (no such table: SMS_RULES).");
}

} // namespace kvex::test
