// Removing a record and reading one again.
#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {

TEST_P(RecordsetConformance, ARemovedRecordLeavesTheTableAndTheCount) {
    insertRule(1, u"first");
    insertRule(2, u"second");
    const auto rules = openRules();
    rules->deleteCurrent();
    EXPECT_EQ(storedName(1), u"NONE");
    EXPECT_EQ(ruleCount(), u"1");
    EXPECT_EQ(rules->recordCount(), 1);
}

TEST_P(RecordsetConformance, ARemovedRecordCannotBeReadOrChanged) {
    insertRule(1, u"first");
    const auto rules = openRules();
    rules->deleteCurrent();
    EXPECT_EQ(errorNumber([&] { static_cast<void>(rules->field(u"Name")); }),
              error_number::noCurrentRecord);
    EXPECT_EQ(errorNumber([&] { rules->setField(u"Name", u"x"); }), error_number::noCurrentRecord);
    EXPECT_EQ(errorNumber([&] { rules->deleteCurrent(); }), error_number::noCurrentRecord);
    EXPECT_EQ(errorNumber([&] { rules->resyncCurrent(); }), error_number::noCurrentRecord);
}

TEST_P(RecordsetConformance, UpdateAfterARemovalSendsNothing) {
    insertRule(1, u"first");
    const auto rules = openRules();
    rules->deleteCurrent();
    rules->update();
    EXPECT_EQ(ruleCount(), u"0");
}

TEST_P(RecordsetConformance, MovesSkipRemovedRecords) {
    for (int rule = 1; rule <= 4; ++rule) {
        insertRule(rule, u"rule");
    }
    const auto rules = openRules();
    rules->find(u"ID = 1");
    rules->deleteCurrent();
    EXPECT_FALSE(rules->eof());
    rules->moveNext();
    EXPECT_EQ(id(*rules), 2);
    rules->moveNext();
    rules->deleteCurrent();
    EXPECT_EQ(ids(*rules), (std::vector<std::int32_t>{2, 4}));
}

TEST_P(RecordsetConformance, FindSkipsRemovedRecords) {
    for (int rule = 1; rule <= 4; ++rule) {
        insertRule(rule, u"same");
    }
    const auto rules = openRules();
    rules->find(u"ID = 2");
    rules->deleteCurrent();
    rules->moveFirst();
    rules->find(u"ID = 2");
    EXPECT_TRUE(rules->eof());
    rules->moveFirst();
    rules->find(u"Name = 'same'", 1);
    EXPECT_EQ(id(*rules), 3);
    rules->moveFirst();
    rules->find(u"ACTIVE = 1", 1);
    EXPECT_EQ(id(*rules), 3);
}

TEST_P(RecordsetConformance, FindFromARemovedRecordBeginsWithTheNextOne) {
    for (int rule = 1; rule <= 3; ++rule) {
        insertRule(rule, u"same");
    }
    const auto rules = openRules();
    rules->deleteCurrent();
    rules->find(u"Name = 'same'");
    EXPECT_EQ(id(*rules), 2);
}

TEST_P(RecordsetConformance, AfterTheLastRemovalTheSetIsEmpty) {
    insertRule(1, u"only");
    const auto rules = openRules();
    rules->deleteCurrent();
    EXPECT_EQ(rules->recordCount(), 0);
    EXPECT_FALSE(rules->eof());
    EXPECT_FALSE(rules->bof());
    rules->moveFirst();
    EXPECT_TRUE(rules->eof());
    EXPECT_TRUE(rules->bof());
}

TEST_P(RecordsetConformance, ThereIsNothingToRemoveAtTheEnd) {
    insertRule(1, u"kept");
    const auto rules = openRules();
    rules->moveNext();
    EXPECT_EQ(errorNumber([&] { rules->deleteCurrent(); }), error_number::noCurrentRecord);
    EXPECT_EQ(ruleCount(), u"1");
}

TEST_P(RecordsetConformance, ARemovalDropsThePendingChangeOfItsRecord) {
    insertRule(1, u"first");
    insertRule(2, u"second");
    const auto rules = openRules();
    rules->setField(u"Name", u"changed");
    rules->deleteCurrent();
    rules->update();
    EXPECT_EQ(ruleCount(), u"1");
}

TEST_P(RecordsetConformance, ResyncReadsTheCurrentRecordAgain) {
    insertRule(1, u"first");
    insertRule(2, u"second");
    const auto rules = openRules();
    database().run(u"UPDATE SMS_RULES SET Name = 'theirs', PRIORITY = 5");
    rules->resyncCurrent();
    EXPECT_EQ(name(*rules), u"theirs");
    rules->find(u"PRIORITY = 5");
    EXPECT_EQ(id(*rules), 1);
    rules->moveNext();
    EXPECT_EQ(name(*rules), u"second");
}

TEST_P(RecordsetConformance, ResyncDiscardsWhatIsPending) {
    insertRule(1, u"stored");
    const auto rules = openRules();
    rules->setField(u"Name", u"changed");
    rules->resyncCurrent();
    EXPECT_EQ(name(*rules), u"stored");
    rules->update();
    EXPECT_EQ(storedName(1), u"stored");
}

TEST_P(RecordsetConformance, ResyncLeavesComputedValues) {
    insertRule(1, u"stored");
    const auto rules = openQuery(u"SELECT 40 + 2 AS ANSWER, ID, Name FROM SMS_RULES");
    database().run(u"UPDATE SMS_RULES SET Name = 'theirs'");
    rules->resyncCurrent();
    EXPECT_EQ(rules->field(u"ANSWER").int32(), 42);
    EXPECT_EQ(name(*rules), u"theirs");
}

TEST_P(RecordsetConformance, ResyncWithoutACurrentRecordFails) {
    const auto rules = openRules();
    EXPECT_EQ(errorNumber([&] { rules->resyncCurrent(); }), error_number::noCurrentRecord);
}

} // namespace kvex::test
