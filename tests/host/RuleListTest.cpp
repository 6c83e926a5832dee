#include "host/kvexrules/RuleList.h"

#include "host/kvexrules/Failure.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

StoredRule listed(const std::u16string &id, const std::u16string &name, bool isActive) {
    StoredRule rule;
    rule.id = id;
    rule.name = name;
    rule.isActive = isActive;
    return rule;
}

TEST(RuleList, OfNoRulesIsEmpty) {
    EXPECT_EQ(listText({}), "");
}

TEST(RuleList, HoldsPositionStateIdAndName) {
    EXPECT_EQ(listText({listed(u"7", u"Stop", true), listed(u"3", u"Halt at night", false)}),
              "1  on   7  Stop\n"
              "2  off  3  Halt at night\n");
}

TEST(RuleList, AlignsNumbersToTheRight) {
    std::vector<StoredRule> rules(10, listed(u"1", u"a", true));
    rules.back().id = u"100";
    const std::string text = listText(rules);
    EXPECT_EQ(text.substr(0, text.find('\n')), " 1  on     1  a");
    EXPECT_EQ(text.substr(text.rfind("10  on")), "10  on   100  a\n");
}

TEST(RuleList, KeepsARuleOnItsLineWhateverItsName) {
    EXPECT_EQ(listText({listed(u"1", u"a\r\nb\tc\\d\x1b[2J", true), listed(u"2", u"", true)}),
              "1  on   1  a\\r\\nb\\tc\\\\d\\u{1b}[2J\n"
              "2  on   2  \n");
}

TEST(RuleList, ShowsAnIdThatIsNoNumber) {
    EXPECT_EQ(listText({listed(u"é\x1b", u"a", true), listed(u"12", u"b", true),
                        listed(u"", u"c", true)}),
              "1  on   é\\u{1b}  a\n"
              "2  on   "
              "     12  b\n"
              "3  on   "
              "         c\n");
}

TEST(RuleList, IsUtf8) {
    EXPECT_EQ(listText({listed(u"1", u"रात 🌙", true)}), "1  on   1  रात 🌙\n");
}

TEST(RuleId, LosesItsLeadingZeros) {
    EXPECT_EQ(ruleId("7"), "7");
    EXPECT_EQ(ruleId("007"), "7");
    EXPECT_EQ(ruleId("-1"), "-1");
}

TEST(RuleId, MustBeANumber) {
    for (const char *text : {"", "a", "7a", " 7", "+7", "1.5", "99999999999999999999"}) {
        EXPECT_THROW(static_cast<void>(ruleId(text)), Failure) << text;
    }
}

} // namespace
} // namespace kvex::host
