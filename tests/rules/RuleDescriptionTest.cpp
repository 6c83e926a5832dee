#include "rules/RuleDescription.h"

#include "rules/DescriptionLists.h"
#include "tests/rules/ExampleRule.h"
#include "tests/support/ComponentTest.h"

namespace kvex::test {
namespace {

class RuleDescription : public ComponentTest {
protected:
    RuleDescription() {
        database.addUser(3, "Asha");
        database.addUser(7, "Boss");
        database.addAccount(2, "Main");
        database.addAccount(4, " Padded ");
        openSession();
        rule.intRuleActive = 1;
    }

    std::u16string described() {
        BuildRuleDescription(*box);
        return box->text();
    }

    RuleState &rule = ruleState();
    std::unique_ptr<Window> window =
        toolkit.createWindow({.name = u"frm",
                              .caption = u"",
                              .controls = {{.kind = ControlKind::richTextBox, .name = u"rt"}},
                              .layout = place(u"rt")});
    RichTextBox *box = &window->get<RichTextBox>(u"rt");
};

const std::u16string head = u"Apply this Rule after the message arrives";

TEST_F(RuleDescription, ADisabledRuleSaysSo) {
    rule.intRuleActive = 0;
    EXPECT_EQ(described(), u"This Rule is disabled");
    rule.intRuleActive = 2;
    EXPECT_EQ(described(), u"This Rule is disabled");
}

TEST_F(RuleDescription, ARuleForAllMessagesHasOneConditionLineAndItsActions) {
    rule.blnAllMessages = true;
    rule.strPeople = u"1";
    EXPECT_EQ(described(), head + u"\r\nFor ALL Messages");
    rule.varDelete = u"YES";
    EXPECT_EQ(described(), head + u"\r\nFor ALL Messages\r\nThen Delete it");
}

TEST_F(RuleDescription, ARuleWithActionsAloneGoesStraightToThem) {
    rule.strIgnoreFurtherRules = u"YES";
    EXPECT_EQ(described(), head + u"\r\nThen do not process any more Rules");
}

TEST_F(RuleDescription, TheWholeExampleReadsLineForLine) {
    rule = exampleRule();
    rule.intRuleActive = 1;
    EXPECT_EQ(described(),
              head +
                  u"\r\nIf the message is from 9811100011 or 9811100022"
                  u"\r\nand the message does not contain the words  (as SMS Command) STOP and HALT"
                  u"\r\nand the message is received between 01/03/2024 09:00:00 Hrs. to 31/03/2024 "
                  u"18:30:00 Hrs."
                  u"\r\nThen distribute the message to Asha and Boss"
                  u"\r\nand send Reply 'Received' to the Sender through Account 'Main'"
                  u"\r\nand send Alert 'New message' through the Account 'Main' to 9811100033 and "
                  u"9811100044"
                  u"\r\nand do not process any more Rules");
}

TEST_F(RuleDescription, TheLeadChangesAfterTheFirstConditionOfAnyKind) {
    rule.strIgnoreIfService = u"YES";
    rule.varAccounts = u"2;4";
    rule.intAccountNot = 1;
    rule.intAccountAll = 1;
    EXPECT_EQ(described(), head + u"\r\nIf the message is not a Service message "
                                  u"\r\nand the message is not received through Main and Padded");
}

TEST_F(RuleDescription, EveryLineIsLeadWhenItIsTheFirst) {
    rule.strDateTime = u"20240301 09:00:00,20240331 18:30:00";
    rule.varDelete = u"YES";
    EXPECT_EQ(described(), head + u"\r\nIf the message is received between 01/03/2024 09:00:00 "
                                  u"Hrs. to 31/03/2024 18:30:00 Hrs.\r\nThen Delete it");
}

TEST_F(RuleDescription, ValuesAreBlueTheCommandRemarkRedAndAllElseBlack) {
    rule.strWords = u"STOP";
    rule.intAsCommand = 1;
    rule.strReplyText = u"Hi";
    rule.strReplyAccount = u"2";
    BuildRuleDescription(*box);
    const std::vector<TextRun> expected{
        {head + u"\r\nIf the message contains the words ", colour::black},
        {u" (as SMS Command) ", colour::red},
        {u"STOP", colour::blue},
        {u"\r\nThen send Reply ", colour::black},
        {u"'Hi'", colour::blue},
        {u" to the Sender through Account ", colour::black},
        {u"'Main'", colour::blue},
    };
    EXPECT_EQ(box->runs(), expected);
}

TEST_F(RuleDescription, ARuleOfEverythingHasEveryLineAndEveryRun) {
    rule.strIgnoreIfService = rule.varDelete = rule.strIgnoreFurtherRules = u"YES";
    rule.strPeople = u"98;99";
    rule.varAccounts = u"2;4";
    rule.strWords = u"STOP;HALT";
    rule.intPeopleNot = rule.intAccountAll = rule.intAsCommand = 1;
    rule.strDateTime = u"20240301 09:00:00,20240331 18:30:00";
    rule.strDistribution = u"3;7";
    rule.strReplyText = u"Hi";
    rule.strReplyAccount = u"4";
    rule.strAlertText = u"Look";
    rule.strAlertAccount = u"2";
    rule.strAlertRecipients = u"96;97";
    BuildRuleDescription(*box);
    const std::vector<TextRun> expected{
        {head + u"\r\nIf the message is not a Service message "
                u"\r\nand the message is not from ",
         colour::black},
        {u"98 or 99", colour::blue},
        {u"\r\nand the message is received through ", colour::black},
        {u"Main and Padded", colour::blue},
        {u"\r\nand the message contains the words ", colour::black},
        {u" (as SMS Command) ", colour::red},
        {u"STOP or HALT", colour::blue},
        {u"\r\nand the message is received between ", colour::black},
        {u"01/03/2024 09:00:00 Hrs. to 31/03/2024 18:30:00 Hrs.", colour::blue},
        {u"\r\nThen distribute the message to ", colour::black},
        {u"Asha and Boss", colour::blue},
        {u"\r\nand send Reply ", colour::black},
        {u"'Hi'", colour::blue},
        {u" to the Sender through Account ", colour::black},
        {u"'Padded'", colour::blue},
        {u"\r\nand send Alert ", colour::black},
        {u"'Look'", colour::blue},
        {u" through the Account ", colour::black},
        {u"'Main'", colour::blue},
        {u" to ", colour::black},
        {u"96 and 97", colour::blue},
        {u"\r\nand Delete it\r\nand do not process any more Rules", colour::black},
    };
    EXPECT_EQ(box->runs(), expected);
    expectLog({});
}

TEST_F(RuleDescription, WhatStoodInTheBoxIsReplaced) {
    box->setRuns({{u"old", colour::red}});
    EXPECT_EQ(described(), head);
    EXPECT_EQ(box->runs(), (std::vector<TextRun>{{head, colour::black}}));
}

TEST_F(RuleDescription, NeedsNoTextBox) {
    rule.varAccounts = u"2";
    const std::vector<TextRun> expected{
        {head + u"\r\nIf the message is received through ", colour::black},
        {u"Main", colour::blue}};
    EXPECT_EQ(describe(rule).runs, expected);
    EXPECT_FALSE(describe(rule).error);
    EXPECT_EQ(BuildRuleDescription(), expected);
}

TEST_F(RuleDescription, DescribesTheGivenRuleNotTheThreads) {
    RuleState other;
    other.strPeople = u"98;99";
    other.strWords = u"STOP";
    other.varAccounts = u"2";
    other.strDistribution = u"3";
    other.strAlertRecipients = u"96";
    other.strAlertAccount = u"2";
    other.strDateTime = u"20240301 ,20240302 ";
    rule = other;
    const std::vector<TextRun> expected = describe(rule).runs;
    rule = RuleState();
    EXPECT_EQ(describe(other).runs, expected);
    EXPECT_EQ(BuildRuleDescription(),
              (std::vector<TextRun>{{u"This Rule is disabled", colour::black}}));
}

TEST_F(RuleDescription, EndsLinesInCrLfWhateverTheUserTyped) {
    rule.strReplyText = u"a\rb\nc\r";
    rule.strReplyAccount = u"2";
    EXPECT_EQ(describe(rule).runs.at(1).text, u"'a\r\nb\r\nc\r\n'");
}

TEST_F(RuleDescription, HoldsWhatWasWrittenBeforeAnErrorAndTheError) {
    rule.strReplyText = u"Hi";
    rule.strReplyAccount = u"two";
    const std::vector<TextRun> expected{{head + u"\r\nThen send Reply ", colour::black},
                                        {u"'Hi'", colour::blue},
                                        {u" to the Sender through Account ", colour::black}};
    const Description description = describe(rule);
    EXPECT_EQ(description.runs, expected);
    EXPECT_TRUE(description.error);
    expectLog({});
    EXPECT_EQ(BuildRuleDescription(), expected);
    expectLog({u"Sub: BuildRuleDescription, Module: General"});
    EXPECT_EQ(logged.at(0).number, error_number::typeMismatch);
}

TEST_F(RuleDescription, PeopleAreJoinedByTheirModifier) {
    rule.strPeople = u"9811100011;9811100022";
    EXPECT_EQ(BuildPeopleList(), u"9811100011 or 9811100022");
    rule.intPeopleAll = 1;
    EXPECT_EQ(BuildPeopleList(), u"9811100011 and 9811100022");
}

TEST_F(RuleDescription, AnEmptyItemShowsAsAnEmptyName) {
    rule.strPeople = u"1;;2";
    EXPECT_EQ(BuildPeopleList(), u"1 or  or 2");
    rule.strWords = u";x";
    EXPECT_EQ(BuildWordList(), u" or x");
    rule.strAlertRecipients = u"1;;2";
    EXPECT_EQ(BuildAlertList(), u"1 and  and 2");
}

TEST_F(RuleDescription, AnEmptyListIsEmptyWithoutAnError) {
    EXPECT_EQ(BuildPeopleList(), u"");
    EXPECT_EQ(BuildAccountList(), u"");
    EXPECT_EQ(BuildWordList(), u"");
    EXPECT_EQ(BuildDistributionList(), u"");
    EXPECT_EQ(BuildAlertList(), u"");
    EXPECT_EQ(BuildDateTimeList(), u"");
}

TEST_F(RuleDescription, AnIdThatIsNoNumberEndsItsListWithoutADanglingSeparator) {
    rule.varAccounts = u"2;x;4";
    EXPECT_EQ(BuildAccountList(), u"Main");
    rule.strDistribution = u"3;;7";
    EXPECT_EQ(BuildDistributionList(), u"Asha");
    rule.varAccounts = u"99999999999";
    EXPECT_EQ(BuildAccountList(), u"");
    expectLog({u"Sub: BuildAccountList, Module: General",
               u"Sub: BuildDistributionList, Module: General",
               u"Sub: BuildAccountList, Module: General"});
    EXPECT_EQ(logged.at(0).number, error_number::typeMismatch);
    EXPECT_EQ(logged.at(2).number, error_number::overflow);
}

TEST_F(RuleDescription, AListThatFailsEndsItsOwnLineOnly) {
    rule.varAccounts = u"2;x";
    rule.strWords = u"STOP";
    EXPECT_EQ(described(), head + u"\r\nIf the message is received through Main"
                                  u"\r\nand the message contains the words STOP");
    expectLog({u"Sub: BuildAccountList, Module: General"});
}

TEST_F(RuleDescription, AnAccountThatIsGoneShowsAnEmptyName) {
    rule.strReplyText = u"Hi";
    rule.strReplyAccount = u"99";
    EXPECT_EQ(described(), head + u"\r\nThen send Reply 'Hi' to the Sender through Account ''");
}

TEST_F(RuleDescription, AReplyAccountThatIsNoNumberStopsTheDescription) {
    rule.strReplyText = u"Hi";
    rule.strReplyAccount = u"two";
    rule.varDelete = u"YES";
    EXPECT_EQ(described(), head + u"\r\nThen send Reply 'Hi' to the Sender through Account ");
    expectLog({u"Sub: BuildRuleDescription, Module: General"});
}

TEST_F(RuleDescription, ARangeWithoutACommaEndsTheDescriptionAtItsLine) {
    rule.strDateTime = u"20240301 09:00:00";
    EXPECT_EQ(described(), head + u"\r\nIf the message is received between ");
    expectLog({u"Sub: BuildDateTimeList, Module: General"});
}

TEST_F(RuleDescription, ADateMustExist) {
    const char16_t *ranges[] = {u"20240230 09:00:00,20240331 18:30:00",
                                u"20240301 09:00:00,20230229 18:30:00",
                                u"20241301 09:00:00,20240331 18:30:00",
                                u"2024030x 09:00:00,20240331 18:30:00",
                                u",20240331 18:30:00",
                                u"20240301 09:00:00,",
                                u"00000101 09:00:00,20240331 18:30:00",
                                u"19000229 09:00:00,20240331 18:30:00",
                                u"20240431 09:00:00,20240531 18:30:00",
                                u"20240001 09:00:00,20240331 18:30:00",
                                u"20240300 09:00:00,20240331 18:30:00",
                                u"2024030/ 09:00:00,20240331 18:30:00",
                                u"2024030: 09:00:00,20240331 18:30:00",
                                u"2024030,20240331 18:30:00",
                                u"+2240301 09:00:00,20240331 18:30:00"};
    for (const auto *const range : ranges) {
        rule.strDateTime = range;
        EXPECT_EQ(BuildDateTimeList(), u"") << utf8(range);
        expectLog({u"Sub: BuildDateTimeList, Module: General"});
    }
}

TEST_F(RuleDescription, ADateIsShownFromItsFirstEightCharacters) {
    struct Shown {
        const char16_t *stored, *shown;
    };
    for (const auto &[stored, shown] : {
             Shown{u"20000229 00:00:00", u"29/02/2000 00:00:00 Hrs."},
             {u"20240229 00:00:00", u"29/02/2024 00:00:00 Hrs."},
             {u"00010101 00:00:00", u"01/01/0001 00:00:00 Hrs."},
             {u"99991231 23:59:59", u"31/12/9999 23:59:59 Hrs."},
             {u"202403019 09:00:00", u"01/03/2024  09:00:00 Hrs."},
             {u"20240301T09:00:00", u"01/03/2024 09:00:00 Hrs."},
             {u"20240301 ", u"01/03/2024  Hrs."},
             {u"20240301", u"01/03/2024  Hrs."},
         }) {
        const std::u16string moment = stored;
        rule.strDateTime = moment + u"," + moment;
        EXPECT_EQ(BuildDateTimeList(), shown + std::u16string(u" to ") + shown);
    }
    expectLog({});
}

TEST_F(RuleDescription, ALeapDayIsADateAndAnEmptyTimeShowsAsNothing) {
    rule.strDateTime = u"20240229 ,20240229 23:59:59";
    EXPECT_EQ(BuildDateTimeList(), u"29/02/2024  Hrs. to 29/02/2024 23:59:59 Hrs.");
}

TEST_F(RuleDescription, YesIsComparedExactly) {
    rule.varDelete = u"NO";
    rule.strIgnoreFurtherRules = u"";
    rule.strIgnoreIfService = u"yes";
    EXPECT_EQ(described(), head);
}

} // namespace
} // namespace kvex::test
