// Two connections that edit the same records: who comes second overwrites nothing unseen.
#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {

TEST_P(RecordsetConformance, TheSecondOfTwoEditorsIsRefused) {
    insertRule(1, u"before");
    const auto otherConnection = openConnection();
    const auto mine = openRules();
    const auto theirs = openRules(*otherConnection);
    theirs->setField(u"Name", u"theirs");
    theirs->update();
    mine->setField(u"Name", u"mine");
    EXPECT_EQ(errorNumber([&] { mine->update(); }), rowChangedByAnother);
    EXPECT_EQ(storedName(1), u"theirs");
    EXPECT_EQ(name(*mine), u"mine");
    mine->moveFirst();
    EXPECT_EQ(name(*mine), u"before");
}

TEST_P(RecordsetConformance, ARefusedEditorCanReadAgainAndRepeat) {
    insertRule(1, u"before");
    const auto rules = openRules();
    database().run(u"UPDATE SMS_RULES SET Name = 'theirs'");
    rules->setField(u"Name", u"mine");
    EXPECT_EQ(errorNumber([&] { rules->update(); }), rowChangedByAnother);
    rules->resyncCurrent();
    EXPECT_EQ(name(*rules), u"theirs");
    rules->setField(u"Name", u"mine");
    rules->update();
    EXPECT_EQ(storedName(1), u"mine");
}

TEST_P(RecordsetConformance, EditorsOfDifferentColumnsDoNotMeet) {
    insertRule(1, u"before");
    const auto otherConnection = openConnection();
    const auto mine = openRules();
    const auto theirs = openRules(*otherConnection);
    theirs->setField(u"PRIORITY", std::int64_t{4});
    theirs->update();
    mine->setField(u"Name", u"mine");
    mine->update();
    EXPECT_EQ(storedName(1), u"mine");
    EXPECT_EQ(database().valueOf(u"SELECT PRIORITY FROM SMS_RULES"), u"4");
}

TEST_P(RecordsetConformance, OneChangedColumnOfManyRefusesThemAll) {
    insertRule(1, u"before");
    const auto rules = openRules();
    database().run(u"UPDATE SMS_RULES SET PRIORITY = 4");
    rules->setField(u"Name", u"mine");
    rules->setField(u"PRIORITY", std::int64_t{9});
    EXPECT_EQ(errorNumber([&] { rules->update(); }), rowChangedByAnother);
    EXPECT_EQ(storedName(1), u"before");
}

TEST_P(RecordsetConformance, AnothersChangeOfCaseOrOfATrailingBlankIsSeen) {
    insertRule(1, u"name");
    insertRule(2, u"name");
    const auto rules = openRules();
    database().run(u"UPDATE SMS_RULES SET Name = 'NAME' WHERE ID = 1");
    database().run(u"UPDATE SMS_RULES SET Name = 'name ' WHERE ID = 2");
    rules->setField(u"Name", u"mine");
    EXPECT_EQ(errorNumber([&] { rules->update(); }), rowChangedByAnother);
    rules->moveNext();
    rules->setField(u"Name", u"mine");
    EXPECT_EQ(errorNumber([&] { rules->update(); }), rowChangedByAnother);
}

TEST_P(RecordsetConformance, AnothersNullIsSeenAndSoIsAnothersValueInPlaceOfNull) {
    insertRule(1, u"name");
    const auto rules = openRules();
    database().run(u"UPDATE SMS_RULES SET Name = NULL, QueryParam = 'theirs'");
    rules->setField(u"Name", u"mine");
    EXPECT_EQ(errorNumber([&] { rules->update(); }), rowChangedByAnother);
    rules->moveFirst();
    rules->setField(u"QueryParam", u"mine");
    EXPECT_EQ(errorNumber([&] { rules->update(); }), rowChangedByAnother);
    EXPECT_EQ(storedName(1), u"NULL");
    EXPECT_EQ(database().valueOf(u"SELECT QueryParam FROM SMS_RULES"), u"theirs");
}

TEST_P(RecordsetConformance, AnotherWhoStoresTheSameValueDoesNotDisturb) {
    insertRule(1, u"name");
    const auto rules = openRules();
    database().run(u"UPDATE SMS_RULES SET Name = 'name'");
    rules->setField(u"Name", u"mine");
    rules->update();
    EXPECT_EQ(storedName(1), u"mine");
}

TEST_P(RecordsetConformance, ARowRemovedByAnotherIsNotWrittenAgain) {
    insertRule(1, u"name");
    const auto rules = openRules();
    database().run(u"DELETE FROM SMS_RULES");
    rules->setField(u"Name", u"mine");
    EXPECT_EQ(errorNumber([&] { rules->update(); }), rowChangedByAnother);
    EXPECT_EQ(ruleCount(), u"0");
    EXPECT_EQ(rules->recordCount(), 1);
}

TEST_P(RecordsetConformance, ARowRemovedByAnotherCannotBeRemovedOrRead) {
    insertRule(1, u"name");
    const auto rules = openRules();
    database().run(u"DELETE FROM SMS_RULES");
    EXPECT_EQ(errorNumber([&] { rules->deleteCurrent(); }), rowChangedByAnother);
    EXPECT_EQ(rules->recordCount(), 1);
    rules->setField(u"ACTIVE", std::int64_t{0});
    EXPECT_EQ(errorNumber([&] { rules->resyncCurrent(); }), rowChangedByAnother);
    EXPECT_EQ(name(*rules), u"name");
    EXPECT_EQ(rules->field(u"ACTIVE").int16(), 0);
}

TEST_P(RecordsetConformance, ARowChangedByAnotherIsRemovedByItsKey) {
    insertRule(1, u"name");
    const auto rules = openRules();
    database().run(u"UPDATE SMS_RULES SET PRIORITY = 3");
    rules->deleteCurrent();
    EXPECT_EQ(ruleCount(), u"0");
}

TEST_P(RecordsetConformance, ARefusalSaysInASentenceWhatToDo) {
    insertRule(1, u"name");
    const auto rules = openRules();
    database().run(u"DELETE FROM SMS_RULES");
    rules->setField(u"Name", u"mine");
    try {
        rules->update();
        FAIL() << "it was stored";
    } catch (const Error &error) {
        EXPECT_NE(error.description().find(u"Another program"), std::u16string::npos);
        EXPECT_NE(error.description().find(u"repeat the change"), std::u16string::npos);
    }
}

} // namespace kvex::test
