// An SQLite file is locked, replaced, removed or made read-only during a session.
#include "tests/editors/Editor.h"

#include "adapters/sqlite/Provider.h"
#include "adapters/sqlite/SqliteError.h"
#include "platform/Text.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/databases/SqliteSchema.h"
#include "tests/recordset/Faults.h"

#include <sqlite3.h>

#include <filesystem>
#include <optional>

namespace kvex::test {
namespace {

class SqliteFile : public testing::Test {
    TemporaryFolder root_;
    OwnLog log_;

protected:
    SqliteFile() {
        std::filesystem::permissions(root_.path(), std::filesystem::perms::all);
        std::filesystem::create_directory(folder());
        createSqliteSchema(fromUtf8(file().string()));
        OtherProgram other(file());
        for (const char16_t *name : {u"A", u"B", u"C"}) {
            other.run(std::u16string(u"INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, "
                                     u"PRIORITY) VALUES ('") +
                      name +
                      u"', '<ALLMESSAGES>', '<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES"
                      u"</IGNOREFURTHERRULES>', 10)");
        }
    }
    void TearDown() override { user_.expectPlayedWhole(); }

    [[nodiscard]] std::filesystem::path folder() const { return root_.path() / "data"; }
    [[nodiscard]] std::filesystem::path file() const { return folder() / "rules.db"; }
    [[nodiscard]] std::u16string stored() const {
        return OtherProgram(file()).valueOf(u"SELECT GROUP_CONCAT(Name || PRIORITY || ACTIVE) FROM "
                                            u"SMS_RULES");
    }
    static constexpr std::u16string_view unchanged = u"A101,B101,C101";

    /// Expects that a new session stores a new order.
    void expectNewSessionWorks() {
        user_.inRulesWindow([](User &window) { window.click(u"cmdOK"); });
        EXPECT_EQ(stored(), u"A11,B21,C31");
    }

    Editor user_{sqlite::provider(),
                 u"Provider=SQLite;Busy Timeout=5;Data Source=" + fromUtf8(file().string())};
};

std::int32_t number(int code) {
    return sqlite::errorBase + code;
}

} // namespace

TEST_F(SqliteFile, LockedByAnotherProgramIsNotWritten) {
    OtherProgram other(file());
    expectNoWay(
        user_, number(SQLITE_BUSY),
        u"The database " + fromUtf8(file().string()) + u" is locked by another program",
        [&] { other.run(u"BEGIN EXCLUSIVE"); }, [&] { other.run(u"ROLLBACK"); });
    EXPECT_EQ(stored(), unchanged);
    expectNewSessionWorks();
}

TEST_F(SqliteFile, ThatWasReplacedIsNotWrittenAndNeitherIsItsPredecessor) {
    const auto old = folder() / "old.db";
    expectNoWay(
        user_, number(SQLITE_READONLY_DBMOVED), u"was not stored. The database file ",
        [&] {
            std::filesystem::copy_file(file(), folder() / "new.db");
            std::filesystem::rename(file(), old);
            std::filesystem::rename(folder() / "new.db", file());
        },
        [] {});
    EXPECT_EQ(OtherProgram(old).valueOf(u"SELECT COUNT(*) FROM SMS_RULES WHERE PRIORITY <> 10"),
              u"0");
}

TEST_F(SqliteFile, WhoseFolderWasRemovedIsNotWritten) {
    expectNoWay(
        user_, number(SQLITE_READONLY_DBMOVED),
        u"was moved, replaced or removed since it was opened",
        [&] { std::filesystem::remove_all(folder()); }, [] {});
    EXPECT_EQ(user_.showRules(), 0);
    user_.expectTold({u"Sub: ShowRuleUI, Module: RuleUI"}, number(SQLITE_CANTOPEN),
                     u"does not exist");
}

TEST_F(SqliteFile, ThatMayOnlyBeReadIsNotWritten) {
    std::optional<WithoutRights> guard;
    guard.emplace(folder(), file(), FolderRights::write);
    expectNoWay(
        user_, number(SQLITE_READONLY), u"is read-only", [] {}, [&] { guard.reset(); });
    EXPECT_EQ(stored(), unchanged);
    expectNewSessionWorks();
}

} // namespace kvex::test
