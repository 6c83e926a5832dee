// Records keep their places, and a write changes the current record alone.
#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {

namespace {

using Ids = std::vector<std::int32_t>;

constexpr std::u16string_view byPriority = u"SELECT * FROM SMS_RULES ORDER BY PRIORITY, ID";

} // namespace

TEST_P(RecordsetConformance, RecordsOfOnePriorityKeepTheirOrderThroughUpdateAndResync) {
    for (int rule = 1; rule <= 4; ++rule) {
        insertRule(rule, u"rule");
    }
    const auto rules = openQuery(byPriority);
    for (const int changed : {3, 1}) {
        rules->moveFirst();
        rules->find(u"ID = " + toText(std::int64_t{changed}));
        rules->setField(u"Name", u"changed");
        rules->update();
        rules->resyncCurrent();
        EXPECT_EQ(id(*rules), changed);
        EXPECT_EQ(ids(*rules), (Ids{1, 2, 3, 4}));
    }
}

TEST_P(RecordsetConformance, ARecordKeepsItsPlaceWhereTheQueryWouldGiveItAnother) {
    for (int rule = 1; rule <= 3; ++rule) {
        insertRule(rule, u"rule");
    }
    const auto rules = openQuery(byPriority);
    rules->setField(u"PRIORITY", std::int64_t{9});
    rules->update();
    rules->resyncCurrent();
    rules->moveNext();
    EXPECT_EQ(id(*rules), 2);
    EXPECT_EQ(ids(*rules), (Ids{1, 2, 3}));
    EXPECT_EQ(ids(*openQuery(byPriority)), (Ids{2, 3, 1}));
}

TEST_P(RecordsetConformance, ANewRecordStaysTheLastOneWhateverItsPriority) {
    insertRule(1, u"rule");
    database().run(u"UPDATE SMS_RULES SET PRIORITY = 5");
    const auto rules = openQuery(byPriority);
    rules->addNew();
    rules->setField(u"ID", std::int64_t{2});
    rules->update();
    rules->resyncCurrent();
    EXPECT_EQ(ids(*rules), (Ids{1, 2}));
    EXPECT_EQ(ids(*openQuery(byPriority)), (Ids{2, 1}));
}

TEST_P(RecordsetConformance, ARemovalTakesTheRecordThatTheSearchStoppedOnAndNoOther) {
    for (int rule = 1; rule <= 4; ++rule) {
        insertRule(rule, u"same");
    }
    const auto rules = openRules();
    rules->find(u"ID = 3");
    rules->deleteCurrent();
    EXPECT_EQ(ids(*rules), (Ids{1, 2, 4}));
    EXPECT_EQ(ids(*openRules()), (Ids{1, 2, 4}));
    rules->moveFirst();
    rules->find(u"Name = 'same'", 2);
    rules->deleteCurrent();
    EXPECT_EQ(ids(*rules), (Ids{1, 2}));
    EXPECT_EQ(ids(*openRules()), (Ids{1, 2}));
}

TEST_P(RecordsetConformance, AfterASearchThatFoundNothingThereIsNothingToWrite) {
    insertRule(1, u"kept");
    insertRule(2, u"kept");
    const auto rules = openRules();
    for (const std::u16string_view criterion : {u"ID = 3", u"Name = 'none'"}) {
        rules->moveFirst();
        rules->find(criterion);
        EXPECT_EQ(errorNumber([&] { rules->deleteCurrent(); }), error_number::noCurrentRecord);
        EXPECT_EQ(errorNumber([&] { rules->resyncCurrent(); }), error_number::noCurrentRecord);
        EXPECT_EQ(errorNumber([&] { rules->setField(u"Name", u"x"); }),
                  error_number::noCurrentRecord);
        rules->update();
    }
    EXPECT_EQ(rules->recordCount(), 2);
    EXPECT_EQ(database().rows(u"SELECT ID, Name FROM SMS_RULES ORDER BY ID"),
              (std::vector<std::u16string>{u"1|kept", u"2|kept"}));
}

TEST_P(RecordsetConformance, AfterARemovalASearchForTheRecordsIdFindsNothingAndTheOthersAreFound) {
    for (int rule = 1; rule <= 3; ++rule) {
        insertRule(rule, u"rule");
    }
    const auto rules = openRules();
    for (const int removed : {2, 1, 3}) {
        const std::u16string criterion = u"ID = " + toText(std::int64_t{removed});
        rules->moveFirst();
        rules->find(criterion);
        EXPECT_EQ(id(*rules), removed);
        rules->deleteCurrent();
        rules->moveFirst();
        rules->find(criterion);
        EXPECT_TRUE(rules->eof());
    }
    EXPECT_EQ(ruleCount(), u"0");
}

TEST_P(RecordsetConformance, AResyncMovesTheNumberThatIsSearched) {
    insertRule(1, u"first");
    insertRule(2, u"second");
    const auto rules = openRules();
    rules->find(u"PRIORITY = 0", 1);
    EXPECT_EQ(id(*rules), 2);
    database().run(u"UPDATE SMS_RULES SET PRIORITY = 7 WHERE ID = 2");
    rules->resyncCurrent();
    rules->moveFirst();
    rules->find(u"PRIORITY = 7");
    EXPECT_EQ(id(*rules), 2);
    rules->moveFirst();
    rules->find(u"PRIORITY = 0", 1);
    EXPECT_TRUE(rules->eof());
}

TEST_P(RecordsetConformance, AnUnknownColumnIsNamed) {
    const auto rules = openRules();
    expectError(error_number::itemNotFound, u"The query has no column TITLE.",
                [&] { rules->setField(u"TITLE", u"x"); });
}

} // namespace kvex::test
