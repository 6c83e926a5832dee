// A backup goes back into each kind of database.
#include "tests/process/AnyDatabase.h"

namespace kvex::process {
namespace {

using testing::AllOf;
using testing::HasSubstr;

class Restore : public AnyDatabase {
protected:
    void backUp() { done({"backup", backup.string()}); }
    [[nodiscard]] std::string restored() const {
        return done({"restore", backup.string(), "--yes"});
    }
    void change() const {
        run("DELETE FROM SMS_RULES WHERE ID = 2");
        run("UPDATE SMS_RULES SET Name = 'O''Neill', ActionParam = NULL WHERE ID = 1");
        run("INSERT INTO SMS_RULES (Name) VALUES ('new')");
        run("DELETE FROM SMS_USERS");
    }

    std::filesystem::path backup = folder / "backup.db";
};

TEST_P(Restore, BringsBackWhatTheBackupHoldsAndKeepsWhatItReplaces) {
    done({"init", "--sample"});
    const std::vector<std::string> before = content();
    backUp();
    change();
    const std::vector<std::string> changed = content();
    const std::string output = restored();
    ASSERT_EQ(keptBackups().size(), 1U);
    EXPECT_EQ(output, "SMS_RULES: 1 added, 1 changed, 1 removed\n"
                      "SMS_USERS: 7 added, 0 changed, 0 removed\n"
                      "kept: " +
                          keptBackups()[0].string() + "\n");
    EXPECT_EQ(content(), before);
    EXPECT_EQ(contentOf(keptBackups()[0]), changed);
    EXPECT_EQ(restored(), "unchanged: the tables hold what the backup holds\n");
    EXPECT_EQ(keptBackups().size(), 1U);
}

TEST_P(Restore, GivesNewRowsIdsAboveAllThatWereEverThere) {
    done({"init"});
    run("INSERT INTO SMS_RULES (ID, Name) VALUES (500, 'high')");
    run("INSERT INTO SMS_USERS (NAME) VALUES ('a')");
    backUp();
    run("DELETE FROM SMS_RULES");
    static_cast<void>(restored());
    run("INSERT INTO SMS_RULES (Name) VALUES ('next')");
    EXPECT_EQ(valueOf("SELECT ID FROM SMS_RULES WHERE Name = 'next'"), "501");
    run("INSERT INTO SMS_USERS (NAME) VALUES ('removed')");
    static_cast<void>(restored());
    run("INSERT INTO SMS_USERS (NAME) VALUES ('next')");
    EXPECT_EQ(valueOf("SELECT ID FROM SMS_USERS WHERE NAME = 'next'"), "3");
}

TEST_P(Restore, TakesTenThousandRulesIntoAnEmptyDatabase) {
    done({"init", "--database", backup.string()});
    sqlite3(backup, "WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i + 3 FROM n LIMIT 10000) "
                    "INSERT INTO SMS_RULES (ID, Name, QueryParam, ActionParam, PRIORITY) SELECT i, "
                    "'मदद 🌙 ' || i, '<WORD><CON><ANY>' || replace(hex(zeroblob(500)), '00', "
                    "'help;') || '</WORD>', NULL, i % 700 FROM n");
    done({"init"});
    EXPECT_THAT(restored(), HasSubstr("SMS_RULES: 10000 added, 0 changed, 0 removed"));
    EXPECT_EQ(content(), contentOf(backup));
    EXPECT_EQ(done({"list"}), done({"list", "--database", backup.string()}));
}

TEST_P(Restore, TakesABackupOfOlderTables) {
    done({"init", "--sample"});
    run("DROP TABLE SMS_SCHEMA");
    const std::vector<std::string> before = content();
    backUp();
    done({"upgrade"});
    change();
    EXPECT_THAT(restored(), HasSubstr("SMS_RULES: 1 added, 1 changed, 1 removed"));
    EXPECT_EQ(content(), before);
    EXPECT_EQ(valueOf("SELECT MAX(VERSION) FROM SMS_SCHEMA"), "1");
    EXPECT_EQ(sqlite3(backup, "SELECT count(*) FROM sqlite_schema WHERE name = 'SMS_SCHEMA'"),
              "0\n");
}

TEST_P(Restore, AsksAtATerminalAndChangesNothingWithoutAYes) {
    done({"init", "--sample"});
    backUp();
    change();
    const std::vector<std::string> changed = content();
    EXPECT_THAT(failed(1, {"restore", backup.string()}),
                HasSubstr("Nobody can be asked here, so nothing was changed. To restore "
                          "without a question, add --yes."));
    EXPECT_EQ(atTerminal({"restore", backup.string()}, "n\n").status, 1);
    EXPECT_EQ(content(), changed);
    EXPECT_TRUE(keptBackups().empty());
    EXPECT_EQ(atTerminal({"restore", backup.string()}, "y\n").status, 0);
    EXPECT_EQ(content(), contentOf(backup));
}

TEST_P(Restore, RefusesWhatIsNoBackupOfTheTables) {
    done({"init", "--sample"});
    const std::vector<std::string> before = content();
    writeFile(folder / "text", std::string(5000, 'x'));
    sqlite3(folder / "other.db", "CREATE TABLE OTHER (A)");
    backUp();
    const auto refused = [this](const std::filesystem::path &file) {
        return failed(1, {"restore", file.string(), "--yes"});
    };
    EXPECT_THAT(refused(folder / "none.db"), HasSubstr("does not exist"));
    EXPECT_THAT(refused(folder / "text"), HasSubstr("is no database"));
    EXPECT_THAT(refused(folder / "other.db"), HasSubstr("is no backup: it has no table SMS_RULES"));
    sqlite3(backup, "INSERT INTO SMS_SCHEMA (VERSION) VALUES (2)");
    EXPECT_THAT(refused(backup), HasSubstr("has version 2 of the tables, which this program does "
                                           "not know"));
    sqlite3(backup, "DELETE FROM SMS_SCHEMA WHERE VERSION = 2; ALTER TABLE SMS_CONTACTS ADD MAIL");
    EXPECT_THAT(refused(backup), HasSubstr("SMS_CONTACTS has a column MAIL in the backup, which "
                                           "the database lacks"));
    EXPECT_EQ(content(), before);
    EXPECT_TRUE(keptBackups().empty());
}

TEST_P(Restore, StoresNothingWhenTheDatabaseRefusesARow) {
    done({"init", "--sample"});
    backUp();
    change();
    const std::vector<std::string> changed = content();
    sqlite3(backup, "UPDATE SMS_CONTACTS SET MOBILE = x'ff31' WHERE ID = 2");
    EXPECT_THAT(failed(1, {"restore", backup.string(), "--yes"}),
                HasSubstr("SMS_CONTACTS has bytes that are no text in the backup, in the column "
                          "MOBILE of the row 2"));
    EXPECT_EQ(content(), changed);
    if (!isFile()) {
        sqlite3(backup, "UPDATE SMS_CONTACTS SET MOBILE = printf('%.300c', '1') WHERE ID = 2");
        EXPECT_THAT(failed(1, {"restore", backup.string(), "--yes"}), HasSubstr("too long"));
        EXPECT_EQ(content(), changed);
    }
}

TEST_P(Restore, StoresNothingWhenTheDatabaseWouldChangeAValue) {
    done({"init", "--sample"});
    backUp();
    change();
    const std::vector<std::string> changed = content();
    sqlite3(backup, "INSERT INTO SMS_CONTACTS (ID, NAME) VALUES (0, 'zero')");
    if (GetParam().name != std::string("MariaDb")) {
        EXPECT_THAT(restored(), HasSubstr("SMS_CONTACTS: 1 added"));
        EXPECT_EQ(content(), contentOf(backup));
        return;
    }
    // MariaDB gives a row with the id 0 another one.
    EXPECT_THAT(failed(1, {"restore", backup.string(), "--yes"}),
                HasSubstr("does not keep a value of the backup's table SMS_CONTACTS as it is"));
    EXPECT_EQ(content(), changed);
}

TEST_P(Restore, RefusesWhileAnotherProgramWritesTheRules) {
    if (isFile()) {
        return; // tests/host/RestoreTest.cpp locks a file.
    }
    done({"init", "--sample"});
    backUp();
    change();
    const std::vector<std::string> changed = content();
    environment["KVEX_DATABASE"] += ";Connect Timeout=3";
    run("BEGIN; INSERT INTO SMS_RULES (Name) VALUES ('meanwhile')");
    EXPECT_THAT(failed(1, {"restore", backup.string(), "--yes"}), HasSubstr("locked"));
    run("ROLLBACK");
    EXPECT_EQ(content(), changed);
    EXPECT_TRUE(keptBackups().empty());
}

INSTANTIATE_TEST_SUITE_P(, Restore, testing::ValuesIn(anyKinds()), anyKindName);

} // namespace
} // namespace kvex::process
