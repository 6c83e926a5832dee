// An upgrade or a restore that is killed leaves the old state or the new one.
#include "tests/process/KvexrulesTest.h"

#include <random>

namespace kvex::process {
namespace {

using std::chrono::microseconds;

class Killed : public KvexrulesTest {
protected:
    /// How long the command takes when nobody kills it.
    [[nodiscard]] microseconds timeOf(const std::vector<std::string> &command) const {
        const auto start = std::chrono::steady_clock::now();
        done(command);
        return std::chrono::duration_cast<microseconds>(std::chrono::steady_clock::now() - start);
    }
    /// A moment within this time.
    [[nodiscard]] microseconds moment(microseconds time) {
        return microseconds(std::uniform_int_distribution<long>(0, time.count())(random_));
    }
    [[nodiscard]] std::string content() const {
        return sqlite3(database, "SELECT * FROM SMS_RULES; SELECT * FROM SMS_USERS; SELECT * FROM "
                                 "SMS_CONTACTS");
    }
    [[nodiscard]] std::string version() const {
        return sqlite3(database, "SELECT count(*) FROM sqlite_schema WHERE name = 'SMS_SCHEMA'");
    }
    [[nodiscard]] std::vector<std::filesystem::path> keptBackups() const {
        std::vector<std::filesystem::path> whole;
        std::error_code none;
        for (const auto &entry :
             std::filesystem::directory_iterator(folder / "home/.local/state/kvex/backups", none)) {
            if (entry.path().extension() == ".db") {
                whole.push_back(entry.path());
            }
        }
        return whole;
    }

    static constexpr int kills = 30;

private:
    std::mt19937 random_{1};
};

TEST_F(Killed, ARestoreIsWholeOrNotAtAll) {
    const std::filesystem::path backup = folder / "backup.db";
    done({"init", "--sample"});
    sqlite3(database, "WITH RECURSIVE n(i) AS (SELECT 100 UNION ALL SELECT i + 1 FROM n LIMIT "
                      "2000) INSERT INTO SMS_RULES (ID, Name) SELECT i, 'rule ' || i FROM n");
    done({"backup", backup.string()});
    const std::string old = content();
    const std::string change =
        "UPDATE SMS_RULES SET Name = 'x' || ID; DELETE FROM SMS_USERS WHERE "
        "ID > 2; INSERT OR REPLACE INTO SMS_CONTACTS (ID, NAME) VALUES (900, 'new')";
    sqlite3(database, change);
    const std::string changed = content();
    const microseconds time = timeOf({"restore", backup.string(), "--yes"});
    EXPECT_EQ(content(), old);
    for (int kill = 0; kill < kills; ++kill) {
        sqlite3(database, change);
        ASSERT_EQ(content(), changed);
        const std::size_t before = keptBackups().size();
        killed({"restore", backup.string(), "--yes"}, moment(time));
        const std::string now = content();
        EXPECT_TRUE(now == changed || now == old);
        if (now == old) {
            EXPECT_EQ(keptBackups().size(), before + 1);
        }
        EXPECT_EQ(sqlite3(database, "PRAGMA integrity_check"), "ok\n");
    }
    for (const std::filesystem::path &kept : keptBackups()) {
        EXPECT_EQ(sqlite3(kept, "PRAGMA integrity_check; SELECT count(*) FROM SMS_RULES"),
                  "ok\n2007\n")
            << kept;
    }
}

TEST_F(Killed, AnUpgradeIsWholeOrNotAtAll) {
    const auto makeOld = [this] { sqlite3(database, "DROP TABLE IF EXISTS SMS_SCHEMA"); };
    done({"init", "--sample"});
    const std::string before = content();
    makeOld();
    const microseconds time = timeOf({"upgrade"});
    for (int kill = 0; kill < kills; ++kill) {
        makeOld();
        const std::size_t backups = keptBackups().size();
        killed({"upgrade"}, moment(time));
        EXPECT_EQ(content(), before);
        if (version() == "1\n") {
            EXPECT_EQ(sqlite3(database, "SELECT VERSION FROM SMS_SCHEMA"), "1\n");
            EXPECT_EQ(keptBackups().size(), backups + 1);
        } else {
            done({"upgrade"});
        }
        EXPECT_EQ(sqlite3(database, "PRAGMA integrity_check"), "ok\n");
    }
}

TEST_F(Killed, ABackupIsWholeOrNotThere) {
    done({"init", "--sample"});
    const std::string rows = sqlite3(database, "SELECT * FROM SMS_RULES");
    const microseconds time = timeOf({"backup", "first.db"});
    for (int kill = 0; kill < kills; ++kill) {
        const std::filesystem::path file = folder / (std::to_string(kill) + ".db");
        killed({"backup", file.string()}, moment(time));
        if (std::filesystem::exists(file)) {
            EXPECT_EQ(sqlite3(file, "SELECT * FROM SMS_RULES"), rows);
        }
    }
}

} // namespace
} // namespace kvex::process
