// What a record set sends to its database, and what it says when the database refuses.
#include "platform/Transaction.h"
#include "tests/recordset/ScriptedSession.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <functional>

namespace kvex::test {
namespace {

using Sent = std::vector<std::u16string>;

constexpr std::int32_t refused = -2147217900;

class SentStatements : public testing::Test {
protected:
    SentStatements()
        : session_({.columns = columnsOfT(),
                    .rows = {{std::int64_t{3}, u"a", Null()}},
                    .key = {std::int64_t{4}}}) {}

    [[nodiscard]] ScriptedSession &session() { return session_; }
    [[nodiscard]] Script &script() { return session_.script(); }
    [[nodiscard]] const Sent &sent() { return session_.script().sent; }
    void refuse(std::int32_t number = refused) {
        script().refusal = Error(number, u"The reason.", u"The database");
    }

private:
    ScriptedSession session_;
};

void expectRefusal(const std::function<void()> &call, const std::u16string &description) {
    const Error error = raisedBy(call).value();
    EXPECT_EQ(error.number(), refused);
    EXPECT_EQ(error.description(), description);
    EXPECT_EQ(error.source(), u"The database");
}

void expectBadArgument(const std::function<void()> &call, const std::u16string &description) {
    expectError(error_number::badArgument, description, call);
}

} // namespace

TEST_F(SentStatements, UpdateSendsTheChangedColumnsAndWhatWasReadInThem) {
    const auto rows = session().records();
    rows->setField(u"B", u"new");
    rows->update();
    EXPECT_EQ(sent(), (Sent{u"describe QUERY",
                            u"UPDATE T SET B = ? WHERE ID = ? AND B IS NULL ['new', 3]"}));
    rows->setField(u"A", Null());
    rows->setField(u"B", u"newer");
    rows->update();
    EXPECT_EQ(sent().back(), u"UPDATE T SET A = ?, B = ? WHERE ID = ? AND HOLDS(A, ?) AND "
                             u"HOLDS(B, ?) [Null, 'newer', 3, 'a', 'new']");
}

TEST_F(SentStatements, AValueOfAnotherKindIsAChange) {
    const auto rows = session().records();
    rows->setField(u"ID", 3.0);
    rows->setField(u"A", Null());
    rows->setField(u"B", u"");
    rows->update();
    EXPECT_EQ(sent().back(), u"UPDATE T SET ID = ?, A = ?, B = ? WHERE ID = ? AND HOLDS(ID, ?) AND "
                             u"HOLDS(A, ?) AND B IS NULL [3, Null, '', 3, 3, 'a']");
    rows->setField(u"ID", std::int64_t{3});
    rows->setField(u"A", Null());
    rows->setField(u"B", u"");
    rows->update();
    EXPECT_EQ(sent().back(), u"UPDATE T SET ID = ? WHERE ID = ? AND HOLDS(ID, ?) [3, 3, 3]");
    rows->setField(u"ID", u"3");
    rows->update();
    EXPECT_EQ(sent().back(), u"UPDATE T SET ID = ? WHERE ID = ? AND HOLDS(ID, ?) ['3', 3, 3]");
}

TEST_F(SentStatements, AnUpdateIsSentOnce) {
    const auto rows = session().records();
    rows->setField(u"A", u"new");
    rows->update();
    rows->update();
    rows->moveFirst();
    rows->update();
    EXPECT_EQ(sent().size(), 2U);
}

TEST_F(SentStatements, ANewRecordSendsItsValuesOnceAndAsksForItsKey) {
    const auto rows = session().records();
    rows->addNew();
    rows->setField(u"A", u"new");
    rows->update();
    rows->update();
    EXPECT_EQ(sent(), (Sent{u"describe QUERY", u"INSERT T A GIVING ID ['new']"}));
    EXPECT_EQ(rows->field(u"ID").int32(), 4);
}

TEST_F(SentStatements, ARemovalNamesTheKeyOnceAndAllElseThatIsKnown) {
    const auto rows = session().records();
    rows->deleteCurrent();
    EXPECT_EQ(sent().back(), u"DELETE FROM T WHERE ID = ? AND HOLDS(A, ?) AND B IS NULL [3, 'a']");
    rows->addNew();
    rows->setField(u"B", Null());
    rows->update();
    rows->deleteCurrent();
    EXPECT_EQ(sent().back(), u"DELETE FROM T WHERE ID = ? AND B IS NULL [4]");
}

TEST_F(SentStatements, AResyncAsksForTheColumnsOfTheTable) {
    script().columns.insert(script().columns.begin(), {u"ANSWER", u"", u"", 0});
    script().rows = {{std::int64_t{42}, std::int64_t{3}, u"a", Null()}};
    const auto rows = session().records();
    script().columns.erase(script().columns.begin());
    script().rows = {{std::int64_t{3}, u"theirs", u"b"}};
    rows->resyncCurrent();
    EXPECT_EQ(sent().back(), u"SELECT ID, A, B FROM T WHERE ID = ? [3]");
    EXPECT_EQ(rows->field(u"ANSWER").int32(), 42);
    EXPECT_EQ(rows->field(u"A").text(), u"theirs");
    EXPECT_EQ(rows->field(u"B").text(), u"b");
}

TEST_F(SentStatements, AResyncReadsEveryColumnWhereverTheKeyStands) {
    const recordset::Column key = script().columns.front();
    script().columns.erase(script().columns.begin());
    script().columns.push_back(key);
    script().rows = {{u"a", Null(), std::int64_t{3}}};
    const auto rows = session().records();
    script().rows = {{u"theirs", u"b", std::int64_t{3}}};
    rows->resyncCurrent();
    EXPECT_EQ(sent().back(), u"SELECT A, B, ID FROM T WHERE ID = ? [3]");
    EXPECT_EQ(rows->field(u"A").text(), u"theirs");
    EXPECT_EQ(rows->field(u"B").text(), u"b");
}

TEST_F(SentStatements, TheDatabaseIsAskedOnceWhereTheColumnsComeFrom) {
    script().described = script().columns;
    for (recordset::Column &column : script().columns) {
        column = {column.name, u"", u"", 0};
    }
    const auto rows = session().records();
    EXPECT_EQ(sent(), Sent{});
    rows->setField(u"A", u"one");
    rows->update();
    rows->setField(u"A", u"two");
    rows->update();
    EXPECT_EQ(sent(), (Sent{u"describe QUERY",
                            u"UPDATE T SET A = ? WHERE ID = ? AND HOLDS(A, ?) ['one', "
                            u"3, 'a']",
                            u"UPDATE T SET A = ? WHERE ID = ? AND HOLDS(A, ?) ['two', 3, 'one']"}));
}

TEST_F(SentStatements, ARefusalOfTheDatabaseKeepsItsNumberReasonAndSource) {
    const auto rows = session().records();
    rows->setField(u"A", u"new");
    refuse();
    expectRefusal([&] { rows->update(); }, u"Nothing was stored. The reason.");
    script().refusal.reset();
    rows->update();
    refuse();
    rows->setField(u"A", u"newer");
    expectRefusal([&] { rows->update(); },
                  u"The change of record ID 3 was not stored. The reason.");
    expectRefusal([&] { rows->deleteCurrent(); },
                  u"The removal of record ID 3 was not stored. The reason.");
    expectRefusal([&] { rows->resyncCurrent(); },
                  u"What was stored before stays stored, but record ID 3 could not be read again. "
                  u"The reason.");
    EXPECT_EQ(rows->field(u"A").text(), u"newer");
    rows->addNew();
    expectRefusal([&] { rows->update(); }, u"The new record was not stored. The reason.");
}

TEST_F(SentStatements, ABrokenConnectionGivesAnErrorThatTheOutcomeIsUnknown) {
    const auto rows = session().records();
    rows->setField(u"A", u"new");
    rows->update();
    refuse(noConnection);
    rows->setField(u"A", u"newer");
    expectError(noConnection,
                u"The change of record ID 3 was not stored, as far as is known. The reason.",
                [&] { rows->update(); });
}

TEST_F(SentStatements, AnErrorThatIsNotTheDatabasesStaysAsItIs) {
    const auto rows = session().records();
    rows->setField(u"A", u"new");
    refuse(error_number::typeMismatch);
    const Error error = raisedBy([&] { rows->update(); }).value();
    EXPECT_EQ(error.number(), error_number::typeMismatch);
    EXPECT_EQ(error.description(), u"The reason.");
    EXPECT_EQ(error.source(), u"The database");
}

TEST_F(SentStatements, ARecordIsNamedByEveryPartOfItsKey) {
    script().columns = {
        {u"id", u"T", u"id", 2}, {u"Part", u"T", u"Part", 2}, {u"A", u"T", u"A", 0}};
    script().rows = {{Null(), u"x", u"a"}};
    const auto rows = session().records();
    script().met = 0;
    EXPECT_EQ(raisedBy([&] { rows->deleteCurrent(); }).value().description(),
              u"The removal of record ID Null, PART x was not stored. Another user changed or "
              u"removed it meanwhile.");
}

TEST_F(SentStatements, ARecordSetForReadingSendsNothingAndSaysSo) {
    const auto rows = session().records(LockType::readOnly);
    const std::u16string why = u"The record set was opened for reading only.";
    rows->setField(u"A", u"new");
    expectBadArgument([&] { rows->update(); }, why);
    expectBadArgument([&] { rows->deleteCurrent(); }, why);
    rows->addNew();
    expectBadArgument([&] { rows->update(); }, why);
    EXPECT_EQ(sent(), Sent{});
    rows->moveFirst();
    rows->resyncCurrent();
    EXPECT_EQ(sent().back(), u"SELECT ID, A, B FROM T WHERE ID = ? [3]");
}

TEST_F(SentStatements, EveryLockButThatForReadingWrites) {
    for (const LockType lock : {LockType::pessimistic, LockType::optimistic}) {
        const auto rows = session().records(lock);
        rows->deleteCurrent();
        EXPECT_EQ(sent().size(), 2U);
    }
}

TEST_F(SentStatements, AComputedColumnIsNotSentAndIsNamed) {
    script().columns[2].baseColumn.clear();
    script().columns[2].table.clear();
    const auto rows = session().records();
    rows->setField(u"B", u"new");
    const Error error = raisedBy([&] { rows->update(); }).value();
    EXPECT_EQ(error.number(), error_number::badArgument);
    EXPECT_EQ(error.description(), u"The column B is computed by the query and cannot be written.");
    EXPECT_TRUE(error.concernsUser());
    EXPECT_EQ(sent(), Sent{u"describe QUERY"});
}

TEST_F(SentStatements, RowsWithoutATableOfTheirOwnAreRefusedWithTheReason) {
    const recordset::Column key{u"ID", u"T", u"ID", 1};
    const recordset::Column part{u"ID", u"T", u"ID", 2};
    const recordset::Column plain{u"A", u"T", u"A", 0};
    const recordset::Column computed{u"A", u"", u"", 0};
    const Error several(error_number::badArgument,
                        u"The rows come from several tables, so they cannot be written.", u"",
                        HelpContext::badStatement);
    const Error none(error_number::badArgument,
                     u"The rows come from no table, so they cannot be written.", u"",
                     HelpContext::badStatement);
    const Error noKey(error_number::badArgument,
                      u"The rows of the table T have no primary key, so they cannot be written.",
                      u"", HelpContext::noPrimaryKey);
    const struct {
        std::vector<recordset::Column> columns;
        const Error &error;
    } cases[] = {{{key, plain, {u"B", u"U", u"B", 0}}, several},
                 {{computed, key, {u"B", u"U", u"B", 1}}, several},
                 {{plain, plain, plain}, noKey},
                 {{computed, computed, computed}, none},
                 {{key, key, plain}, noKey},
                 {{part, plain, plain}, noKey}};
    for (const auto &one : cases) {
        script().columns = one.columns;
        const auto rows = session().records();
        const std::vector<std::function<void()>> calls{[&] { rows->requireWritable(); },
                                                       [&] { rows->resyncCurrent(); },
                                                       [&] { rows->deleteCurrent(); }};
        for (const auto &call : calls) {
            const Error error = raisedBy(call).value();
            EXPECT_EQ(error.number(), one.error.number());
            EXPECT_EQ(error.description(), one.error.description());
            EXPECT_EQ(error.helpContext(), one.error.helpContext());
        }
        EXPECT_EQ(sent(), (Sent{u"describe QUERY", u"describe QUERY", u"describe QUERY"}));
    }
}

TEST_F(SentStatements, RowsThatAreToBeWritableAreAskedForTheirKeyAtOnceAndOnlyOnce) {
    const auto rows = session().records();
    rows->requireWritable();
    rows->requireWritable();
    rows->setField(u"A", u"new");
    rows->update();
    EXPECT_EQ(sent(), (Sent{u"describe QUERY",
                            u"UPDATE T SET A = ? WHERE ID = ? AND HOLDS(A, ?) ['new', 3, 'a']"}));
}

TEST_F(SentStatements, AWriteThatFindsNoRowReadsItAgainToTellWhy) {
    script().columns = {{u"ID", u"T", u"ID", 1}, {u"A", u"T", u"A", 0}};
    script().rows = {{std::int64_t{3}, u"a"}};
    const auto rows = session().records();
    rows->setField(u"A", u"new");
    script().met = 0;
    script().columns = {{u"A", u"T", u"A", 0}};
    const auto expectWhy = [&](const std::u16string &why, HelpContext context) {
        const Error error = raisedBy([&] { rows->update(); }).value();
        EXPECT_EQ(error.number(), rowChangedByAnother);
        EXPECT_EQ(error.description(), u"The change of record ID 3 was not stored. " + why);
        EXPECT_EQ(error.helpContext(), context);
    };
    const Sent readAgain{u"describe QUERY",
                         u"UPDATE T SET A = ? WHERE ID = ? AND HOLDS(A, ?) ['new', 3, 'a']",
                         u"SELECT A FROM T WHERE ID = ? [3]"};
    script().rows = {{u"theirs"}};
    expectWhy(u"Another user changed or removed it meanwhile.", HelpContext::changedByAnother);
    EXPECT_EQ(sent(), readAgain);
    script().rows.clear();
    expectWhy(u"Another user changed or removed it meanwhile.", HelpContext::changedByAnother);
    script().sent.clear();
    // The value reads as before and meets the condition now: another user has restored it.
    script().rows = {{u"a"}};
    expectWhy(u"Another user changed or removed it meanwhile.", HelpContext::changedByAnother);
    EXPECT_EQ(sent().back(), u"SELECT A FROM T WHERE ID = ? AND HOLDS(A, ?) [3, 'a']");
}

TEST_F(SentStatements, ATransactionIsBegunAndStoredOrUndoneOnce) {
    recordset::ClientConnection &connection = session().connection();
    {
        Transaction stored(connection);
        stored.commit();
    }
    EXPECT_EQ(sent(), (Sent{u"begin", u"commit"}));
    script().sent.clear();
    {
        Transaction refusedOne(connection);
        refuse();
        EXPECT_EQ(errorNumber([&] { refusedOne.commit(); }), refused);
    }
    EXPECT_EQ(sent(), (Sent{u"begin", u"commit", u"rollback"}));
    script().sent.clear();
    EXPECT_EQ(errorNumber([&] { Transaction{connection}; }), refused);
    EXPECT_EQ(sent(), Sent{u"begin"});
}

} // namespace kvex::test
