// Adding a record.
#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {

TEST_P(RecordsetConformance, ANewRecordHasNoValues) {
    insertRule(1, u"first");
    const auto rules = openRules();
    rules->addNew();
    EXPECT_TRUE(rules->field(u"ID").isNull());
    EXPECT_TRUE(rules->field(u"Name").isNull());
    EXPECT_FALSE(rules->eof());
    EXPECT_FALSE(rules->bof());
    EXPECT_EQ(rules->recordCount(), 1);
}

TEST_P(RecordsetConformance, ANewRecordGetsItsKeyAtUpdateAndItsDefaultsAtResync) {
    insertRule(7, u"first");
    const auto rules = openRules();
    rules->addNew();
    rules->setField(u"Name", u"new");
    rules->setField(u"QueryParam", u"<ALLMESSAGES>");
    EXPECT_EQ(ruleCount(), u"1");
    rules->update();
    EXPECT_EQ(rules->recordCount(), 2);
    EXPECT_GT(id(*rules), 7);
    EXPECT_EQ(storedName(id(*rules)), u"new");
    EXPECT_TRUE(rules->field(u"ACTIVE").isNull());
    rules->resyncCurrent();
    EXPECT_EQ(rules->field(u"ACTIVE").int16(), 1);
    EXPECT_EQ(rules->field(u"PRIORITY").int32(), 0);
    EXPECT_EQ(rules->field(u"DELETED").int32(), 0);
    EXPECT_EQ(name(*rules), u"new");
}

TEST_P(RecordsetConformance, ANewRecordIsTheLastOne) {
    insertRule(7, u"first");
    insertRule(9, u"second");
    const auto rules = openRules();
    rules->addNew();
    rules->setField(u"Name", u"new");
    rules->update();
    const std::int32_t given = id(*rules);
    rules->moveNext();
    EXPECT_TRUE(rules->eof());
    EXPECT_EQ(ids(*rules), (std::vector<std::int32_t>{7, 9, given}));
}

TEST_P(RecordsetConformance, ANewRecordIsFound) {
    insertRule(7, u"first");
    const auto rules = openRules();
    rules->find(u"ID = 7");
    rules->addNew();
    rules->setField(u"Name", u"new");
    rules->update();
    const std::int32_t given = id(*rules);
    rules->moveFirst();
    rules->find(u"ID = " + toText(std::int64_t{given}));
    EXPECT_EQ(name(*rules), u"new");
    rules->resyncCurrent();
    rules->moveFirst();
    rules->find(u"ACTIVE = 1", 1);
    EXPECT_EQ(name(*rules), u"new");
}

TEST_P(RecordsetConformance, TheFirstRecordOfAnEmptySetIsAdded) {
    const auto rules = openRules();
    rules->moveFirst();
    rules->addNew();
    EXPECT_FALSE(rules->eof());
    EXPECT_FALSE(rules->bof());
    rules->setField(u"Name", u"new");
    rules->update();
    EXPECT_EQ(rules->recordCount(), 1);
    rules->moveFirst();
    EXPECT_EQ(name(*rules), u"new");
}

TEST_P(RecordsetConformance, ANewRecordCanBeChangedAndRemoved) {
    const auto rules = openRules();
    rules->addNew();
    rules->setField(u"Name", u"new");
    rules->update();
    rules->setField(u"Name", u"changed");
    rules->update();
    EXPECT_EQ(storedName(id(*rules)), u"changed");
    rules->deleteCurrent();
    EXPECT_EQ(ruleCount(), u"0");
}

TEST_P(RecordsetConformance, ANewRecordWithoutValuesIsOneOfDefaults) {
    const auto rules = openRules();
    rules->addNew();
    rules->update();
    rules->resyncCurrent();
    EXPECT_EQ(rules->field(u"ACTIVE").int16(), 1);
    EXPECT_TRUE(rules->field(u"Name").isNull());
    EXPECT_EQ(ruleCount(), u"1");
}

TEST_P(RecordsetConformance, ANullSetInANewRecordIsStoredInPlaceOfTheDefault) {
    const auto rules = openRules();
    rules->addNew();
    rules->setField(u"PRIORITY", Null());
    rules->update();
    EXPECT_EQ(database().valueOf(u"SELECT PRIORITY FROM SMS_RULES"), u"NULL");
}

TEST_P(RecordsetConformance, AGivenKeyIsKept) {
    const auto rules = openRules();
    rules->addNew();
    rules->setField(u"ID", std::int64_t{30});
    rules->setField(u"Name", u"given");
    rules->update();
    EXPECT_EQ(id(*rules), 30);
    EXPECT_EQ(storedName(30), u"given");
}

TEST_P(RecordsetConformance, ARefusedNewRecordStaysPendingAndNeverCounts) {
    insertRule(1, u"first");
    const auto rules = openRules();
    rules->addNew();
    rules->setField(u"ID", std::int64_t{1});
    rules->setField(u"Name", u"new");
    EXPECT_LT(errorNumber([&] { rules->update(); }), 0);
    EXPECT_EQ(name(*rules), u"new");
    EXPECT_EQ(rules->recordCount(), 1);
    rules->setField(u"ID", std::int64_t{2});
    rules->update();
    EXPECT_EQ(rules->recordCount(), 2);
    EXPECT_EQ(storedName(2), u"new");
}

TEST_P(RecordsetConformance, AMoveDiscardsANewRecord) {
    insertRule(1, u"first");
    insertRule(2, u"second");
    const auto rules = openRules();
    rules->addNew();
    rules->setField(u"Name", u"new");
    rules->moveFirst();
    EXPECT_EQ(id(*rules), 1);
    rules->addNew();
    rules->find(u"Name = 'new'");
    EXPECT_TRUE(rules->eof());
    rules->update();
    EXPECT_EQ(rules->recordCount(), 2);
    EXPECT_EQ(ruleCount(), u"2");
}

TEST_P(RecordsetConformance, AMoveFromANewRecordGoesOnWhereTheSetStood) {
    insertRule(1, u"first");
    insertRule(2, u"second");
    const auto rules = openRules();
    rules->addNew();
    rules->moveNext();
    EXPECT_EQ(id(*rules), 2);
    rules->moveNext();
    rules->addNew();
    EXPECT_EQ(errorNumber([&] { rules->moveNext(); }), error_number::noCurrentRecord);
    EXPECT_TRUE(rules->eof());
}

TEST_P(RecordsetConformance, AddNewDiscardsWhatIsPending) {
    insertRule(1, u"first");
    const auto rules = openRules();
    rules->setField(u"Name", u"changed");
    rules->addNew();
    EXPECT_TRUE(rules->field(u"Name").isNull());
    rules->setField(u"QueryParam", u"dropped");
    rules->addNew();
    rules->setField(u"Name", u"new");
    rules->update();
    EXPECT_EQ(storedName(1), u"first");
    EXPECT_EQ(ruleCount(), u"2");
    EXPECT_EQ(database().valueOf(u"SELECT QueryParam FROM SMS_RULES WHERE Name = 'new'"), u"NULL");
}

TEST_P(RecordsetConformance, ANewRecordIsNoRowToRemoveOrResync) {
    insertRule(1, u"first");
    const auto rules = openRules();
    rules->addNew();
    EXPECT_EQ(errorNumber([&] { rules->deleteCurrent(); }), error_number::noCurrentRecord);
    EXPECT_EQ(errorNumber([&] { rules->resyncCurrent(); }), error_number::noCurrentRecord);
    EXPECT_EQ(ruleCount(), u"1");
}

TEST_P(RecordsetConformance, IdsOfRemovedRecordsAreNotGivenAgain) {
    insertRule(1, u"first");
    const auto rules = openRules();
    rules->addNew();
    rules->update();
    const std::int32_t removed = id(*rules);
    rules->deleteCurrent();
    rules->addNew();
    rules->update();
    EXPECT_GT(id(*rules), removed);
}

} // namespace kvex::test
