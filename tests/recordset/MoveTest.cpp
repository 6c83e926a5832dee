// Moving through a record set.
#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {

TEST_P(RecordsetConformance, OpensOnTheFirstRecord) {
    insertRule(7, u"first");
    insertRule(9, u"second");
    const auto rules = openRules();
    EXPECT_FALSE(rules->bof());
    EXPECT_FALSE(rules->eof());
    EXPECT_EQ(id(*rules), 7);
    EXPECT_EQ(rules->recordCount(), 2);
}

TEST_P(RecordsetConformance, KeepsTheOrderOfTheQuery) {
    insertRule(1, u"b");
    insertRule(2, u"c");
    insertRule(3, u"a");
    const auto rules = openQuery(u"SELECT * FROM SMS_RULES ORDER BY Name");
    EXPECT_EQ(ids(*rules), (std::vector<std::int32_t>{3, 1, 2}));
}

TEST_P(RecordsetConformance, AnEmptySetIsAtBothEnds) {
    const auto rules = openRules();
    EXPECT_TRUE(rules->bof());
    EXPECT_TRUE(rules->eof());
    EXPECT_EQ(rules->recordCount(), 0);
}

TEST_P(RecordsetConformance, MoveFirstOnAnEmptySetLeavesItsEnd) {
    const auto rules = openRules();
    rules->moveFirst();
    EXPECT_TRUE(rules->bof());
    EXPECT_TRUE(rules->eof());
}

TEST_P(RecordsetConformance, MoveNextOnAnEmptySetFails) {
    const auto rules = openRules();
    EXPECT_EQ(errorNumber([&] { rules->moveNext(); }), error_number::noCurrentRecord);
}

TEST_P(RecordsetConformance, MoveNextPastTheLastRecordIsTheEndAndThenFails) {
    insertRule(1, u"only");
    const auto rules = openRules();
    rules->moveNext();
    EXPECT_TRUE(rules->eof());
    EXPECT_FALSE(rules->bof());
    EXPECT_EQ(errorNumber([&] { rules->moveNext(); }), error_number::noCurrentRecord);
    EXPECT_TRUE(rules->eof());
}

TEST_P(RecordsetConformance, MoveFirstComesBackFromTheEnd) {
    insertRule(1, u"first");
    insertRule(2, u"second");
    const auto rules = openRules();
    rules->moveNext();
    rules->moveNext();
    rules->moveFirst();
    EXPECT_EQ(id(*rules), 1);
}

TEST_P(RecordsetConformance, RowsStoredByOthersAfterOpeningAreNotSeen) {
    insertRule(1, u"first");
    const auto rules = openRules();
    insertRule(2, u"later");
    database().run(u"UPDATE SMS_RULES SET Name = 'changed' WHERE ID = 1");
    EXPECT_EQ(ids(*rules), (std::vector<std::int32_t>{1}));
    rules->moveFirst();
    EXPECT_EQ(name(*rules), u"first");
}

} // namespace kvex::test
