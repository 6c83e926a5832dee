// The steps of an upgrade, with steps that later versions could have.
#include "host/suite/SchemaUpgrade.h"

#include "adapters/recordset/SchemaVersion.h"
#include "adapters/sqlite/Provider.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/databases/SqliteSchema.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

using namespace host;
using Lines = std::vector<std::u16string>;

class SchemaUpgrade : public testing::Test {
protected:
    SchemaUpgrade() {
        createSqliteSchema(path());
        static_cast<Connection &>(connection_).open(path());
        other().run(u"INSERT INTO SMS_USERS (NAME) VALUES ('Asha')");
    }

    [[nodiscard]] std::u16string path() const { return fromUtf8((folder_ / "rules.db").string()); }
    [[nodiscard]] OtherProgram other() const { return OtherProgram(toUtf8(path())); }
    [[nodiscard]] recordset::Driver &driver() const { return *connection_.driver().lock(); }
    [[nodiscard]] SchemaStep addsColumn(std::int64_t version, const std::u16string &column) {
        return {version, u"SMS_USERS gets the column A", [column](recordset::Driver &driver) {
                    driver.execute({u"ALTER TABLE SMS_USERS ADD " + column + u" DEFAULT 4", {}});
                }};
    }
    [[nodiscard]] std::vector<SchemaStep> threeSteps() {
        return {schemaSteps().front(), addsColumn(2, u"A"), addsColumn(3, u"B")};
    }
    [[nodiscard]] std::u16string version() const {
        return other().valueOf(u"SELECT MAX(VERSION) FROM SMS_SCHEMA");
    }

    int backups = 0;
    std::function<void()> backUp = [this] { ++backups; };

private:
    TemporaryFolder folder_;
    recordset::ClientConnection connection_{{sqlite::provider()}};
};

} // namespace

TEST_F(SchemaUpgrade, TheStepsEndAtTheVersionThatTheProgramKnows) {
    std::int64_t version = 0;
    for (const SchemaStep &step : schemaSteps()) {
        EXPECT_EQ(step.version, ++version);
        EXPECT_NE(step.what, u"");
    }
    EXPECT_EQ(version, recordset::knownSchemaVersion);
}

TEST_F(SchemaUpgrade, OnlyTheStepsBehindTheTablesVersionAreRun) {
    const SchemaState before = schemaState(driver(), threeSteps());
    EXPECT_EQ(before.age, SchemaAge::older);
    EXPECT_EQ(before.version, 1);
    EXPECT_EQ(plannedSteps(before, threeSteps()),
              (Lines{u"Version 2: SMS_USERS gets the column A.",
                     u"Version 3: SMS_USERS gets the column A."}));
    const std::vector<SchemaStep> steps = threeSteps();
    EXPECT_EQ(upgradeSchema(driver(), backUp, steps).version, 1);
    EXPECT_EQ(backups, 1);
    EXPECT_EQ(version(), u"3");
    EXPECT_EQ(other().rows(u"SELECT NAME, A, B FROM SMS_USERS"), Lines{u"Asha|4|4"});
    EXPECT_EQ(upgradeSchema(driver(), backUp, steps).age, SchemaAge::current);
    EXPECT_EQ(backups, 1);
}

TEST_F(SchemaUpgrade, AStepThatFailsUndoesThoseBeforeIt) {
    std::vector<SchemaStep> steps = threeSteps();
    steps[2].run = [](recordset::Driver & /*driver*/) { throw Error(5, u"no"); };
    EXPECT_EQ(errorNumber([&] { upgradeSchema(driver(), backUp, steps); }), 5);
    EXPECT_EQ(version(), u"1");
    EXPECT_EQ(other().valueOf(u"SELECT COUNT(*) FROM pragma_table_info('SMS_USERS')"), u"3");
    upgradeSchema(driver(), backUp, threeSteps());
    EXPECT_EQ(version(), u"3");
}

TEST_F(SchemaUpgrade, ABackupThatFailsLeavesTheTables) {
    const std::function<void()> noBackup = [] { throw Error(5, u"no"); };
    EXPECT_EQ(errorNumber([&] { upgradeSchema(driver(), noBackup, threeSteps()); }), 5);
    EXPECT_EQ(version(), u"1");
    other().run(u"UPDATE SMS_USERS SET NAME = 'free'");
}

TEST_F(SchemaUpgrade, OtherProgramsReadButDoNotWriteDuringIt) {
    backUp = [this] {
        EXPECT_EQ(other().valueOf(u"SELECT NAME FROM SMS_USERS"), u"Asha");
        EXPECT_ANY_THROW(other().run(u"PRAGMA busy_timeout = 0; DELETE FROM SMS_USERS"));
        ++backups;
    };
    upgradeSchema(driver(), backUp, threeSteps());
    EXPECT_EQ(backups, 1);
    EXPECT_EQ(version(), u"3");
}

TEST_F(SchemaUpgrade, AMissingTableIsNoOlderVersion) {
    other().run(u"DROP TABLE SMS_CONTACTS");
    EXPECT_EQ(schemaState(driver(), threeSteps()).age, SchemaAge::incomplete);
    EXPECT_EQ(upgradeSchema(driver(), backUp, threeSteps()).age, SchemaAge::incomplete);
    EXPECT_EQ(backups, 0);
}

TEST_F(SchemaUpgrade, TablesThatAreNewerThanTheStepsAreLeft) {
    other().run(u"INSERT INTO SMS_SCHEMA (VERSION) VALUES (4)");
    EXPECT_EQ(upgradeSchema(driver(), backUp, threeSteps()).age, SchemaAge::newer);
    EXPECT_EQ(backups, 0);
}

} // namespace kvex::test
