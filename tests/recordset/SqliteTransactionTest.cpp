// Writes that SQLite refuses at their end, and transactions on a locked database.
#include "platform/Text.h"
#include "platform/Transaction.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/recordset/SqliteSession.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

namespace kvex::test {
namespace {

using recordset::ClientConnection;

/// Rows of C refer to rows of P. SQLite checks this at the end of each transaction.
class SqliteTransaction : public testing::Test {
protected:
    SqliteTransaction() {
        other_.run(u"CREATE TABLE P (ID INTEGER PRIMARY KEY); "
                   u"CREATE TABLE C (ID INTEGER PRIMARY KEY, P INTEGER REFERENCES P (ID) "
                   u"DEFERRABLE INITIALLY DEFERRED); "
                   u"INSERT INTO P VALUES (1); INSERT INTO C VALUES (1, 1)");
        connection().open(u"Provider=SQLite;Busy Timeout=5;Data Source=" + fromUtf8(path_));
    }

    [[nodiscard]] OtherProgram &other() { return other_; }
    [[nodiscard]] ClientConnection &client() { return connection_; }
    [[nodiscard]] std::unique_ptr<Recordset> children() {
        std::unique_ptr<Recordset> rows = std::make_unique<recordset::ClientRecordset>();
        rows->open(u"SELECT * FROM C", connection_, CursorType::dynamic, LockType::optimistic);
        return rows;
    }
    [[nodiscard]] std::u16string stored() {
        return other_.valueOf(u"SELECT group_concat(ID || ':' || P) FROM C");
    }

private:
    [[nodiscard]] Connection &connection() { return connection_; }

    TemporaryFolder folder_;
    std::string path_ = folder_.path() / "data.db";
    OtherProgram other_{path_};
    ClientConnection connection_{{sqlite::provider()}};
};

} // namespace

TEST_F(SqliteTransaction, AChangeThatIsRefusedAtItsEndStaysPendingAndIsNotStored) {
    const auto rows = children();
    rows->setField(u"P", std::int64_t{9});
    EXPECT_EQ(refusalOf([&] { rows->update(); }).code, SQLITE_CONSTRAINT);
    EXPECT_EQ(rows->field(u"P").int32(), 9);
    EXPECT_EQ(stored(), u"1:1");
    other().run(u"INSERT INTO P VALUES (9)");
    rows->update();
    EXPECT_EQ(stored(), u"1:9");
}

TEST_F(SqliteTransaction, ANewRecordThatIsRefusedAtItsEndStaysPendingAndIsNotStored) {
    const auto rows = children();
    rows->addNew();
    rows->setField(u"P", std::int64_t{9});
    EXPECT_EQ(refusalOf([&] { rows->update(); }).code, SQLITE_CONSTRAINT);
    EXPECT_EQ(rows->recordCount(), 1);
    EXPECT_EQ(stored(), u"1:1");
    rows->setField(u"P", std::int64_t{1});
    rows->update();
    EXPECT_EQ(rows->recordCount(), 2);
    EXPECT_EQ(rows->field(u"ID").int32(), 2);
    EXPECT_EQ(stored(), u"1:1,2:1");
}

TEST_F(SqliteTransaction, WhatACommitRefusedIsUndoneWhenTheTransactionGoes) {
    const auto rows = children();
    {
        Transaction transaction(client());
        rows->setField(u"P", std::int64_t{9});
        rows->update();
        EXPECT_EQ(refusalOf([&] { transaction.commit(); }).code, SQLITE_CONSTRAINT);
    }
    other().run(u"INSERT INTO C VALUES (7, 1)");
    EXPECT_EQ(stored(), u"1:1,7:1");
}

TEST_F(SqliteTransaction, NoneBeginsOnADatabaseThatAnotherProgramWrites) {
    other().run(u"BEGIN IMMEDIATE");
    const Refusal refusal = refusalOf([&] { Transaction{client()}; });
    EXPECT_EQ(refusal.code, SQLITE_BUSY);
    EXPECT_TRUE(refusal.says(u"is locked by another program"));
    other().run(u"ROLLBACK");
    Transaction{client()}.commit();
}

TEST_F(SqliteTransaction, NobodyElseWritesWhileOneLasts) {
    {
        const Transaction transaction(client());
        EXPECT_ANY_THROW(other().run(u"INSERT INTO P VALUES (2)"));
    }
    other().run(u"INSERT INTO P VALUES (2)");
    EXPECT_EQ(other().valueOf(u"SELECT COUNT(*) FROM P"), u"2");
}

} // namespace kvex::test
