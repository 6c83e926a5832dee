// Backups of each kind of database.
#include "tests/process/AnyDatabase.h"

#include <atomic>
#include <thread>

namespace kvex::process {
namespace {

using testing::HasSubstr;

class Backup : public AnyDatabase {
protected:
    [[nodiscard]] std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::directory_iterator(folder / "backups")) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    std::filesystem::path backup = folder / "backups/o'brien; {मदद} 🌙.db";
};

TEST_P(Backup, HoldsEveryRowAsItIsAndIsADatabaseItself) {
    std::filesystem::create_directory(folder / "backups");
    done({"init", "--sample"});
    run("INSERT INTO SMS_RULES (Name, QueryParam, ACTIVE) VALUES ('O''Neill; मदद 🆘 ', NULL, NULL)");
    run("INSERT INTO SMS_RULES (Name, ActionParam, PRIORITY) VALUES (NULL, ' a\r\nb ', -7)");
    run("DELETE FROM SMS_RULES WHERE ID = 2");
    EXPECT_EQ(done({"backup", backup.string()}), "saved: " + backup.string() + "\n");
    EXPECT_EQ(files(), std::vector<std::string>{backup.filename().string()});
    EXPECT_EQ(contentOf(backup), content());
    EXPECT_EQ(sqlite3(backup, "SELECT VERSION FROM SMS_SCHEMA"), "1\n");
    EXPECT_EQ(std::filesystem::status(backup).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    const std::string bytes = readFile(backup);
    EXPECT_EQ(done({"list", "--database", backup.string()}), done({"list"}));
    EXPECT_EQ(done({"contacts", "list", "--database", backup.string()}),
              done({"contacts", "list"}));
    EXPECT_EQ(readFile(backup), bytes);
    EXPECT_EQ(files(), std::vector<std::string>{backup.filename().string()});
}

TEST_P(Backup, HoldsTheFurtherColumnsOfItsTables) {
    done({"init", "--sample"});
    run("ALTER TABLE SMS_USERS ADD ADDRESS VARCHAR(50)");
    run("UPDATE SMS_USERS SET ADDRESS = 'दिल्ली 1' WHERE ID = 2");
    done({"backup", "b.db"});
    EXPECT_EQ(sqlite3(folder / "b.db", "SELECT ADDRESS FROM SMS_USERS ORDER BY ID LIMIT 2"),
              "\nदिल्ली 1\n");
}

TEST_P(Backup, ReplacesAFileOnlyWhenAsked) {
    done({"init"});
    writeFile(folder / "b.db", "kept");
    EXPECT_THAT(failed(1, {"backup", "b.db"}), HasSubstr("already exists and was not changed"));
    EXPECT_EQ(readFile(folder / "b.db"), "kept");
    done({"backup", "b.db", "--replace"});
    EXPECT_EQ(contentOf(folder / "b.db"), content());
}

TEST_P(Backup, ThatCannotBeWrittenLeavesNothing) {
    done({"init"});
    EXPECT_THAT(failed(1, {"backup", "nowhere/b.db"}), HasSubstr("No such file or directory"));
    EXPECT_FALSE(std::filesystem::exists(folder / "nowhere"));
    EXPECT_THAT(failed(2, {"backup"}), HasSubstr("FILE"));
}

TEST_P(Backup, OfADatabaseWithoutTablesIsRefused) {
    if (isFile()) {
        EXPECT_THAT(failed(2, {"backup", "b.db"}), HasSubstr("does not exist"));
    } else {
        EXPECT_THAT(failed(1, {"backup", "b.db"}), HasSubstr("has none of the server's tables"));
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "b.db"));
}

TEST_P(Backup, IsTheStateOfOneMomentWhileAnotherProgramWrites) {
    done({"init", "--sample"});
    std::atomic<bool> enough = false;
    // Each transaction gives all these rows one number.
    std::thread writer([&] {
        for (int number = 1; !enough; ++number) {
            const std::string text = std::to_string(number);
            run("BEGIN; UPDATE SMS_RULES SET PRIORITY = " + text +
                "; UPDATE SMS_CONTACTS SET USER_ID = " + text +
                "; UPDATE SMS_SERVICECOMMANDS SET SERVICE_ID = " + text + "; COMMIT");
        }
    });
    std::vector<std::string> seen;
    constexpr std::size_t atLeast = 8;
    while (seen.size() < atLeast || seen.front() == seen.back()) {
        const std::filesystem::path file = folder / (std::to_string(seen.size()) + ".db");
        const Outcome outcome = kvexrules({"backup", file.string()});
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        seen.push_back(sqlite3(file, "SELECT DISTINCT PRIORITY FROM SMS_RULES UNION SELECT USER_ID "
                                     "FROM SMS_CONTACTS UNION SELECT SERVICE_ID FROM "
                                     "SMS_SERVICECOMMANDS"));
    }
    enough = true;
    writer.join();
    for (std::size_t i = 1; i < seen.size(); ++i) {
        EXPECT_EQ(std::count(seen[i].begin(), seen[i].end(), '\n'), 1) << seen[i];
    }
}

class BackupThroughOdbc : public KvexrulesTest {};

TEST_F(BackupThroughOdbc, OfAnSqliteFileAndItsRestoreAndUpgradeWork) {
    done({"init", "--sample"});
    const std::string rows = sqlite3(database, "SELECT * FROM SMS_RULES; SELECT * FROM SMS_USERS");
    sqlite3(database, "DROP TABLE SMS_SCHEMA");
    environment["KVEX_DATABASE"] = "Driver={SQLite3};Database=" + database.string();
    EXPECT_THAT(done({"upgrade"}), HasSubstr("upgraded: version 0 to 1\n"));
    done({"backup", "b.db"});
    sqlite3(database, "DELETE FROM SMS_RULES WHERE ID < 3; UPDATE SMS_USERS SET NAME = 'x'");
    EXPECT_THAT(done({"restore", "b.db", "--yes"}),
                HasSubstr("SMS_RULES: 2 added, 0 changed, 0 removed\n"
                          "SMS_USERS: 0 added, 7 changed, 0 removed\n"));
    EXPECT_EQ(sqlite3(database, "SELECT * FROM SMS_RULES; SELECT * FROM SMS_USERS"), rows);
    EXPECT_EQ(sqlite3(database, "SELECT VERSION FROM SMS_SCHEMA"), "1\n");
}

INSTANTIATE_TEST_SUITE_P(, Backup, testing::ValuesIn(anyKinds()), anyKindName);

} // namespace
} // namespace kvex::process
