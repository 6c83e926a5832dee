// Tables of other versions, and of other programs.
#include "tests/process/AnyDatabase.h"

namespace kvex::process {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class Upgrade : public AnyDatabase {
protected:
    /// Makes tables as this program made them before they had a version.
    void makeOldTables() {
        done({"init", "--sample"});
        run("DROP TABLE SMS_SCHEMA");
    }
    [[nodiscard]] std::string version() const {
        return valueOf("SELECT MAX(VERSION) FROM SMS_SCHEMA");
    }
};

TEST_P(Upgrade, NewTablesHaveAVersion) {
    done({"init"});
    EXPECT_EQ(version(), "1");
    EXPECT_THAT(failed(1, {"upgrade"}), HasSubstr("have version 1 already"));
    EXPECT_EQ(version(), "1");
}

TEST_P(Upgrade, InitSaysWhatAnUpgradeOfOlderTablesWouldDo) {
    makeOldTables();
    EXPECT_THAT(failed(1, {"init"}),
                AllOf(HasSubstr("has its tables already, so nothing was changed. They have version "
                                "0, and this program knows a newer one. kvexrules upgrade would "
                                "make a backup, then upgrade them. Version 1: "),
                      HasSubstr("Version 1: the new table SMS_SCHEMA says which version the tables "
                                "have.")));
    EXPECT_THAT(failed(1, {"init"}), HasSubstr("version 0"));
}

TEST_P(Upgrade, OlderTablesAreUpgradedOnceAfterABackup) {
    makeOldTables();
    const std::vector<std::string> before = content();
    const std::string output = done({"upgrade"});
    ASSERT_EQ(keptBackups().size(), 1U);
    EXPECT_EQ(output, "upgraded: version 0 to 1\nbackup: " + keptBackups()[0].string() + "\n");
    EXPECT_EQ(content(), before);
    EXPECT_EQ(version(), "1");
    EXPECT_EQ(contentOf(keptBackups()[0]), before);
    EXPECT_EQ(done({"list", "--database", keptBackups()[0].string()}), done({"list"}));
    EXPECT_EQ(
        sqlite3(keptBackups()[0], "SELECT count(*) FROM sqlite_schema WHERE name = 'SMS_SCHEMA'"),
        "0\n");
    EXPECT_THAT(failed(1, {"upgrade"}), HasSubstr("have version 1 already"));
    EXPECT_EQ(keptBackups().size(), 1U);
}

TEST_P(Upgrade, WithoutAPlaceForTheBackupNothingIsUpgraded) {
    makeOldTables();
    writeFile(folder / "file", "");
    environment["XDG_STATE_HOME"] = (folder / "file").string();
    EXPECT_THAT(failed(1, {"upgrade"}),
                HasSubstr("/file/kvex/backups for a backup cannot be made"));
    EXPECT_THAT(failed(1, {"init"}), HasSubstr("version 0"));
    environment.erase("XDG_STATE_HOME");
    environment.erase("HOME");
    EXPECT_THAT(failed(1, {"upgrade"}), HasSubstr("HOME is not set"));
    environment["HOME"] = (folder / "home").string();
    EXPECT_THAT(failed(1, {"init"}), HasSubstr("version 0"));
}

TEST_P(Upgrade, TablesOfAnotherProgramWorkAsTheyAre) {
    makeOldTables();
    run("ALTER TABLE SMS_USERS ADD ADDRESS VARCHAR(50)");
    const std::vector<std::string> before = content();
    EXPECT_THAT(failed(1, {"init"}),
                AllOf(HasSubstr("nothing was changed. Name another"), Not(HasSubstr("upgrade"))));
    EXPECT_THAT(failed(1, {"upgrade"}), HasSubstr("Another program made these tables"));
    EXPECT_THAT(done({"list"}), HasSubstr("Not stopped in March"));
    EXPECT_EQ(content(), before);
    EXPECT_EQ(done({"contacts", "remove", "1"}), "1 contact removed.\n");
    EXPECT_TRUE(keptBackups().empty());
}

TEST_P(Upgrade, ATableOfThatNameThatAnotherProgramMadeSaysNoVersion) {
    makeOldTables();
    run("CREATE TABLE SMS_SCHEMA (A INTEGER)");
    EXPECT_THAT(done({"list"}), HasSubstr("Not stopped in March"));
    EXPECT_EQ(done({"contacts", "remove", "1"}), "1 contact removed.\n");
}

TEST_P(Upgrade, NewerTablesAreOnlyRead) {
    done({"init", "--sample"});
    const std::string list = done({"list"});
    const std::string shown = done({"show", "--all"});
    const std::string contacts = done({"contacts", "list"});
    const std::filesystem::path backup = folder / "backup.db";
    done({"backup", backup.string()});
    run("UPDATE SMS_RULES SET Name = 'other' WHERE ID = 1");
    run("INSERT INTO SMS_SCHEMA (VERSION) VALUES (99)");
    const std::vector<std::string> before = content();

    const std::string why = "The database's tables have version 99. This program knows version 1, "
                            "so it only reads them and stores no change.";
    const Outcome listed = kvexrules({"list"});
    EXPECT_EQ(listed.status, 0);
    EXPECT_THAT(listed.output, HasSubstr("other"));
    EXPECT_EQ(listed.errors, "kvexrules: " + why + "\n");
    const Outcome showed = kvexrules({"show", "--all"});
    EXPECT_EQ(showed.status, 0);
    EXPECT_EQ(showed.output, shown);
    EXPECT_EQ(showed.errors, "kvexrules: " + why + "\n");
    EXPECT_EQ(kvexrules({"contacts", "list"}).output, contacts);

    for (const std::vector<std::string> &change :
         std::vector<std::vector<std::string>>{{"init"},
                                               {"init", "--sample"},
                                               {"upgrade"},
                                               {"restore", backup.string(), "--yes"},
                                               {"contacts", "remove", "1"}}) {
        EXPECT_THAT(failed(1, change),
                    HasSubstr(why + " To change anything, use the newer version of this program"));
    }
    EXPECT_EQ(content(), before);
    EXPECT_EQ(version(), "99");
    EXPECT_TRUE(keptBackups().empty());

    const std::filesystem::path newer = folder / "newer.db";
    done({"backup", newer.string()});
    EXPECT_EQ(contentOf(newer), before);
    EXPECT_THAT(kvexrules({"list", "--database", newer.string()}).errors, EndsWith(why + "\n"));
}

INSTANTIATE_TEST_SUITE_P(, Upgrade, testing::ValuesIn(anyKinds()), anyKindName);

} // namespace
} // namespace kvex::process
