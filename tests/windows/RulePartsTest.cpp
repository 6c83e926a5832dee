#include "ui/rules/RuleParts.h"

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

TEST(RuleParts, StandInTheRowsOfTheirTables) {
    for (const auto parts : {ruleConditions(), ruleActions()}) {
        int row = 0;
        for (const RulePart &part : parts) {
            EXPECT_EQ(rowOf(part.id), ++row);
            EXPECT_EQ(&rulePart(part.id), &part);
        }
    }
    EXPECT_EQ(rowOf(RulePartId::ignoreIfService), 1);
    EXPECT_EQ(rowOf(RulePartId::allMessages), 6);
    EXPECT_EQ(rowOf(RulePartId::distribute), 1);
    EXPECT_EQ(rowOf(RulePartId::ignoreFurtherRules), 5);
}

TEST(RuleParts, NameTheValuesThatTheirDialogsEdit) {
    EXPECT_EQ(editableValues(ruleConditions()), u"people, accounts, words or date/time");
    EXPECT_EQ(editableValues(ruleActions()), u"distribute, reply or alert");
    EXPECT_EQ(editableValues(ruleConditions().subspan(1, 1)), u"people");
    EXPECT_EQ(editableValues(ruleConditions().last(1)), u"");
}

TEST(RuleParts, LoseTheirValuesWhenUntickedAndKeepThemWhenTicked) {
    for (const auto parts : {ruleConditions(), ruleActions()}) {
        for (const RulePart &part : parts) {
            RuleState rule;
            rule.blnAllMessages = true;
            rule.strIgnoreIfService = rule.varDelete = rule.strIgnoreFurtherRules = u"YES";
            rule.strPeople = rule.varAccounts = rule.strWords = rule.strDateTime = u"1";
            rule.strDistribution = rule.strReplyText = rule.strAlertRecipients = u"1";
            part.setTicked(rule, true);
            EXPECT_TRUE(part.held(rule));
            part.setTicked(rule, false);
            EXPECT_FALSE(part.held(rule));
            if (!part.hasDialog()) {
                part.setTicked(rule, true);
                EXPECT_TRUE(part.held(rule));
            }
        }
    }
}

} // namespace
} // namespace kvex::test
