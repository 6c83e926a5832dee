// What SQLite alone has: its settings, keys, encodings and loosely typed values.
#include "platform/Database.h"
#include "platform/Text.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/databases/SqliteSchema.h"
#include "tests/recordset/SqliteSession.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <string>

namespace kvex::test {
namespace {

class SqliteDriver : public testing::Test {
protected:
    /// Another program and a session, both on the same database.
    [[nodiscard]] OtherProgram &other() { return other_; }
    [[nodiscard]] SqliteSession &session() {
        if (!session_) {
            session_ = std::make_unique<SqliteSession>(fromUtf8(path_));
        }
        return *session_;
    }

private:
    TemporaryFolder folder_;
    std::string path_ = folder_.path() / "data.db";
    OtherProgram other_{path_};
    std::unique_ptr<SqliteSession> session_;
};

} // namespace

TEST_F(SqliteDriver, WritesAheadFullySynchronisedWithForeignKeys) {
    other().run(u"CREATE TABLE SMS_RULES (ID INTEGER PRIMARY KEY)");
    EXPECT_EQ(session().records(u"PRAGMA journal_mode")->field(u"journal_mode").text(), u"wal");
    EXPECT_EQ(session().records(u"PRAGMA synchronous")->field(u"synchronous").int32(), 2);
    EXPECT_EQ(session().records(u"PRAGMA foreign_keys")->field(u"foreign_keys").int32(), 1);
    EXPECT_EQ(session().records(u"PRAGMA busy_timeout")->field(u"timeout").int32(), 5000);
}

TEST_F(SqliteDriver, ARowThatOthersReferToIsNotRemoved) {
    other().run(u"CREATE TABLE P (ID INTEGER PRIMARY KEY); CREATE TABLE C (P REFERENCES P (ID)); "
                u"INSERT INTO P VALUES (1); INSERT INTO C VALUES (1)");
    const auto rows = session().records(u"SELECT * FROM P");
    EXPECT_LT(errorNumber([&] { rows->deleteCurrent(); }), 0);
    EXPECT_EQ(rows->field(u"ID").int32(), 1);
}

TEST_F(SqliteDriver, AKeyOfSeveralColumnsFindsItsRow) {
    other().run(u"CREATE TABLE T (A, B, V, PRIMARY KEY (A, B)) WITHOUT ROWID; "
                u"INSERT INTO T VALUES (1, 'x', 'one'), (1, 'y', 'two')");
    const auto rows = session().records(u"SELECT * FROM T ORDER BY B");
    rows->moveNext();
    rows->setField(u"V", u"changed");
    rows->update();
    EXPECT_EQ(other().valueOf(u"SELECT group_concat(V) FROM T"), u"one,changed");
    rows->addNew();
    rows->setField(u"A", std::int64_t{2});
    rows->setField(u"B", u"z");
    rows->update();
    rows->resyncCurrent();
    EXPECT_EQ(rows->field(u"B").text(), u"z");
}

TEST_F(SqliteDriver, APartOfAKeyIsNoKey) {
    other().run(u"CREATE TABLE T (A, B, V, PRIMARY KEY (A, B)); INSERT INTO T VALUES (1, 2, 3)");
    const auto rows = session().records(u"SELECT A, V FROM T");
    rows->setField(u"V", std::int64_t{4});
    EXPECT_EQ(errorNumber([&] { rows->update(); }), error_number::badArgument);
}

TEST_F(SqliteDriver, TheRowIdUnderItsOtherNamesIsTheKey) {
    other().run(u"CREATE TABLE T (ID INTEGER PRIMARY KEY, V); INSERT INTO T VALUES (5, 'a')");
    const auto rows = session().records(u"SELECT rowid AS R, V FROM T");
    rows->setField(u"V", u"b");
    rows->update();
    EXPECT_EQ(other().valueOf(u"SELECT V FROM T"), u"b");
}

TEST_F(SqliteDriver, NamesOfEveryKindAreWritten) {
    other().run(u"CREATE TABLE \"odd \"\"table\" (\"select\" INTEGER PRIMARY KEY, \"a \"\"b\", "
                u"\"\u00E9t\u00E9\"); INSERT INTO \"odd \"\"table\" VALUES (1, 'x', 'y')");
    const auto rows = session().records(u"SELECT * FROM \"odd \"\"table\"");
    rows->setField(u"a \"b", u"changed");
    rows->setField(u"\u00C9T\u00C9", u"too");
    rows->update();
    EXPECT_EQ(other().valueOf(u"SELECT \"a \"\"b\" || \"\u00E9t\u00E9\" FROM \"odd \"\"table\""),
              u"changedtoo");
}

TEST_F(SqliteDriver, AViewsRowsAreItsTablesRows) {
    other().run(u"CREATE TABLE T (ID INTEGER PRIMARY KEY, V); INSERT INTO T VALUES (5, 'a'); "
                u"CREATE VIEW W AS SELECT ID, V AS VALUE FROM T");
    const auto rows = session().records(u"SELECT * FROM W");
    rows->setField(u"VALUE", u"b");
    rows->update();
    EXPECT_EQ(other().valueOf(u"SELECT V FROM T"), u"b");
}

TEST_F(SqliteDriver, ACollationHidesNoChange) {
    other().run(u"CREATE TABLE T (ID INTEGER PRIMARY KEY, V TEXT COLLATE NOCASE); "
                u"INSERT INTO T VALUES (1, 'name')");
    const auto rows = session().records(u"SELECT * FROM T");
    other().run(u"UPDATE T SET V = 'NAME'");
    rows->setField(u"V", u"mine");
    EXPECT_EQ(errorNumber([&] { rows->update(); }), rowChangedByAnother);
    EXPECT_EQ(other().valueOf(u"SELECT V FROM T"), u"NAME");
}

TEST_F(SqliteDriver, ABlobIsReadAsTextAndReplacedByText) {
    other().run(u"CREATE TABLE T (ID INTEGER PRIMARY KEY, V); "
                u"INSERT INTO T VALUES (1, CAST('gr\u00FCn' AS BLOB)), (2, x'')");
    const auto rows = session().records(u"SELECT * FROM T");
    EXPECT_EQ(rows->field(u"V").owned(), Value(u"gr\u00FCn"));
    rows->setField(u"V", u"rot");
    rows->update();
    EXPECT_EQ(other().valueOf(u"SELECT typeof(V) || V FROM T"), u"textrot");
    rows->moveNext();
    EXPECT_EQ(rows->field(u"V").owned(), Value(u""));
}

TEST_F(SqliteDriver, BytesThatAreNoTextAreShownAndNotOverwritten) {
    other().run(u"CREATE TABLE T (ID INTEGER PRIMARY KEY, V, W); "
                u"INSERT INTO T VALUES (1, x'61FF62', 'w')");
    const auto rows = session().records(u"SELECT * FROM T");
    EXPECT_EQ(rows->field(u"V").text(), u"a\uFFFDb");
    rows->setField(u"V", u"mine");
    EXPECT_EQ(errorNumber([&] { rows->update(); }), rowChangedByAnother);
    rows->moveFirst();
    rows->setField(u"W", u"mine");
    rows->update();
    EXPECT_EQ(other().valueOf(u"SELECT hex(V) || W FROM T"), u"61FF62mine");
}

TEST_F(SqliteDriver, AValueThatItsColumnConvertsCanBeChangedAgain) {
    other().run(u"CREATE TABLE T (ID INTEGER PRIMARY KEY, I INTEGER, S TEXT, R REAL); "
                u"INSERT INTO T VALUES (1, 0, '', 0)");
    const auto rows = session().records(u"SELECT * FROM T");
    rows->setField(u"I", u"12");
    rows->setField(u"S", std::int64_t{34});
    rows->setField(u"R", std::int64_t{5});
    rows->update();
    rows->setField(u"I", std::int64_t{1});
    rows->setField(u"S", u"s");
    rows->setField(u"R", 0.1);
    rows->update();
    rows->setField(u"R", 0.7);
    rows->update();
    EXPECT_EQ(other().valueOf(u"SELECT I || S || R FROM T"), u"1s0.7");
}

TEST_F(SqliteDriver, TheWholeRangeOfIntegersIsReadFoundAndWritten) {
    other().run(u"CREATE TABLE T (ID INTEGER PRIMARY KEY, V); INSERT INTO T VALUES "
                u"(-9223372036854775808, 1), (9007199254740993, 2), (9223372036854775807, 3)");
    const auto rows = session().records(u"SELECT * FROM T ORDER BY ID");
    rows->find(u"ID = 9007199254740993");
    EXPECT_EQ(rows->field(u"V").int32(), 2);
    rows->find(u"ID = 9223372036854775807");
    EXPECT_EQ(rows->field(u"V").int32(), 3);
    rows->moveFirst();
    rows->find(u"ID = -9223372036854775808");
    EXPECT_EQ(rows->field(u"V").int32(), 1);
    rows->setField(u"V", std::int64_t{4});
    rows->update();
    EXPECT_EQ(other().valueOf(u"SELECT V FROM T WHERE ID < 0"), u"4");
}

TEST_F(SqliteDriver, ANumberIsFoundAmongValuesOfMixedKinds) {
    other().run(u"CREATE TABLE T (ID INTEGER PRIMARY KEY, V); INSERT INTO T VALUES "
                u"(1, 'x'), (2, 2.0), (3, 2.5), (4, 2), (5, NULL)");
    const auto rows = session().records(u"SELECT * FROM T");
    rows->find(u"V = 2");
    EXPECT_EQ(rows->field(u"ID").int32(), 2);
    rows->find(u"V = 2.5");
    EXPECT_EQ(rows->field(u"ID").int32(), 3);
    rows->find(u"V = 2");
    EXPECT_EQ(rows->field(u"ID").int32(), 4);
}

TEST_F(SqliteDriver, ANumberIsFoundAfterATextWasWrittenAmongTheNumbers) {
    other().run(u"CREATE TABLE T (ID INTEGER PRIMARY KEY, V); "
                u"INSERT INTO T VALUES (1, 1), (2, 2), (3, 3)");
    const auto rows = session().records(u"SELECT * FROM T");
    rows->find(u"V = 2");
    rows->setField(u"V", u"two");
    rows->update();
    rows->moveFirst();
    rows->find(u"V = 3");
    EXPECT_EQ(rows->field(u"ID").int32(), 3);
    rows->moveFirst();
    rows->find(u"V = 'TWO'");
    EXPECT_EQ(rows->field(u"ID").int32(), 2);
}

TEST_F(SqliteDriver, ADatabaseEncodedInUtf16IsReadAndWritten) {
    other().run(u"PRAGMA encoding = 'UTF-16le'; CREATE TABLE T (ID INTEGER PRIMARY KEY, V); "
                u"INSERT INTO T VALUES (1, 'ग्राहक \U0001F4F1')");
    const auto rows = session().records(u"SELECT * FROM T");
    EXPECT_EQ(rows->field(u"V").text(), u"ग्राहक \U0001F4F1");
    rows->setField(u"V", u"\U0001F4F1 सेवा");
    rows->update();
    EXPECT_EQ(other().valueOf(u"SELECT V FROM T"), u"\U0001F4F1 सेवा");
}

TEST_F(SqliteDriver, AnEmptyStatementIsABadArgument) {
    other().run(u"CREATE TABLE T (ID INTEGER PRIMARY KEY)");
    EXPECT_EQ(errorNumber([&] { static_cast<void>(session().records(u" ")); }),
              error_number::badArgument);
}

TEST(SqliteMemory, ADatabaseInMemoryIsOpenedByItsName) {
    SqliteSession session(u"Provider=SQLite;Data Source=:memory:");
    EXPECT_EQ(session.records(u"SELECT 1 AS ONE")->field(u"ONE").int32(), 1);
}

TEST(SqliteMemory, ASharedDatabaseIsOneForAllItsConnections) {
    const std::u16string name = u"file:shared-by-two?mode=memory&cache=shared";
    const OtherProgram keeper("file:shared-by-two?mode=memory&cache=shared");
    EXPECT_TRUE(createSqliteSchema(name));
    SqliteSession first(name);
    SqliteSession second(name);
    const auto rules = first.records();
    rules->addNew();
    rules->setField(u"Name", u"seen");
    rules->update();
    EXPECT_EQ(second.records()->field(u"Name").text(), u"seen");
}

} // namespace kvex::test
