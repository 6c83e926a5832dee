// What docs/security.md promises about files, libraries, secrets and hostile content.
#include "tests/process/KvexrulesTest.h"

#include <algorithm>
#include <sys/stat.h>

namespace kvex::process {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class Security : public KvexrulesTest {
protected:
    static mode_t modeOf(const std::filesystem::path &file) {
        struct stat status {};
        EXPECT_EQ(::stat(file.c_str(), &status), 0) << file;
        return status.st_mode & 07777U;
    }
    /// Makes rule 1 unreadable, so that `show 1` writes a line to the log.
    void breakRule() const {
        done({"init", "--sample"});
        sqlite3(database, "UPDATE SMS_RULES SET Name = NULL WHERE ID = 1");
    }
};

TEST_F(Security, ANewLogAndItsFolderAreForTheirOwnerAlone) {
    breakRule();
    const mode_t before = ::umask(0);
    static_cast<void>(kvexrules({"show", "1", "--log", (folder / "own.log").string()}));
    ::umask(before);
    EXPECT_EQ(modeOf(folder / "own.log"), 0600U);
}

TEST_F(Security, ANewDatabaseIsForItsOwnerAloneWhateverTheUmask) {
    environment.erase("KVEX_DATABASE");
    const mode_t before = ::umask(0);
    done({"init"});
    ::umask(before);
    EXPECT_EQ(modeOf(folder / "home/.local/share/kvex"), 0700U);
    EXPECT_EQ(modeOf(folder / "home/.local/share/kvex/rules.db"), 0600U);
}

TEST_F(Security, ExportedRulesAndBackupsAreForTheirOwnerAloneWhateverTheUmask) {
    done({"init", "--sample"});
    const mode_t before = ::umask(0);
    done({"export", "--file", (folder / "rules.json").string()});
    done({"remove", "1", "--yes"});
    ::umask(before);
    EXPECT_EQ(modeOf(folder / "rules.json"), 0600U);
    const std::filesystem::path backups = folder / "home/.local/state/kvex/backups";
    ASSERT_NE(std::filesystem::directory_iterator(backups), std::filesystem::directory_iterator());
    EXPECT_EQ(modeOf(std::filesystem::directory_iterator(backups)->path()), 0600U);
    EXPECT_EQ(modeOf(backups.parent_path()), 0700U);
}

TEST_F(Security, TheConfigurationFileIsOnlyRead) {
    done({"init"});
    const std::filesystem::path file = folder / "home/.config/kvex/kvexrules.conf";
    std::filesystem::create_directories(file.parent_path());
    writeFile(file, "database = " + database.string() + "\n");
    ::chmod(file.c_str(), 0440);
    environment.erase("KVEX_DATABASE");
    EXPECT_EQ(done({"list"}), "");
    EXPECT_EQ(modeOf(file), 0440U);
    EXPECT_EQ(readFile(file), "database = " + database.string() + "\n");
}

TEST_F(Security, LibrariesInTheWorkingFolderAreNotLoaded) {
    done({"init", "--sample"});
    for (const char *library : {"libKVEXClassServer.so.1", "libKVEXMessageRules.so",
                                "libKVEXHostSuite.so", "libsqlite3.so.0", "libodbc.so.2"}) {
        writeFile(folder / library, "no library");
    }
    EXPECT_THAT(done({"show", "7"}), HasSubstr("For ALL Messages"));
}

TEST_F(Security, AConnectionStringCanNameTheLibraryOfADriver) {
    writeFile(folder / "driver.so", "no library");
    EXPECT_THAT(failed(2, {"list", "--database",
                           "Driver=" + (folder / "driver.so").string() + ";Server=x"}),
                HasSubstr("driver.so"));
}

TEST_F(Security, SqlInAContactIsStoredAsText) {
    done({"init"});
    writeFile(folder / "book.csv", "Name,Mobile\n\"'); DROP TABLE SMS_RULES; --\",123\n");
    done({"contacts", "import", "book.csv"});
    EXPECT_EQ(sqlite3(database, "SELECT Name FROM SMS_CONTACTS"), "'); DROP TABLE SMS_RULES; --\n");
    EXPECT_EQ(sqlite3(database, "SELECT count(*) FROM SMS_RULES"), "0\n");
}

TEST_F(Security, AMessageAtATerminalShowsNeitherAPasswordNorAControlCharacter) {
    const std::string told =
        atTerminal(
            {"list", "--database",
             "Provider=SQLite;Data Source=" + (folder / "\x1b[2J.db").string() + ";PWD=s3cret"})
            .output;
    EXPECT_THAT(told, AllOf(HasSubstr("\uFFFD[2J.db does not exist"), Not(HasSubstr("s3cret")),
                            Not(HasSubstr("\x1b"))));
}

TEST_F(Security, ALogEntryIsOneLineWhateverTheRuleHolds) {
    done({"init", "--sample"});
    sqlite3(database, "UPDATE SMS_RULES SET QueryParam = '<DATETIME>', "
                      "Name = 'a' || char(10) || char(27) || '[2Jb' WHERE ID = 1");
    EXPECT_EQ(kvexrules({"show", "1", "--log", (folder / "own.log").string()}).status, 1);
    const std::string log = readFile(folder / "own.log");
    EXPECT_EQ(std::ranges::count(log, '\n'), 1) << log;
    EXPECT_THAT(log, Not(HasSubstr("\x1b")));
}

} // namespace
} // namespace kvex::process
