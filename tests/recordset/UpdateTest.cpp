// Changing a record.
#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {

TEST_P(RecordsetConformance, UpdateStoresTheFieldsThatWereSet) {
    insertRule(1, u"before");
    const auto rules = openRules();
    rules->setField(u"name", u"after");
    rules->setField(u"QUERYPARAM", u"<ALLMESSAGES>");
    rules->setField(u"Active", std::int64_t{0});
    EXPECT_EQ(storedName(1), u"before");
    rules->update();
    EXPECT_EQ(storedName(1), u"after");
    EXPECT_EQ(database().valueOf(u"SELECT QueryParam FROM SMS_RULES"), u"<ALLMESSAGES>");
    EXPECT_EQ(database().valueOf(u"SELECT ACTIVE FROM SMS_RULES"), u"0");
    EXPECT_EQ(name(*rules), u"after");
    EXPECT_EQ(rules->field(u"ACTIVE").int16(), 0);
}

TEST_P(RecordsetConformance, AFieldReadsAsSetBeforeItsUpdate) {
    insertRule(1, u"before");
    const auto rules = openRules();
    rules->setField(u"Name", u"after");
    EXPECT_EQ(name(*rules), u"after");
    rules->setField(u"Name", Null());
    EXPECT_TRUE(rules->field(u"Name").isNull());
}

TEST_P(RecordsetConformance, UpdateLeavesTheOtherColumnsToOthers) {
    insertRule(1, u"mine");
    const auto rules = openRules();
    rules->setField(u"Name", u"changed");
    database().run(u"UPDATE SMS_RULES SET PRIORITY = 9, QueryParam = 'theirs'");
    rules->update();
    EXPECT_EQ(storedName(1), u"changed");
    EXPECT_EQ(database().valueOf(u"SELECT PRIORITY FROM SMS_RULES"), u"9");
    EXPECT_EQ(database().valueOf(u"SELECT QueryParam FROM SMS_RULES"), u"theirs");
}

TEST_P(RecordsetConformance, UpdateWithoutAChangeSendsNothing) {
    insertRule(1, u"same");
    const auto rules = openRules();
    database().run(u"DELETE FROM SMS_RULES");
    rules->update();
    rules->setField(u"Name", u"same");
    rules->setField(u"ACTIVE", std::int64_t{1});
    rules->setField(u"QueryParam", Null());
    rules->update();
    EXPECT_EQ(ruleCount(), u"0");
}

TEST_P(RecordsetConformance, AFieldSetBackIsNoChange) {
    insertRule(1, u"same");
    const auto rules = openRules();
    rules->setField(u"Name", u"other");
    rules->setField(u"Name", u"same");
    database().run(u"UPDATE SMS_RULES SET Name = 'theirs'");
    rules->update();
    EXPECT_EQ(storedName(1), u"theirs");
}

TEST_P(RecordsetConformance, AChangeOfCaseOrOfATrailingBlankIsAChange) {
    insertRule(1, u"name");
    const auto rules = openRules();
    rules->setField(u"Name", u"NAME");
    rules->update();
    EXPECT_EQ(storedName(1), u"NAME");
    rules->setField(u"Name", u"NAME ");
    rules->update();
    EXPECT_EQ(storedName(1), u"NAME ");
}

TEST_P(RecordsetConformance, UpdateWithoutACurrentRecordSendsNothing) {
    const auto rules = openRules();
    rules->update();
    EXPECT_EQ(ruleCount(), u"0");
}

TEST_P(RecordsetConformance, NullsAreStoredAndReplaced) {
    insertRule(1, u"name");
    const auto rules = openRules();
    rules->setField(u"Name", Null());
    rules->update();
    EXPECT_EQ(storedName(1), u"NULL");
    rules->setField(u"Name", u"again");
    rules->update();
    EXPECT_EQ(storedName(1), u"again");
}

TEST_P(RecordsetConformance, TextsOfEveryKindComeBackAsWritten) {
    insertRule(1, u"name");
    const auto rules = openRules();
    for (const std::u16string &text :
         {std::u16string(u""), std::u16string(u" blanks "), std::u16string(u"O'Brien \"x\" \\ %_"),
          std::u16string(u"ग्राहक सेवा"), std::u16string(u"\U0001F4F1\U0001F468\u200D\U0001F469"),
          std::u16string(u"line\r\nline"), std::u16string(70000, u'\u0905')}) {
        rules->setField(u"QueryParam", text);
        rules->update();
        EXPECT_EQ(openRules()->field(u"QueryParam").text(), text);
    }
}

TEST_P(RecordsetConformance, ANulCharacterIsKept) {
    insertRule(1, u"name");
    const auto rules = openRules();
    const std::u16string text(u"a\0b", 3);
    rules->setField(u"Name", text);
    if (deviates(Deviation::refusesNulCharacters)) {
        EXPECT_LT(errorNumber([&] { rules->update(); }), 0);
        EXPECT_EQ(name(*rules), text);
        return;
    }
    rules->update();
    EXPECT_EQ(name(*openRules()), text);
    rules->setField(u"Name", u"again");
    rules->update();
    EXPECT_EQ(storedName(1), u"again");
}

TEST_P(RecordsetConformance, AnUnpairedSurrogateBecomesTheReplacementCharacter) {
    insertRule(1, u"name");
    const auto rules = openRules();
    rules->setField(u"Name", std::u16string{u'a', char16_t{0xD800}, u'b'});
    EXPECT_EQ(name(*rules), u"a\uFFFDb");
    rules->update();
    EXPECT_EQ(name(*openRules()), u"a\uFFFDb");
    rules->setField(u"Name", u"again");
    rules->update();
    EXPECT_EQ(storedName(1), u"again");
}

TEST_P(RecordsetConformance, AMoveDiscardsWhatIsPending) {
    insertRule(1, u"first");
    insertRule(2, u"second");
    const auto rules = openRules();
    rules->setField(u"Name", u"changed");
    rules->moveFirst();
    EXPECT_EQ(name(*rules), u"first");
    rules->setField(u"Name", u"changed");
    rules->moveNext();
    rules->setField(u"Name", u"changed");
    rules->find(u"ID = 2");
    EXPECT_EQ(name(*rules), u"second");
    rules->setField(u"Name", u"changed");
    EXPECT_EQ(errorNumber([&] { rules->find(u"ID = x"); }), error_number::badArgument);
    EXPECT_EQ(name(*rules), u"second");
    rules->update();
    EXPECT_EQ(storedName(1), u"first");
    EXPECT_EQ(storedName(2), u"second");
}

TEST_P(RecordsetConformance, AMoveThatFailsDiscardsWhatIsPendingToo) {
    insertRule(1, u"first");
    const auto rules = openRules();
    const auto discards = [&](std::int32_t number, const auto &call) {
        rules->moveFirst();
        rules->setField(u"Name", u"changed");
        EXPECT_EQ(errorNumber(call), number);
        EXPECT_EQ(name(*rules), u"first");
        rules->addNew();
        EXPECT_EQ(errorNumber(call), number);
        EXPECT_EQ(name(*rules), u"first");
    };
    discards(error_number::badArgument, [&] { rules->find(u"ID = x"); });
    discards(error_number::badArgument, [&] { rules->find(u"ID = 1", -1); });
    discards(error_number::itemNotFound, [&] { rules->find(u"TITLE = 1"); });
    rules->moveNext();
    rules->addNew();
    EXPECT_EQ(errorNumber([&] { rules->moveNext(); }), error_number::noCurrentRecord);
    EXPECT_TRUE(rules->eof());
    rules->update();
    EXPECT_EQ(database().valueOf(u"SELECT Name FROM SMS_RULES"), u"first");
    EXPECT_EQ(ruleCount(), u"1");
}

TEST_P(RecordsetConformance, ARefusedChangeStaysPendingUntilAMove) {
    insertRule(1, u"first");
    insertRule(2, u"second");
    const auto rules = openRules();
    rules->setField(u"ID", std::int64_t{2});
    EXPECT_LT(errorNumber([&] { rules->update(); }), 0);
    EXPECT_EQ(id(*rules), 2);
    EXPECT_LT(errorNumber([&] { rules->update(); }), 0);
    rules->moveFirst();
    EXPECT_EQ(id(*rules), 1);
    rules->update();
    EXPECT_EQ(ruleCount(), u"2");
}

TEST_P(RecordsetConformance, AChangedKeyIsTheKeyOfTheNextChange) {
    insertRule(1, u"name");
    const auto rules = openRules();
    rules->setField(u"ID", std::int64_t{40});
    rules->update();
    rules->setField(u"Name", u"moved");
    rules->update();
    EXPECT_EQ(storedName(40), u"moved");
}

TEST_P(RecordsetConformance, ARecordSetOpenedForReadingIsNotWritten) {
    insertRule(1, u"name");
    recordset::ClientRecordset records;
    Recordset &rules = records;
    rules.open(u"SELECT * FROM SMS_RULES", connection());
    rules.setField(u"Name", u"changed");
    EXPECT_EQ(errorNumber([&] { rules.update(); }), error_number::badArgument);
    EXPECT_EQ(errorNumber([&] { rules.deleteCurrent(); }), error_number::badArgument);
    EXPECT_EQ(storedName(1), u"name");
}

TEST_P(RecordsetConformance, AQueryWithoutItsTablesKeyIsNotWritten) {
    insertRule(1, u"name");
    for (const std::u16string_view query :
         {u"SELECT Name FROM SMS_RULES", u"SELECT MAX(ID) MAXID, 'x' AS Name FROM SMS_RULES",
          u"SELECT R.ID, R.Name, U.NAME AS UserName FROM SMS_RULES R LEFT JOIN SMS_USERS U "
          u"ON U.ID = R.ID",
          u"SELECT A.ID, B.ID AS OTHER, B.Name FROM SMS_RULES A, SMS_RULES B"}) {
        const auto rows = openQuery(query);
        rows->setField(u"Name", u"changed");
        EXPECT_EQ(errorNumber([&] { rows->update(); }), error_number::badArgument);
        EXPECT_EQ(errorNumber([&] { rows->resyncCurrent(); }), error_number::badArgument);
        EXPECT_EQ(errorNumber([&] { rows->deleteCurrent(); }), error_number::badArgument);
    }
    EXPECT_EQ(storedName(1), u"name");
}

TEST_P(RecordsetConformance, AComputedColumnIsNotWritten) {
    insertRule(1, u"name");
    const auto rules = openQuery(u"SELECT ID, Name, ID + 1 AS NEXT FROM SMS_RULES");
    rules->setField(u"NEXT", std::int64_t{9});
    EXPECT_EQ(errorNumber([&] { rules->update(); }), error_number::badArgument);
    rules->moveFirst();
    rules->setField(u"Name", u"changed");
    rules->update();
    EXPECT_EQ(storedName(1), u"changed");
}

TEST_P(RecordsetConformance, AColumnUnderAnotherNameIsWritten) {
    insertRule(1, u"name");
    const auto rules = openQuery(u"SELECT ID AS NUMBER, Name AS TITLE FROM SMS_RULES");
    rules->setField(u"TITLE", u"changed");
    rules->update();
    EXPECT_EQ(storedName(1), u"changed");
}

TEST_P(RecordsetConformance, AColumnNamedTwiceReadsAlikeAfterItsUpdate) {
    insertRule(1, u"name");
    const auto rules = openQuery(u"SELECT ID, Name, Name AS TITLE FROM SMS_RULES");
    rules->setField(u"TITLE", u"changed");
    rules->update();
    EXPECT_EQ(name(*rules), u"changed");
}

} // namespace kvex::test
