// A backup goes back into an SQLite database.
#include "host/suite/Restore.h"

#include "host/suite/Backup.h"
#include "host/suite/Databases.h"
#include "host/suite/SchemaUpgrade.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/databases/SqliteSchema.h"
#include "tests/host/EnvironmentVariables.h"
#include "tests/recordset/SqliteSession.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

namespace kvex::test {
namespace {

using namespace host;

class SqliteRestore : public testing::Test {
protected:
    SqliteRestore() {
        environment_.set("HOME", (folder / "home").string());
        environment_.set("XDG_STATE_HOME", std::nullopt);
        createSqliteSchema(fromUtf8(file.string()));
        other().run(u"INSERT INTO SMS_USERS (NAME) VALUES ('Asha')");
    }

    [[nodiscard]] OtherProgram other() const { return OtherProgram(file.string()); }
    [[nodiscard]] std::unique_ptr<recordset::ClientConnection>
    connection(const std::u16string &options = {}) const {
        return openDatabase(u"Provider=SQLite;Data Source=" + fromUtf8(file.string()) + options);
    }
    std::size_t restoredUsers(std::span<const SchemaStep> steps = schemaSteps()) {
        return restore(*connection(), backup, keep, steps).at(1).changed;
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder / "rules.db";
    std::filesystem::path backup = folder / "backup.db";
    std::function<void()> keep = [] {};

private:
    EnvironmentVariables environment_;
};

/// Lets no file grow beyond this size while the object lives.
class FullDisk {
public:
    explicit FullDisk(rlim_t size) {
        getrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{size, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit before_{};
};

} // namespace

TEST_F(SqliteRestore, AnOlderBackupIsUpgradedInACopy) {
    backUp(*connection(), backup, Existing::refuse);
    const std::vector<SchemaStep> steps{
        schemaSteps().front(),
        {2, u"names in capitals", [](recordset::Driver &driver) {
             driver.execute({u"UPDATE SMS_USERS SET NAME = upper(NAME)", {}});
         }}};
    upgradeSchema(
        *connection()->driver().lock(), [] {}, steps);
    other().run(u"UPDATE SMS_USERS SET NAME = 'changed'");
    // A connection of this program only reads tables that are newer than its own steps. So the
    // database takes version 1 again, as far as the connection can see when it opens.
    other().run(u"ALTER TABLE SMS_SCHEMA RENAME TO AWAY");
    const auto target = connection();
    other().run(u"ALTER TABLE AWAY RENAME TO SMS_SCHEMA");
    EXPECT_EQ(restore(*target, backup, keep, steps).at(1).changed, 1U);
    EXPECT_EQ(other().valueOf(u"SELECT NAME FROM SMS_USERS"), u"ASHA");
    EXPECT_EQ(OtherProgram(backup.string()).valueOf(u"SELECT NAME FROM SMS_USERS"), u"Asha");
    std::size_t files = 0;
    for (const auto &entry :
         std::filesystem::directory_iterator(folder / "home/.local/state/kvex")) {
        ADD_FAILURE() << entry.path() << ++files;
    }
}

TEST_F(SqliteRestore, TextsWithANulCharacterAndUnreadableBytesStayWhereNothingDiffers) {
    other().run(u"INSERT INTO SMS_USERS (NAME) VALUES ('a' || char(0) || 'b'), (CAST(x'ff41' AS "
                u"TEXT))");
    backUp(*connection(), backup, Existing::refuse);
    other().run(u"UPDATE SMS_USERS SET NAME = 'changed' WHERE ID = 2");
    EXPECT_EQ(restoredUsers(), 1U);
    EXPECT_EQ(other().rows(u"SELECT hex(NAME) FROM SMS_USERS WHERE ID > 1"),
              (std::vector<std::u16string>{u"610062", u"FF41"}));
}

TEST_F(SqliteRestore, ALockedDatabaseIsLeftAsItIs) {
    backUp(*connection(), backup, Existing::refuse);
    other().run(u"UPDATE SMS_USERS SET NAME = 'changed'");
    OtherProgram locker(file.string());
    locker.run(u"BEGIN IMMEDIATE");
    const auto target = connection(u";Busy Timeout=10");
    EXPECT_EQ(refusalOf([&] { restore(*target, backup, keep); }).code & 0xFF, 5);
    locker.run(u"ROLLBACK");
    EXPECT_EQ(other().valueOf(u"SELECT NAME FROM SMS_USERS"), u"changed");
}

TEST_F(SqliteRestore, OtherProgramsCannotChangeWhatIsKept) {
    backUp(*connection(), backup, Existing::refuse);
    other().run(u"UPDATE SMS_USERS SET NAME = 'changed'");
    bool kept = false;
    keep = [&] {
        kept = true;
        EXPECT_ANY_THROW(other().run(u"PRAGMA busy_timeout = 0; DELETE FROM SMS_USERS"));
        EXPECT_EQ(other().valueOf(u"SELECT NAME FROM SMS_USERS"), u"changed");
    };
    EXPECT_EQ(restoredUsers(), 1U);
    EXPECT_TRUE(kept);
}

TEST_F(SqliteRestore, WithoutItsBackupNothingIsRestored) {
    backUp(*connection(), backup, Existing::refuse);
    other().run(u"UPDATE SMS_USERS SET NAME = 'changed'");
    keep = [] { throw Error(5, u"no"); };
    EXPECT_EQ(errorNumber([this] { restoredUsers(); }), 5);
    EXPECT_EQ(other().valueOf(u"SELECT NAME FROM SMS_USERS"), u"changed");
}

TEST_F(SqliteRestore, AFullDiskLeavesNoBackupAndTheOldOneStays) {
    other().run(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 5000) "
                u"INSERT INTO SMS_RULES (Name) SELECT 'rule ' || i FROM n");
    host::writeFile(backup, "old");
    {
        const auto source = connection();
        const FullDisk full(65536);
        EXPECT_ANY_THROW(backUp(*source, backup, Existing::replace));
    }
    EXPECT_EQ(host::readFile(backup), "old");
    std::size_t files = 0;
    for (const auto &entry : std::filesystem::directory_iterator(folder.path())) {
        files += entry.path().string().find(".part-") != std::string::npos ? 1U : 0U;
    }
    EXPECT_EQ(files, 0U);
}

TEST_F(SqliteRestore, ADatabaseThatIsOpenIsNotReplacedByABackup) {
    const auto source = connection();
    EXPECT_EQ(errorNumber([&] { backUp(*source, file, Existing::replace); }),
              error_number::badArgument);
    EXPECT_EQ(other().valueOf(u"SELECT NAME FROM SMS_USERS"), u"Asha");
}

} // namespace kvex::test
