// Reading fields.
#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {

TEST_P(RecordsetConformance, FieldNamesIgnoreCase) {
    insertRule(5, u"rule");
    const auto rules = openRules();
    EXPECT_EQ(rules->field(u"Id").int32(), 5);
    EXPECT_EQ(rules->field(u"id").int32(), 5);
    EXPECT_EQ(rules->field(u"NAME").text(), u"rule");
    EXPECT_EQ(rules->field(u"Active").int16(), 1);
    EXPECT_EQ(rules->field(u"ACTIVE").int16(), 1);
}

TEST_P(RecordsetConformance, AnUnknownFieldIsNotFound) {
    insertRule(1, u"rule");
    const auto rules = openRules();
    EXPECT_EQ(errorNumber([&] { static_cast<void>(rules->field(u"Nam")); }),
              error_number::itemNotFound);
    EXPECT_EQ(errorNumber([&] { rules->setField(u"Names", u"x"); }), error_number::itemNotFound);
}

TEST_P(RecordsetConformance, ThereIsNoFieldWithoutACurrentRecord) {
    const auto rules = openRules();
    EXPECT_EQ(errorNumber([&] { static_cast<void>(rules->field(u"Name")); }),
              error_number::noCurrentRecord);
    EXPECT_EQ(errorNumber([&] { rules->setField(u"Name", u"x"); }), error_number::noCurrentRecord);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(rules->field(u"Nam")); }),
              error_number::itemNotFound);
}

TEST_P(RecordsetConformance, ValuesHaveTheKindsOfTheirColumns) {
    insertRule(1, u"rule");
    const auto rules = openRules();
    EXPECT_EQ(rules->field(u"ID").owned(), Value(std::int64_t{1}));
    EXPECT_EQ(rules->field(u"Name").owned(), Value(u"rule"));
    EXPECT_EQ(rules->field(u"QueryParam").owned(), Value(Null()));
    EXPECT_EQ(rules->field(u"PRIORITY").owned(), Value(std::int64_t{0}));
}

TEST_P(RecordsetConformance, ANullIsNoTextAndNoNumber) {
    insertRule(1, u"rule");
    const auto rules = openRules();
    const ValueView value = rules->field(u"QueryParam");
    EXPECT_TRUE(value.isNull());
    EXPECT_EQ(errorNumber([&] { static_cast<void>(value.text()); }),
              error_number::invalidUseOfNull);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(value.int32()); }),
              error_number::invalidUseOfNull);
}

TEST_P(RecordsetConformance, AFloatingPointNumberIsRead) {
    const auto numbers = openQuery(u"SELECT 2.5e0 AS HALF");
    EXPECT_EQ(numbers->field(u"half").owned(), Value(2.5));
}

TEST_P(RecordsetConformance, AnEmptyTextIsNotNull) {
    insertRule(1, u"");
    const auto rules = openRules();
    EXPECT_EQ(rules->field(u"Name").owned(), Value(u""));
}

TEST_P(RecordsetConformance, TextsOfAllScriptsAreRead) {
    insertRule(1, u"ग्राहक सेवा");
    insertRule(2, u"a \U0001F4F1 b");
    const auto rules = openRules();
    EXPECT_EQ(name(*rules), u"ग्राहक सेवा");
    rules->moveNext();
    EXPECT_EQ(name(*rules), u"a \U0001F4F1 b");
}

TEST_P(RecordsetConformance, OfTwoColumnsWithOneNameTheFirstIsRead) {
    const auto pair = openQuery(u"SELECT 'first' AS NAME, 'second' AS Name");
    EXPECT_EQ(name(*pair), u"first");
}

TEST_P(RecordsetConformance, TheLargestIdIsReadUnderItsName) {
    insertRule(4, u"a");
    insertRule(17, u"b");
    EXPECT_EQ(openQuery(u"SELECT MAX(ID) MAXID FROM SMS_RULES")->field(u"MAXID").int32(), 17);
}

TEST_P(RecordsetConformance, TheLargestIdOfNoneIsNull) {
    const auto largest = openQuery(u"SELECT MAX(ID) MAXID FROM SMS_RULES");
    EXPECT_FALSE(largest->eof());
    EXPECT_TRUE(largest->field(u"MAXID").isNull());
}

TEST_P(RecordsetConformance, AValueStaysValidWhileOthersAreRead) {
    insertRule(1, u"first rule");
    insertRule(2, u"second rule");
    const auto rules = openRules();
    const ValueView first = rules->field(u"Name");
    rules->moveNext();
    rules->find(u"Name = 'nothing'");
    EXPECT_EQ(first.textOrEmpty(), u"first rule");
}

} // namespace kvex::test
