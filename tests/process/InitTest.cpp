#include "tests/process/KvexrulesTest.h"

namespace kvex::process {
namespace {

using testing::AllOf;
using testing::HasSubstr;

class Init : public KvexrulesTest {
protected:
    static std::filesystem::perms permissions(const std::filesystem::path &file) {
        return std::filesystem::status(file).permissions();
    }

    static constexpr std::filesystem::perms readableAndWritable =
        std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
};

TEST_F(Init, MakesTheTables) {
    EXPECT_EQ(done({"init"}), "ready: " + database.string() + "\n");
    EXPECT_EQ(sqlite3(database, "SELECT name FROM sqlite_schema WHERE name LIKE 'SMS%' ORDER BY 1"),
              "SMS_ACCOUNT\nSMS_CONTACTS\nSMS_RULES\nSMS_SCHEMA\nSMS_SERVICE\nSMS_SERVICECOMMANDS\n"
              "SMS_USERS\n");
    EXPECT_EQ(sqlite3(database, "SELECT count(*) FROM SMS_RULES"), "0\n");
}

TEST_F(Init, MakesTheTablesInAnEmptyFile) {
    writeFile(database, "");
    done({"init"});
    EXPECT_EQ(sqlite3(database, "SELECT count(*) FROM SMS_RULES"), "0\n");
}

TEST_F(Init, AddsSampleDataOfEveryKind) {
    done({"init", "--sample"});
    EXPECT_EQ(sqlite3(database, "SELECT DISTINCT BIND_MODE FROM SMS_ACCOUNT ORDER BY 1"),
              "RECEIVER\nTRANSCEIVER\nTRANSMITTER\ntransceiver\n");
    EXPECT_EQ(sqlite3(database, "SELECT NAME FROM SMS_USERS WHERE ID = 1"), "SYSTEM\n");
    for (const char *tag : {"<ALLMESSAGES>", "<IGNOREIFSERVICE>YES", "<PEOPLE><CON><ANY>",
                            "<PEOPLE><NOT><ANY>", "<ACCOUNT><CON><ANY>", "<ACCOUNT><NOT><ANY>",
                            "<WORD><CON><ANY>", "<WORD><NOT><ALL><ASCOMMAND>", "<DATETIME>"}) {
        EXPECT_NE(sqlite3(database, "SELECT ID FROM SMS_RULES WHERE instr(QueryParam, '" +
                                        std::string(tag) + "')"),
                  "")
            << tag;
    }
    for (const char *tag : {"<DIST>", "<REPLY>", "<ALERT>", "<DELETE>YES",
                            "<IGNOREFURTHERRULES>YES", "<IGNOREFURTHERRULES>NO"}) {
        EXPECT_NE(sqlite3(database, "SELECT ID FROM SMS_RULES WHERE instr(ActionParam, '" +
                                        std::string(tag) + "')"),
                  "")
            << tag;
    }
    for (const char *table : {"SMS_SERVICE", "SMS_SERVICECOMMANDS", "SMS_CONTACTS"}) {
        EXPECT_NE(sqlite3(database, "SELECT count(*) FROM " + std::string(table)), "0\n") << table;
    }
}

TEST_F(Init, AddsSampleRulesThatTheServerReads) {
    done({"init", "--sample"});
    EXPECT_EQ(sqlite3(database, "SELECT QueryParam FROM SMS_RULES WHERE ID = 1"),
              "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>9811100011;9811100022"
              "</PEOPLE><WORD><NOT><ALL><ASCOMMAND>STOP;HALT</WORD><DATETIME>20240301 09:00:00,"
              "20240331 18:30:00</DATETIME>\n");
    EXPECT_EQ(sqlite3(database, "SELECT ActionParam FROM SMS_RULES WHERE ID = 1"),
              "<DIST>3;7</DIST><REPLY>Received;2</REPLY><ALERT>New message;2;9811100033;"
              "9811100044</ALERT><DELETE>NO</DELETE><IGNOREFURTHERRULES>YES"
              "</IGNOREFURTHERRULES>\n");
}

TEST_F(Init, GivesNewRulesHigherIdsThanTheSamples) {
    done({"init", "--sample"});
    EXPECT_EQ(sqlite3(database, "DELETE FROM SMS_RULES WHERE ID = 7; INSERT INTO SMS_RULES (Name) "
                                "VALUES ('n') RETURNING ID"),
              "8\n");
}

TEST_F(Init, RefusesADatabaseThatHasItsTables) {
    done({"init", "--sample"});
    const std::string before = sqlite3(database, ".dump");
    EXPECT_THAT(failed(1, {"init"}),
                AllOf(HasSubstr("has its tables already"), HasSubstr("--database")));
    EXPECT_THAT(failed(1, {"init", "--sample"}), HasSubstr("holds data already"));
    EXPECT_EQ(sqlite3(database, ".dump"), before);
}

TEST_F(Init, AddsSampleDataToTablesWithoutRows) {
    done({"init"});
    EXPECT_EQ(done({"init", "--sample"}), "ready: " + database.string() + "\n");
    EXPECT_EQ(sqlite3(database, "SELECT count(*) FROM SMS_RULES"), "7\n");
}

TEST_F(Init, AddsNothingToASingleRow) {
    done({"init"});
    sqlite3(database, "INSERT INTO SMS_CONTACTS (NAME) VALUES ('Asha')");
    EXPECT_THAT(failed(1, {"init", "--sample"}), HasSubstr("holds data already"));
    EXPECT_EQ(sqlite3(database, "SELECT count(*) FROM SMS_USERS"), "0\n");
}

TEST_F(Init, MakesAFileForItsOwnerAlone) {
    environment.erase("KVEX_DATABASE");
    done({"init", "--sample"});
    const std::filesystem::path own = folder / "home/.local/share/kvex";
    EXPECT_EQ(permissions(own), std::filesystem::perms::owner_all);
    EXPECT_EQ(permissions(own / "rules.db"), readableAndWritable);
}

TEST_F(Init, LeavesAFilesPermissions) {
    writeFile(database, "");
    std::filesystem::permissions(database,
                                 readableAndWritable | std::filesystem::perms::group_read);
    done({"init"});
    EXPECT_EQ(permissions(database), readableAndWritable | std::filesystem::perms::group_read);
}

TEST_F(Init, RefusedByTheDatabaseEndsAsTheHelpSays) {
    done({"init"});
    sqlite3(database, "CREATE TRIGGER NEVER BEFORE INSERT ON SMS_CONTACTS BEGIN SELECT "
                      "RAISE(ABORT, 'never'); END");
    EXPECT_THAT(failed(1, {"init", "--sample"}), HasSubstr("never"));
    EXPECT_EQ(sqlite3(database, "SELECT count(*) FROM SMS_RULES"), "0\n");
}

TEST_F(Init, RefusesTheTablesOfAnotherProgram) {
    sqlite3(database, "CREATE TABLE OTHER (A); INSERT INTO OTHER VALUES (1)");
    const std::string before = sqlite3(database, ".dump");
    EXPECT_THAT(failed(1, {"init"}), HasSubstr("another program"));
    EXPECT_EQ(sqlite3(database, ".dump"), before);
}

TEST_F(Init, RefusesATableOfAnotherShape) {
    sqlite3(database, "CREATE TABLE SMS_RULES (A)");
    const std::string before = sqlite3(database, ".dump");
    EXPECT_THAT(failed(1, {"init"}), HasSubstr("SMS_RULES has no column ID"));
    EXPECT_EQ(sqlite3(database, ".dump"), before);
}

TEST_F(Init, AddsATableThatIsMissing) {
    done({"init"});
    sqlite3(database, "DROP TABLE SMS_CONTACTS");
    done({"init"});
    EXPECT_EQ(sqlite3(database, "SELECT count(*) FROM SMS_CONTACTS"), "0\n");
}

TEST_F(Init, LeavesAFileAloneThatIsNoDatabase) {
    writeFile(database, "Dear diary");
    EXPECT_THAT(failed(2, {"init"}), HasSubstr("is no database"));
    EXPECT_EQ(readFile(database), "Dear diary");
}

TEST_F(Init, MakesNoFolderForADatabaseThatWasNamed) {
    EXPECT_THAT(failed(2, {"init", "--database", (folder / "no/rules.db").string()}),
                HasSubstr("folder"));
    EXPECT_FALSE(std::filesystem::exists(folder / "no"));
}

TEST_F(Init, ReportsThatTheUsersFolderCannotBeMade) {
    environment.erase("KVEX_DATABASE");
    writeFile(folder / "file", "");
    environment["XDG_DATA_HOME"] = (folder / "file").string();
    EXPECT_THAT(failed(2, {"init"}),
                AllOf(HasSubstr("cannot be created"), HasSubstr("--database")));
}

TEST_F(Init, DoesNotCreateADatabaseOnAServer) {
    EXPECT_THAT(failed(2, {"init", "--database", "DSN=none;PWD=s3cret"}),
                AllOf(HasSubstr("no ODBC data source"), HasSubstr("administrator"),
                      HasSubstr("named by --database"), testing::Not(HasSubstr("s3cret"))));
}

} // namespace
} // namespace kvex::process
