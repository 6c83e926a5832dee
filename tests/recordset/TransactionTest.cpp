#include "platform/Transaction.h"

#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {
namespace {

void addRule(Recordset &rules, int id) {
    rules.addNew();
    rules.setField(u"ID", std::int64_t{id});
    rules.update();
}

TEST_P(RecordsetConformance, ATransactionStoresItsWritesTogether) {
    const auto rules = openRules();
    Transaction transaction(connection());
    addRule(*rules, 1);
    addRule(*rules, 2);
    transaction.commit();
    EXPECT_EQ(ruleCount(), u"2");
}

TEST_P(RecordsetConformance, ATransactionWithoutACommitStoresNothing) {
    insertRule(1, u"before");
    const auto rules = openRules();
    {
        const Transaction transaction(connection());
        rules->setField(u"Name", u"changed");
        rules->update();
        addRule(*rules, 2);
    }
    EXPECT_EQ(ruleCount(), u"1");
    EXPECT_EQ(storedName(1), u"before");
}

TEST_P(RecordsetConformance, ARollbackGivesTheRecordSetBackWhatItHeld) {
    for (const int id : {1, 2, 3}) {
        insertRule(id, u"before");
    }
    const auto rules = openRules();
    const auto goTo = [&](std::u16string_view criterion) {
        rules->moveFirst();
        rules->find(criterion);
    };
    {
        const Transaction undone(connection());
        rules->setField(u"Name", u"first");
        rules->update();
        rules->setField(u"Name", u"second");
        rules->update();
        goTo(u"ID = 2");
        rules->deleteCurrent();
        addRule(*rules, 4);
        rules->deleteCurrent();
        addRule(*rules, 5);
        EXPECT_EQ(rules->recordCount(), 3);
    }
    EXPECT_EQ(rules->recordCount(), 3);
    for (const std::u16string_view gone : {u"ID = 4", u"ID = 5", u"Name = 'second'"}) {
        goTo(gone);
        EXPECT_TRUE(rules->eof()) << toUtf8(gone);
    }
    // What it holds is stored, so the next changes meet their rows.
    for (const std::u16string_view kept : {u"ID = 1", u"ID = 2", u"ID = 3"}) {
        goTo(kept);
        EXPECT_EQ(rules->field(u"Name").text(), u"before");
        rules->setField(u"Name", u"after");
        rules->update();
    }
    EXPECT_EQ(storedName(1) + storedName(2) + storedName(3), u"afterafterafter");
}

TEST_P(RecordsetConformance, AWriteThatFailedInATransactionIsNotUndoneTwice) {
    insertRule(1, u"before");
    insertRule(2, u"other");
    const auto rules = openRules();
    {
        const Transaction undone(connection());
        rules->setField(u"Name", u"mine");
        rules->update();
        rules->setField(u"ID", std::int64_t{2});
        EXPECT_LT(errorNumber([&] { rules->update(); }), 0);
    }
    EXPECT_EQ(rules->field(u"ID").int32(), 2) << "the change is still pending";
    rules->moveFirst();
    EXPECT_EQ(ids(*rules), (std::vector<std::int32_t>{1, 2}));
    rules->moveFirst();
    EXPECT_EQ(rules->field(u"Name").text(), u"before");
}

TEST_P(RecordsetConformance, ARollbackLeavesWhatWasWrittenBeforeTheTransaction) {
    insertRule(1, u"before");
    const auto rules = openRules();
    rules->setField(u"Name", u"kept");
    rules->update();
    {
        const Transaction undone(connection());
        rules->setField(u"Name", u"undone");
        rules->update();
    }
    EXPECT_EQ(rules->field(u"Name").text(), u"kept");
    {
        Transaction stored(connection());
        rules->setField(u"Name", u"stored");
        rules->update();
        stored.commit();
    }
    { const Transaction empty(connection()); }
    EXPECT_EQ(rules->field(u"Name").text(), u"stored");
}

TEST_P(RecordsetConformance, ARollbackPassesOverARecordSetThatIsClosed) {
    insertRule(1, u"before");
    const auto rules = openRules();
    {
        const Transaction undone(connection());
        rules->setField(u"Name", u"undone");
        rules->update();
        rules->close();
    }
    EXPECT_EQ(storedName(1), u"before");
}

TEST_P(RecordsetConformance, AConnectionThatClosesInATransactionRollsItBack) {
    insertRule(1, u"before");
    const auto rules = openRules();
    {
        const Transaction undone(connection());
        rules->setField(u"Name", u"undone");
        rules->update();
        connection().close();
        EXPECT_EQ(rules->field(u"Name").text(), u"before");
    }
    EXPECT_EQ(storedName(1), u"before");
}

TEST_P(RecordsetConformance, OneTransactionAfterTheOtherIsItsOwn) {
    const auto rules = openRules();
    {
        const Transaction undone(connection());
        addRule(*rules, 1);
    }
    Transaction stored(connection());
    addRule(*rules, 2);
    stored.commit();
    addRule(*rules, 3);
    EXPECT_EQ(ruleCount(), u"2");
}

TEST_P(RecordsetConformance, AClosedConnectionHasNoTransactions) {
    const auto closed = closedConnection();
    EXPECT_EQ(errorNumber([&] { Transaction{*closed}; }), error_number::objectClosed);
}

} // namespace
} // namespace kvex::test
