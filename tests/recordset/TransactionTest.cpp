#include "adapters/recordset/Transaction.h"

#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {
namespace {

using recordset::ClientConnection;
using recordset::Transaction;

void addRule(Recordset &rules, int id) {
    rules.addNew();
    rules.setField(u"ID", std::int64_t{id});
    rules.update();
}

TEST_P(RecordsetConformance, ATransactionStoresItsWritesTogether) {
    const auto rules = openRules();
    Transaction transaction(dynamic_cast<ClientConnection &>(connection()));
    addRule(*rules, 1);
    addRule(*rules, 2);
    transaction.commit();
    EXPECT_EQ(ruleCount(), u"2");
}

TEST_P(RecordsetConformance, ATransactionWithoutACommitStoresNothing) {
    insertRule(1, u"before");
    const auto rules = openRules();
    {
        const Transaction transaction(dynamic_cast<ClientConnection &>(connection()));
        rules->setField(u"Name", u"changed");
        rules->update();
        addRule(*rules, 2);
    }
    EXPECT_EQ(ruleCount(), u"1");
    EXPECT_EQ(storedName(1), u"before");
}

TEST_P(RecordsetConformance, OneTransactionAfterTheOtherIsItsOwn) {
    const auto rules = openRules();
    {
        const Transaction undone(dynamic_cast<ClientConnection &>(connection()));
        addRule(*rules, 1);
    }
    Transaction stored(dynamic_cast<ClientConnection &>(connection()));
    addRule(*rules, 2);
    stored.commit();
    addRule(*rules, 3);
    EXPECT_EQ(ruleCount(), u"2");
}

TEST_P(RecordsetConformance, AClosedConnectionHasNoTransactions) {
    const auto closed = closedConnection();
    EXPECT_EQ(errorNumber([&] { Transaction{dynamic_cast<ClientConnection &>(*closed)}; }),
              error_number::objectClosed);
}

} // namespace
} // namespace kvex::test
