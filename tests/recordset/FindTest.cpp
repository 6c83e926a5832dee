// Finding a record.
#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {

TEST_P(RecordsetConformance, FindStopsOnTheRecordWithTheNumber) {
    insertRule(3, u"a");
    insertRule(17, u"b");
    insertRule(170, u"c");
    const auto rules = openRules();
    rules->find(u"ID = 17");
    EXPECT_EQ(name(*rules), u"b");
    rules->moveFirst();
    rules->find(u"id=170");
    EXPECT_EQ(name(*rules), u"c");
}

TEST_P(RecordsetConformance, FindLeavesEofWhenNothingMatches) {
    insertRule(3, u"a");
    const auto rules = openRules();
    rules->find(u"ID = 4");
    EXPECT_TRUE(rules->eof());
    EXPECT_FALSE(rules->bof());
    rules->moveFirst();
    rules->find(u"Name = 'b'");
    EXPECT_TRUE(rules->eof());
}

TEST_P(RecordsetConformance, FindStartsAtTheCurrentRecord) {
    for (int rule = 1; rule <= 4; ++rule) {
        insertRule(rule, u"same");
    }
    const auto rules = openRules();
    rules->moveNext();
    rules->find(u"Name = 'same'");
    EXPECT_EQ(id(*rules), 2);
    rules->find(u"ID = 1");
    EXPECT_TRUE(rules->eof());
}

TEST_P(RecordsetConformance, FindSkipsRecordsBeforeItSearches) {
    for (int rule = 1; rule <= 4; ++rule) {
        insertRule(rule, u"same");
    }
    const auto rules = openRules();
    rules->find(u"Name = 'same'", 1);
    EXPECT_EQ(id(*rules), 2);
    rules->find(u"ACTIVE = 1", 2);
    EXPECT_EQ(id(*rules), 4);
    rules->find(u"ACTIVE = 1", 1);
    EXPECT_TRUE(rules->eof());
    for (const std::int32_t skip : {4, 10, INT32_MAX}) {
        rules->moveFirst();
        rules->find(u"Name = 'same'", skip);
        EXPECT_TRUE(rules->eof());
        rules->moveFirst();
        rules->find(u"ACTIVE = 1", skip);
        EXPECT_TRUE(rules->eof());
    }
}

TEST_P(RecordsetConformance, FindDoesNotSkipBackwards) {
    insertRule(1, u"a");
    const auto rules = openRules();
    EXPECT_EQ(errorNumber([&] { rules->find(u"ID = 1", -1); }), error_number::badArgument);
}

TEST_P(RecordsetConformance, FindAtTheEndFindsNothing) {
    insertRule(1, u"a");
    const auto rules = openRules();
    rules->moveNext();
    rules->find(u"ID = 1");
    EXPECT_TRUE(rules->eof());
    rules->find(u"Name = 'a'");
    EXPECT_TRUE(rules->eof());
}

TEST_P(RecordsetConformance, FindInAnEmptySetFindsNothing) {
    const auto rules = openRules();
    rules->find(u"ID = 1");
    EXPECT_TRUE(rules->eof());
    EXPECT_TRUE(rules->bof());
}

TEST_P(RecordsetConformance, FindIgnoresTheCaseOfTexts) {
    insertRule(1, u"other");
    insertRule(2, u"Boss sms");
    insertRule(3, u"\u00C4rger");
    const auto rules = openRules();
    rules->find(u"Name = 'BOSS SMS'");
    EXPECT_EQ(id(*rules), 2);
    rules->find(u"Name = '\u00E4RGER'");
    EXPECT_EQ(id(*rules), 3);
}

TEST_P(RecordsetConformance, FindFindsTextsOfAllScripts) {
    insertRule(1, u"ग्राहक");
    insertRule(2, u"\U0001F4F1");
    const auto rules = openRules();
    rules->find(u"Name = '\U0001F4F1'");
    EXPECT_EQ(id(*rules), 2);
    rules->moveFirst();
    rules->find(u"Name = 'ग्राहक'");
    EXPECT_EQ(id(*rules), 1);
}

TEST_P(RecordsetConformance, FindCountsTrailingBlanks) {
    insertRule(1, u"name ");
    insertRule(2, u"name");
    const auto rules = openRules();
    rules->find(u"Name = 'name'");
    EXPECT_EQ(id(*rules), 2);
    rules->moveFirst();
    rules->find(u"Name = 'name '");
    EXPECT_EQ(id(*rules), 1);
}

TEST_P(RecordsetConformance, FindComparesWholeTexts) {
    insertRule(1, u"names");
    insertRule(2, u"nam");
    const auto rules = openRules();
    rules->find(u"Name = 'name'");
    EXPECT_TRUE(rules->eof());
}

TEST_P(RecordsetConformance, FindOfAnEmptyTextPassesNulls) {
    database().run(u"INSERT INTO SMS_RULES (ID, Name) VALUES (1, NULL)");
    insertRule(2, u"");
    const auto rules = openRules();
    rules->find(u"Name = ''");
    EXPECT_EQ(id(*rules), 2);
}

TEST_P(RecordsetConformance, FindOfANumberPassesNulls) {
    database().run(u"INSERT INTO SMS_RULES (ID, PRIORITY) VALUES (1, NULL)");
    insertRule(2, u"zero");
    const auto rules = openRules();
    rules->find(u"PRIORITY = 0");
    EXPECT_EQ(id(*rules), 2);
}

TEST_P(RecordsetConformance, ANumberFindsNoTextAndATextNoNumber) {
    insertRule(5, u"5");
    const auto rules = openRules();
    rules->find(u"Name = 5");
    EXPECT_TRUE(rules->eof());
    rules->moveFirst();
    rules->find(u"ID = '5'");
    EXPECT_TRUE(rules->eof());
}

TEST_P(RecordsetConformance, FindTakesNumbersInEveryDecimalForm) {
    insertRule(5, u"a");
    const auto rules = openRules();
    for (const std::u16string_view number : {u"5", u"+5", u"5.0", u"0.5e1", u"005"}) {
        rules->moveFirst();
        rules->find(u"ID = " + std::u16string(number));
        EXPECT_FALSE(rules->eof()) << Error(1, std::u16string(number)).what();
    }
    rules->moveFirst();
    rules->find(u"ID = 5.5");
    EXPECT_TRUE(rules->eof());
    rules->moveFirst();
    rules->find(u"ID = -5");
    EXPECT_TRUE(rules->eof());
}

TEST_P(RecordsetConformance, FindRefusesWhatItCannotRead) {
    insertRule(1, u"a");
    const auto rules = openRules();
    for (const std::u16string_view criterion :
         {u"", u"ID", u"ID =", u"= 5", u"ID = five", u"ID = 5 AND ACTIVE = 1", u"ID >= 5", u"5",
          u"Name LIKE 'a'", u"Name = 'O'Brien'", u"Name = 'O''Brien'", u"Name = 'open", u"Name = '",
          u"Name = a", u"Name <> 'a'"}) {
        EXPECT_EQ(errorNumber([&] { rules->find(criterion); }), error_number::badArgument)
            << Error(1, std::u16string(criterion)).what();
        EXPECT_EQ(id(*rules), 1);
    }
}

TEST_P(RecordsetConformance, FindRefusesAnUnreadableCriterionAtTheEndToo) {
    const auto rules = openRules();
    EXPECT_EQ(errorNumber([&] { rules->find(u"Name = 'O'Brien'"); }), error_number::badArgument);
}

TEST_P(RecordsetConformance, FindDoesNotFindAnUnknownColumn) {
    insertRule(1, u"a");
    const auto rules = openRules();
    EXPECT_EQ(errorNumber([&] { rules->find(u"NUMBER = 5"); }), error_number::itemNotFound);
    EXPECT_EQ(errorNumber([&] { rules->find(u"TITLE = 'a'"); }), error_number::itemNotFound);
    EXPECT_EQ(id(*rules), 1);
}

TEST_P(RecordsetConformance, FindFindsAWrittenNumberAndNoLongerTheOldOne) {
    insertRule(1, u"a");
    insertRule(2, u"b");
    const auto rules = openRules();
    rules->find(u"PRIORITY = 8");
    EXPECT_TRUE(rules->eof());
    rules->moveFirst();
    rules->find(u"ID = 2");
    rules->setField(u"PRIORITY", std::int64_t{8});
    rules->update();
    rules->moveFirst();
    rules->find(u"PRIORITY = 8");
    EXPECT_EQ(id(*rules), 2);
    rules->moveFirst();
    rules->find(u"PRIORITY = 0", 1);
    EXPECT_TRUE(rules->eof());
}

TEST_P(RecordsetConformance, FindAmongManyNumbersFindsEach) {
    // The numbers are not in order, and some are equal.
    for (int rule = 1; rule <= 60; ++rule) {
        database().run(u"INSERT INTO SMS_RULES (ID, PRIORITY) VALUES (" +
                       toText(std::int64_t{(rule * 37) % 61}) + u", " +
                       toText(std::int64_t{rule % 10}) + u")");
    }
    const auto rules = openQuery(u"SELECT * FROM SMS_RULES ORDER BY PRIORITY DESC, ID");
    for (int rule = 1; rule <= 60; ++rule) {
        rules->moveFirst();
        rules->find(u"ID = " + toText(std::int64_t{rule}));
        EXPECT_EQ(id(*rules), rule);
    }
    int found = 0;
    rules->moveFirst();
    for (rules->find(u"PRIORITY = 4"); !rules->eof() && found < 10;
         rules->find(u"PRIORITY = 4", 1)) {
        EXPECT_EQ(rules->field(u"PRIORITY").int32(), 4);
        ++found;
    }
    EXPECT_EQ(found, 6);
}

} // namespace kvex::test
