// Creating the server's tables.
#include "tests/databases/SqliteSchema.h"
#include "platform/Text.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/recordset/SqliteSession.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace kvex::test {
namespace {

class SqliteSchema : public testing::Test {
protected:
    [[nodiscard]] std::string path() const { return folder_.path() / "rules.db"; }
    bool create() const { return createSqliteSchema(fromUtf8(path())); }
    [[nodiscard]] OtherProgram other() const { return OtherProgram(path()); }
    [[nodiscard]] std::u16string tableCount() const {
        return other().valueOf(u"SELECT COUNT(*) FROM sqlite_master WHERE name LIKE 'SMS!_%' "
                               u"ESCAPE '!' AND name <> 'SMS_SCHEMA'");
    }
    [[nodiscard]] const std::filesystem::path &folder() const { return folder_.path(); }

private:
    TemporaryFolder folder_;
};

} // namespace

TEST_F(SqliteSchema, TheFileAndItsSixTablesAreMadeOnce) {
    EXPECT_TRUE(create());
    EXPECT_EQ(tableCount(), u"6");
    EXPECT_EQ(other().rows(u"SELECT VERSION FROM SMS_SCHEMA"), std::vector<std::u16string>{u"1"});
    EXPECT_EQ(other().valueOf(u"PRAGMA journal_mode"), u"wal");
    other().run(u"INSERT INTO SMS_RULES (Name) VALUES ('kept')");
    EXPECT_FALSE(create());
    EXPECT_EQ(other().valueOf(u"SELECT Name FROM SMS_RULES"), u"kept");
}

TEST_F(SqliteSchema, AConnectionStringNamesTheDatabaseToo) {
    EXPECT_TRUE(createSqliteSchema(u"Provider=SQLite;Data Source=" + fromUtf8(path())));
    EXPECT_EQ(tableCount(), u"6");
}

TEST_F(SqliteSchema, TheQueriesOfTheSessionRun) {
    create();
    SqliteSession session(fromUtf8(path()));
    const std::u16string serviceCommands =
        u"SELECT * FROM SMS_SERVICECOMMANDS WHERE SERVICE_ID IN (SELECT ID FROM SMS_SERVICE WHERE "
        u"DELETED = 0 AND DISABLED = 0)";
    for (const std::u16string &query : std::vector<std::u16string>{
             u"SELECT * FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY",
             u"SELECT * FROM SMS_USERS WHERE DELETED = 0",
             u"SELECT * FROM SMS_ACCOUNT WHERE DELETED = 0",
             u"SELECT * FROM SMS_SERVICE WHERE DELETED = 0 AND DISABLED = 0", serviceCommands,
             u"SELECT ID, USER_ID, NAME, MOBILE FROM SMS_CONTACTS WHERE DELETED = 0"}) {
        EXPECT_TRUE(session.records(query)->eof());
    }
}

TEST_F(SqliteSchema, DefaultsMakeANewRuleLiveActiveAndFirst) {
    create();
    other().run(u"INSERT INTO SMS_RULES DEFAULT VALUES");
    EXPECT_EQ(other().valueOf(u"SELECT PRIORITY || ACTIVE || DELETED FROM SMS_RULES"), u"010");
}

TEST_F(SqliteSchema, MissingTablesAreAdded) {
    create();
    other().run(u"DROP TABLE SMS_CONTACTS");
    EXPECT_TRUE(create());
    EXPECT_EQ(tableCount(), u"6");
}

TEST_F(SqliteSchema, AnInterruptedCreationIsCompletedWithItsVersion) {
    // A server that stores each table at once leaves this behind.
    other().run(u"CREATE TABLE SMS_SCHEMA (ID INTEGER PRIMARY KEY, VERSION INTEGER); "
                u"CREATE TABLE SMS_USERS (ID INTEGER PRIMARY KEY, NAME, DELETED)");
    EXPECT_TRUE(create());
    EXPECT_EQ(tableCount(), u"6");
    EXPECT_EQ(other().valueOf(u"SELECT VERSION FROM SMS_SCHEMA"), u"1");
}

TEST_F(SqliteSchema, TablesThatAreNewerThanThisProgramGetNothing) {
    create();
    other().run(u"INSERT INTO SMS_SCHEMA (VERSION) VALUES (2); DROP TABLE SMS_CONTACTS");
    try {
        create();
        ADD_FAILURE();
    } catch (const Error &error) {
        EXPECT_EQ(error.helpContext(), HelpContext::newerSchema);
    }
    EXPECT_EQ(tableCount(), u"5");
}

TEST_F(SqliteSchema, AnEmptyFileGetsTheTables) {
    std::ofstream(path()).flush();
    EXPECT_TRUE(create());
    EXPECT_EQ(tableCount(), u"6");
}

TEST_F(SqliteSchema, OtherTablesAndFurtherColumnsAreLeft) {
    other().run(u"CREATE TABLE OTHER (X); CREATE TABLE sms_users (id INTEGER PRIMARY KEY, name, "
                u"deleted, address)");
    EXPECT_TRUE(create());
    EXPECT_EQ(other().valueOf(u"SELECT COUNT(*) FROM sqlite_master WHERE name = 'SMS_SCHEMA'"),
              u"0");
    EXPECT_EQ(other().valueOf(u"SELECT COUNT(*) FROM OTHER"), u"0");
    other().run(u"INSERT INTO SMS_USERS (address) VALUES ('kept')");
    EXPECT_FALSE(create());
}

TEST_F(SqliteSchema, ATableOfAnotherSchemaRefusesTheDatabaseAndChangesNothing) {
    other().run(u"CREATE TABLE SMS_SERVICE (ID INTEGER PRIMARY KEY, NAME, DELETED)");
    EXPECT_EQ(errorNumber([this] { create(); }), error_number::itemNotFound);
    EXPECT_TRUE(refusalOf([this] { create(); }).says(u"SMS_SERVICE has no column DISABLED"));
    EXPECT_EQ(tableCount(), u"1");
}

TEST_F(SqliteSchema, AFileOfAnotherKindIsLeftAsItIs) {
    std::ofstream(path()) << std::string(5000, 'x');
    EXPECT_EQ(refusalOf([this] { create(); }).code, SQLITE_NOTADB);
    EXPECT_EQ(std::filesystem::file_size(path()), 5000U);
}

TEST_F(SqliteSchema, NoFolderIsCreated) {
    EXPECT_EQ(refusalOf([this] {
                  createSqliteSchema(fromUtf8((folder() / "none" / "rules.db").string()));
              }).code,
              SQLITE_CANTOPEN);
    EXPECT_FALSE(std::filesystem::exists(folder() / "none"));
}

TEST_F(SqliteSchema, AConnectionThatIsNotOpenIsRefused) {
    recordset::ClientConnection closed({sqlite::provider()});
    EXPECT_EQ(errorNumber([&] { host::createSchema(closed); }), error_number::objectClosed);
}

TEST_F(SqliteSchema, ADatabaseThatMayNotBeWrittenIsLeftAsItIs) {
    create();
    EXPECT_FALSE(createSqliteSchema(fromUtf8("file:" + path() + "?mode=ro")));
}

TEST_F(SqliteSchema, TheColumnsOfATableAreFoundWhateverTheCaseOfItsName) {
    create();
    const recordset::ClientConnection connection = [this] {
        recordset::ClientConnection opened{{sqlite::provider()}};
        static_cast<Connection &>(opened).open(fromUtf8(path()));
        return opened;
    }();
    const auto driver = connection.driver().lock();
    EXPECT_EQ(driver->columnsOf(u"sms_Service"),
              (std::vector<std::u16string>{u"ID", u"NAME", u"DELETED", u"DISABLED"}));
    EXPECT_TRUE(driver->columnsOf(u"SMS_NONE").empty());
}

} // namespace kvex::test
