// Two connections edit the same records. The second to write never overwrites a change that it has
// not read.
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

TEST_P(RecordsetConformance, ARowThatAnotherChangedIsNotRemoved) {
    insertRule(1, u"name");
    for (const std::u16string_view change :
         {u"PRIORITY = 3", u"Name = 'NAME'", u"Name = NULL", u"QueryParam = 'theirs'"}) {
        const auto rules = openRules();
        database().run(u"UPDATE SMS_RULES SET " + std::u16string(change));
        for (int attempt = 1; attempt <= 2; ++attempt) {
            EXPECT_EQ(errorNumber([&] { rules->deleteCurrent(); }), rowChangedByAnother);
        }
        EXPECT_EQ(ruleCount(), u"1");
        EXPECT_EQ(rules->recordCount(), 1);
        EXPECT_EQ(id(*rules), 1);
    }
}

TEST_P(RecordsetConformance, ARefusedRemovalKeepsWhatIsPending) {
    insertRule(1, u"name");
    const auto rules = openRules();
    rules->setField(u"Name", u"mine");
    database().run(u"UPDATE SMS_RULES SET PRIORITY = 3");
    EXPECT_EQ(errorNumber([&] { rules->deleteCurrent(); }), rowChangedByAnother);
    EXPECT_EQ(name(*rules), u"mine");
    rules->update();
    EXPECT_EQ(storedName(1), u"mine");
}

TEST_P(RecordsetConformance, ARefusedRemoverCanReadAgainAndRemove) {
    insertRule(1, u"name");
    const auto rules = openRules();
    database().run(u"UPDATE SMS_RULES SET Name = 'theirs'");
    EXPECT_EQ(errorNumber([&] { rules->deleteCurrent(); }), rowChangedByAnother);
    rules->resyncCurrent();
    rules->deleteCurrent();
    EXPECT_EQ(ruleCount(), u"0");
}

TEST_P(RecordsetConformance, ARowOfLongTextsIsRemovedUnlessAnotherChangedTheirLastCharacter) {
    insertRule(1, u"name");
    const auto writer = openRules();
    std::u16string query(4999, u'ä');
    writer->setField(u"QueryParam", query + u"1");
    writer->setField(u"ActionParam", std::u16string(2499, u'\u20AC') + u" ");
    writer->update();
    const auto refused = openRules();
    writer->setField(u"QueryParam", query + u"2");
    writer->update();
    EXPECT_EQ(errorNumber([&] { refused->deleteCurrent(); }), rowChangedByAnother);
    EXPECT_EQ(ruleCount(), u"1");
    const auto remover = openRules();
    remover->deleteCurrent();
    EXPECT_EQ(ruleCount(), u"0");
}

TEST_P(RecordsetConformance, AColumnThatTheQueryDoesNotReadDoesNotKeepARowFromRemoval) {
    insertRule(1, u"name");
    const auto rules = openQuery(u"SELECT ID, Name, 40 + 2 AS ANSWER FROM SMS_RULES");
    database().run(u"UPDATE SMS_RULES SET PRIORITY = 3");
    rules->deleteCurrent();
    EXPECT_EQ(ruleCount(), u"0");
}

TEST_P(RecordsetConformance, ANewRowThatAnotherChangedIsRefusedOnceItWasReadAgain) {
    const auto rules = openRules();
    rules->addNew();
    rules->setField(u"Name", u"new");
    rules->update();
    rules->resyncCurrent();
    database().run(u"UPDATE SMS_RULES SET ACTIVE = 0");
    EXPECT_EQ(errorNumber([&] { rules->deleteCurrent(); }), rowChangedByAnother);
    EXPECT_EQ(ruleCount(), u"1");
}

TEST_P(RecordsetConformance, ARefusalSaysWhatWasNotStoredAndWhy) {
    const std::u16string why = u". Another user changed or removed it meanwhile.";
    // A server may fold the case of names.
    insertRule(7, u"name");
    const auto rules = openRules();
    database().run(u"DELETE FROM SMS_RULES");
    rules->setField(u"Name", u"mine");
    EXPECT_EQ(raisedBy([&] { rules->update(); }).value().description(),
              u"The change of record ID 7 was not stored" + why);
    EXPECT_EQ(raisedBy([&] { rules->deleteCurrent(); }).value().description(),
              u"The removal of record ID 7 was not stored" + why);
    EXPECT_EQ(raisedBy([&] { rules->resyncCurrent(); }).value().description(),
              u"What was stored before stays stored, but record ID 7 could not be read again" +
                  why);
}

TEST_P(RecordsetConformance, TheErrorOfARefusedNewRecordSaysThatItWasNotStored) {
    insertRule(1, u"name");
    const auto rules = openRules();
    rules->addNew();
    rules->setField(u"ID", std::int64_t{1});
    EXPECT_TRUE(raisedBy([&] { rules->update(); })
                    .value()
                    .description()
                    .starts_with(u"The new record was not stored. "));
}

} // namespace kvex::test
