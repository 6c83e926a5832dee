#include "host/kvexrules/ListedRules.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

ListedRule listed(const std::u16string &id, const std::u16string &name, bool isActive = true,
                  RuleMarks marks = {false}) {
    StoredRule rule;
    rule.id = id;
    rule.name = name;
    rule.isActive = isActive;
    return {1, rule, marks};
}

TEST(ListedRules, OfNoRulesIsEmpty) {
    EXPECT_EQ(listText({}), "");
}

TEST(ListedRules, HoldPositionStateIdMarkAndName) {
    std::vector<ListedRule> rules{
        listed(u"7", u"Stop", true, {true}), listed(u"3", u"Halt at night", false),
        listed(u"4", u"Odd", true, {std::nullopt}), listed(u"5", u"Late", true, {true, true})};
    rules[1].position = 2;
    rules[2].position = 10;
    rules[3].position = 11;
    EXPECT_EQ(listText(rules), " 1  on   7  stops  Stop\n"
                               " 2  off  3  -      Halt at night\n"
                               "10  on   4  ?      Odd\n"
                               "11  on   5  never  Late\n");
}

TEST(ListedRules, AlignNumbersToTheRight) {
    EXPECT_EQ(listText({listed(u"1", u"a"), listed(u"100", u"b")}), "1  on     1  -      a\n"
                                                                    "1  on   100  -      b\n");
}

TEST(ListedRules, KeepARuleOnItsLineWhateverItsName) {
    EXPECT_EQ(listText({listed(u"1", u"a\r\nb\tc\\d\x1b[2J"), listed(u"2", u"")}),
              "1  on   1  -      a\\r\\nb\\tc\\\\d\\u{1b}[2J\n"
              "1  on   2  -      \n");
}

TEST(ListedRules, ShowAnIdThatIsNoNumber) {
    EXPECT_EQ(listText({listed(u"é\x1b", u"a"), listed(u"12", u"b"), listed(u"", u"c")}),
              "1  on   é\\u{1b}  -      a\n"
              "1  on        12  -      b\n"
              "1  on            -      c\n");
}

TEST(ListedRules, AreUtf8) {
    EXPECT_EQ(listText({listed(u"1", u"रात 🌙")}), "1  on   1  -      रात 🌙\n");
}

TEST(ListedRules, OfADocumentHaveTheSameValues) {
    EXPECT_EQ(listJson({}), "{\n  \"rules\": []\n}\n");
    EXPECT_EQ(listJson({listed(u"x", u"é", false, {std::nullopt, true})}, true),
              "{\n  \"rules\": [\n    {\n      \"position\": 1,\n      \"id\": \"x\",\n"
              "      \"name\": \"\\u00e9\",\n      \"active\": false,\n      \"stops\": null,\n"
              "      \"neverReached\": true\n"
              "    }\n  ]\n}\n");
}

} // namespace
} // namespace kvex::host
