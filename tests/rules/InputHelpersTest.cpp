#include "rules/InputHelpers.h"

#include "tests/support/ComponentTest.h"
#include "tests/support/RaisedError.h"

namespace kvex::test {
namespace {

class InputHelpers : public ComponentTest {
protected:
    InputHelpers() { createSession(); }
    bool pasteAccepted(std::u16string text) {
        toolkit.clipboard().setText(std::move(text));
        return IsNumericKey(22, true);
    }
};

TEST_F(InputHelpers, DigitsAndEditingKeysAreAccepted) {
    for (std::int16_t key = 0; key < 300; ++key) {
        const bool editing = key == 3 || key == 8 || key == 9 || key == 24;
        const bool digit = key >= u'0' && key <= u'9';
        EXPECT_EQ(IsNumericKey(key, true), editing || digit) << key;
    }
}

TEST_F(InputHelpers, ThePointIsForFractionsOnly) {
    EXPECT_FALSE(IsNumericKey(46, true));
    EXPECT_TRUE(IsNumericKey(46, false));
}

TEST_F(InputHelpers, APasteMustBeANumberOfZeroOrMore) {
    EXPECT_TRUE(pasteAccepted(u"007"));
    EXPECT_TRUE(pasteAccepted(u"12.5"));
    EXPECT_TRUE(pasteAccepted(u" 42 "));
    EXPECT_TRUE(pasteAccepted(u"0"));
    EXPECT_TRUE(pasteAccepted(u"1e3"));
    EXPECT_FALSE(pasteAccepted(u"-5"));
    EXPECT_FALSE(pasteAccepted(u"98x"));
    EXPECT_FALSE(pasteAccepted(u" "));
    EXPECT_FALSE(pasteAccepted(u"1e999"));
}

TEST_F(InputHelpers, WithoutTextNothingIsPasted) {
    toolkit.clipboard().clear();
    EXPECT_FALSE(IsNumericKey(22, true));
}

TEST_F(InputHelpers, PaddingFillsToTheWidth) {
    EXPECT_EQ(PadLeft(u"7", 3, u'0'), u"007");
    EXPECT_EQ(PadLeft(u"123", 3, u'0'), u"123");
    EXPECT_EQ(PadLeft(u"-1", 8, u'0'), u"000000-1");
}

TEST_F(InputHelpers, ATextLongerThanTheWidthIsNotCut) {
    EXPECT_EQ(errorNumber([] { return PadLeft(u"1234", 3, u'0'); }), error_number::invalidCall);
}

TEST_F(InputHelpers, ClearingTheRuleKeepsTheCommandMarkAlone) {
    RuleState &rule = ruleState();
    rule.strRuleName = rule.strRuleText = rule.strPeople = rule.varAccounts = rule.strWords =
        rule.strDateTime = rule.strDistribution = rule.strReplyText = rule.strReplyAccount =
            rule.strAlertText = rule.strAlertAccount = rule.strAlertRecipients = u"x";
    rule.strIgnoreIfService = rule.varDelete = rule.strIgnoreFurtherRules = u"YES";
    rule.intRuleActive = rule.intPeopleNot = rule.intPeopleAll = rule.intAccountNot =
        rule.intAccountAll = rule.intWordsNot = rule.intWordsAll = rule.intAsCommand =
            rule.intOptionNot = rule.intOptionAll = 1;
    rule.blnAllMessages = true;
    ClearRuleData();
    EXPECT_EQ(rule.strRuleName + rule.strRuleText + rule.strPeople + rule.varAccounts +
                  rule.strWords + rule.strDateTime + rule.strDistribution + rule.strReplyText +
                  rule.strReplyAccount + rule.strAlertText + rule.strAlertAccount +
                  rule.strAlertRecipients,
              u"");
    EXPECT_EQ(rule.strIgnoreIfService, u"NO");
    EXPECT_EQ(rule.varDelete, u"NO");
    EXPECT_EQ(rule.strIgnoreFurtherRules, u"NO");
    EXPECT_EQ(rule.intRuleActive + rule.intPeopleNot + rule.intPeopleAll + rule.intAccountNot +
                  rule.intAccountAll + rule.intWordsNot + rule.intWordsAll + rule.intOptionNot +
                  rule.intOptionAll,
              0);
    EXPECT_FALSE(rule.blnAllMessages);
    EXPECT_EQ(rule.intAsCommand, 1);
}

} // namespace
} // namespace kvex::test
