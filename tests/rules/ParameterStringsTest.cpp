#include "rules/ParameterStrings.h"

#include "platform/Error.h"
#include "platform/Text.h"
#include "tests/rules/ExampleRule.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

namespace kvex {
namespace {

RuleState readBack(std::u16string_view queryParam, std::u16string_view actionParam = u"") {
    RuleState rule;
    readQueryParam(queryParam, rule);
    readActionParam(actionParam, rule);
    return rule;
}

std::int32_t readingError(std::u16string_view queryParam, std::u16string_view actionParam = u"") {
    return test::errorNumber([&] { return readBack(queryParam, actionParam); });
}

constexpr std::u16string_view exampleQuery =
    u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>9811100011;9811100022</PEOPLE>"
    u"<WORD><NOT><ALL><ASCOMMAND>STOP;HALT</WORD>"
    u"<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>";
constexpr std::u16string_view exampleAction =
    u"<DIST>3;7</DIST><REPLY>Received;2</REPLY>"
    u"<ALERT>New message;2;9811100033;9811100044</ALERT><DELETE>NO</DELETE>"
    u"<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>";

TEST(ParameterStrings, ARuleForAllMessagesIsThatTagAlone) {
    RuleState rule = test::exampleRule();
    rule.blnAllMessages = true;
    rule.strIgnoreIfService = u"YES";
    EXPECT_EQ(buildQueryParam(rule), u"<ALLMESSAGES>");
}

TEST(ParameterStrings, IgnoringServiceMessagesAloneIsThatElementAlone) {
    RuleState rule;
    rule.strIgnoreIfService = u"YES";
    EXPECT_EQ(buildQueryParam(rule), u"<IGNOREIFSERVICE>YES</IGNOREIFSERVICE>");
}

TEST(ParameterStrings, YesIsComparedWithItsCase) {
    RuleState rule;
    rule.strIgnoreIfService = u"Yes";
    rule.varDelete = u"yes";
    rule.strIgnoreFurtherRules = u"YES ";
    EXPECT_EQ(buildQueryParam(rule), u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE>");
    EXPECT_EQ(buildActionParam(rule),
              u"<DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
}

TEST(ParameterStrings, TheWholeExampleIsWrittenToTheCharacter) {
    EXPECT_EQ(buildQueryParam(test::exampleRule()), exampleQuery);
    EXPECT_EQ(buildActionParam(test::exampleRule()), exampleAction);
}

TEST(ParameterStrings, TheWholeExampleIsReadBack) {
    const RuleState rule = readBack(exampleQuery, exampleAction);
    EXPECT_EQ(buildQueryParam(rule), exampleQuery);
    EXPECT_EQ(buildActionParam(rule), exampleAction);
    EXPECT_EQ(rule.strPeople, u"9811100011;9811100022");
    EXPECT_EQ(rule.intPeopleNot, 0);
    EXPECT_EQ(rule.intPeopleAll, 0);
    EXPECT_EQ(rule.strDateTime, u"20240301 09:00:00,20240331 18:30:00");
    EXPECT_EQ(rule.strAlertRecipients, u"9811100033;9811100044");
}

TEST(ParameterStrings, EveryPairOfModifiersIsWrittenAndReadForEveryList) {
    for (const std::int16_t negated : {std::int16_t{0}, std::int16_t{1}}) {
        for (const std::int16_t all : {std::int16_t{0}, std::int16_t{1}}) {
            RuleState rule;
            rule.strPeople = rule.varAccounts = rule.strWords = u"1";
            rule.intPeopleNot = rule.intAccountNot = rule.intWordsNot = negated;
            rule.intPeopleAll = rule.intAccountAll = rule.intWordsAll = all;
            const std::u16string modifiers = std::u16string(negated == 1 ? u"<NOT>" : u"<CON>") +
                                             (all == 1 ? u"<ALL>" : u"<ANY>");
            const std::u16string written = buildQueryParam(rule);
            EXPECT_EQ(written, u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE>" + modifiers +
                                   u"1</PEOPLE><ACCOUNT>" + modifiers + u"1</ACCOUNT><WORD>" +
                                   modifiers + u"1</WORD>");
            const RuleState read = readBack(written);
            EXPECT_EQ(read.intPeopleNot, negated);
            EXPECT_EQ(read.intPeopleAll, all);
            EXPECT_EQ(read.intAccountNot, negated);
            EXPECT_EQ(read.intAccountAll, all);
            EXPECT_EQ(read.intWordsNot, negated);
            EXPECT_EQ(read.intWordsAll, all);
            EXPECT_EQ(read.intAsCommand, 0);
        }
    }
}

TEST(ParameterStrings, ListsOfBlanksAreNotWrittenAndOthersAreTrimmed) {
    RuleState rule;
    rule.strPeople = u"  ";
    rule.varAccounts = u" 3;7 ";
    rule.strDistribution = u" ";
    rule.strReplyText = u" Hello ";
    rule.strReplyAccount = u" 2 ";
    EXPECT_EQ(buildQueryParam(rule),
              u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><ACCOUNT><CON><ANY>3;7</ACCOUNT>");
    EXPECT_EQ(buildActionParam(rule), u"<REPLY>Hello;2</REPLY><DELETE>NO</DELETE>"
                                      u"<IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
}

TEST(ParameterStrings, OnlyBlanksAreTrimmed) {
    RuleState rule;
    rule.strWords = u"\t\u00A0STOP\r\n";
    EXPECT_EQ(buildQueryParam(rule), u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE>"
                                     u"<WORD><CON><ANY>\t\u00A0STOP\r\n</WORD>");
}

TEST(ParameterStrings, TheAlertIsWrittenWhenItHasRecipientsAndTheReplyWhenItHasText) {
    RuleState rule;
    rule.strAlertText = u"text";
    rule.strAlertAccount = u"1";
    rule.strReplyAccount = u"1";
    EXPECT_EQ(buildActionParam(rule),
              u"<DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
    rule.strAlertText.clear();
    rule.strAlertAccount.clear();
    rule.strAlertRecipients = u"98";
    EXPECT_EQ(buildActionParam(rule), u"<ALERT>;;98</ALERT><DELETE>NO</DELETE>"
                                      u"<IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
}

TEST(ParameterStrings, YesAndNoOfNothingButBlanksAreNotWritten) {
    RuleState rule;
    rule.varDelete = u" ";
    rule.strIgnoreFurtherRules = u"";
    EXPECT_EQ(buildActionParam(rule), u"");
}

TEST(ParameterStrings, AReplyTextIsReadUpToItsFirstSemicolon) {
    const RuleState rule = readBack(u"", u"<REPLY>one;two;2</REPLY>");
    EXPECT_EQ(rule.strReplyText, u"one");
    EXPECT_EQ(rule.strReplyAccount, u"two;2");
}

TEST(ParameterStrings, AReplyWithoutSemicolonIsAllText) {
    const RuleState rule = readBack(u"", u"<REPLY> Received </REPLY>");
    EXPECT_EQ(rule.strReplyText, u"Received");
    EXPECT_EQ(rule.strReplyAccount, u"");
}

TEST(ParameterStrings, AReplyLosesTheBlanksAroundItAndOneTrailingSemicolon) {
    const RuleState rule = readBack(u"", u"<REPLY> Received;2 </REPLY>");
    EXPECT_EQ(rule.strReplyText, u"Received");
    EXPECT_EQ(rule.strReplyAccount, u"2");
    EXPECT_EQ(readBack(u"", u"<REPLY>Received;2;</REPLY>").strReplyAccount, u"2");
    EXPECT_EQ(readBack(u"", u"<REPLY>Received;2;;</REPLY>").strReplyAccount, u"2;");
}

TEST(ParameterStrings, AnAlertTextWithASemicolonShiftsWhatFollows) {
    const RuleState rule = readBack(u"", u"<ALERT>one;two;2;98;99</ALERT>");
    EXPECT_EQ(rule.strAlertText, u"one");
    EXPECT_EQ(rule.strAlertAccount, u"two");
    EXPECT_EQ(rule.strAlertRecipients, u"2;98;99");
}

TEST(ParameterStrings, AnAlertWithATrailingSemicolonLosesIt) {
    const RuleState rule = readBack(u"", u"<ALERT>New message;2;9811100033;9811100044;</ALERT>");
    EXPECT_EQ(rule.strAlertText, u"New message");
    EXPECT_EQ(rule.strAlertAccount, u"2");
    EXPECT_EQ(rule.strAlertRecipients, u"9811100033;9811100044");
}

TEST(ParameterStrings, AnAlertOfFewerPartsFillsThemInOrder) {
    RuleState rule = readBack(u"", u"<ALERT>text</ALERT>");
    EXPECT_EQ(rule.strAlertText, u"text");
    EXPECT_EQ(rule.strAlertAccount, u"");
    EXPECT_EQ(rule.strAlertRecipients, u"");
    rule = readBack(u"", u"<ALERT>text;2</ALERT>");
    EXPECT_EQ(rule.strAlertText, u"text");
    EXPECT_EQ(rule.strAlertAccount, u"2");
    EXPECT_EQ(rule.strAlertRecipients, u"");
}

TEST(ParameterStrings, YesAndNoLoseBlanksAndOneSemicolonWithTheActionsAlone) {
    const RuleState rule =
        readBack(u"<IGNOREIFSERVICE> YES</IGNOREIFSERVICE>",
                 u"<DELETE> YES; </DELETE><IGNOREFURTHERRULES> YES;</IGNOREFURTHERRULES>");
    EXPECT_EQ(rule.strIgnoreIfService, u" YES");
    EXPECT_EQ(rule.varDelete, u"YES");
    EXPECT_EQ(rule.strIgnoreFurtherRules, u"YES");
}

TEST(ParameterStrings, WordsThatLookLikeModifiersAreTakenForThem) {
    RuleState rule = readBack(u"<WORD><CON><ANY><ASCOMMAND>;x</WORD>");
    EXPECT_EQ(rule.intAsCommand, 1);
    EXPECT_EQ(rule.strWords, u";x");
    rule = readBack(u"<WORD><CON><ANY><ALL>here</WORD>");
    EXPECT_EQ(rule.intWordsAll, 1);
    EXPECT_EQ(rule.strWords, u"<ALL>here");
}

TEST(ParameterStrings, TheFirstTenCharactersAreDroppedWhateverTheyAre) {
    EXPECT_EQ(readBack(u"<PEOPLE>0123456789X</PEOPLE>").strPeople, u"X");
    EXPECT_EQ(readBack(u"<PEOPLE>short</PEOPLE>").strPeople, u"");
    EXPECT_EQ(readBack(u"<ACCOUNT></ACCOUNT>").varAccounts, u"");
}

TEST(ParameterStrings, AnEmptyListKeepsItsFlagsOnlyWhenItHasModifiers) {
    RuleState rule;
    rule.intPeopleNot = 1;
    readQueryParam(u"<PEOPLE></PEOPLE>", rule);
    EXPECT_EQ(rule.intPeopleNot, 1);
    rule = readBack(u"<PEOPLE><NOT><ALL></PEOPLE><WORD><NOT><ALL></WORD>");
    EXPECT_EQ(rule.strPeople, u"");
    EXPECT_EQ(rule.intPeopleNot, 1);
    EXPECT_EQ(rule.intPeopleAll, 1);
    EXPECT_EQ(rule.strWords, u"");
    EXPECT_EQ(rule.intWordsNot, 1);
}

TEST(ParameterStrings, ATrailingSemicolonOfAListIsDroppedOnce) {
    const RuleState rule = readBack(u"<PEOPLE><CON><ANY>9811100011;</PEOPLE>");
    EXPECT_EQ(rule.strPeople, u"9811100011");
    EXPECT_EQ(rule.intPeopleNot, 0);
    EXPECT_EQ(rule.intPeopleAll, 0);
    EXPECT_EQ(readBack(u"<PEOPLE><CON><ANY>1;;</PEOPLE>").strPeople, u"1;");
}

TEST(ParameterStrings, WordsAreReadWithTheirMarks) {
    RuleState rule = readBack(u"<WORD><NOT><ALL><ASCOMMAND>STOP;HALT</WORD>");
    EXPECT_EQ(rule.strWords, u"STOP;HALT");
    EXPECT_EQ(rule.intWordsNot, 1);
    EXPECT_EQ(rule.intWordsAll, 1);
    EXPECT_EQ(rule.intAsCommand, 1);
    rule = readBack(u"<WORD><CON><ANY>STOP</WORD>");
    EXPECT_EQ(rule.strWords, u"STOP");
    EXPECT_EQ(rule.intAsCommand, 0);
}

TEST(ParameterStrings, BlanksAroundAConditionsListAreKept) {
    EXPECT_EQ(readBack(u"<PEOPLE><CON><ANY> 1;2 </PEOPLE>").strPeople, u" 1;2 ");
    EXPECT_EQ(readBack(u"<DATETIME> x </DATETIME>").strDateTime, u" x ");
    EXPECT_EQ(readBack(u"", u"<DIST> 3;7 </DIST>").strDistribution, u" 3;7 ");
}

TEST(ParameterStrings, AllMessagesAnywhereSilencesEveryCondition) {
    const RuleState rule = readBack(
        u"<PEOPLE><CON><ANY>1</PEOPLE><IGNOREIFSERVICE>YES</IGNOREIFSERVICE><ALLMESSAGES>");
    EXPECT_TRUE(rule.blnAllMessages);
    EXPECT_EQ(rule.strPeople, u"");
    EXPECT_EQ(rule.strIgnoreIfService, u"NO");
}

TEST(ParameterStrings, TagsAreFoundInAnyOrderAndTheFirstCounts) {
    const RuleState rule = readBack(u"<WORD><CON><ANY>w</WORD>junk<PEOPLE><CON><ANY>1</PEOPLE>"
                                    u"<PEOPLE><CON><ANY>2</PEOPLE>");
    EXPECT_EQ(rule.strWords, u"w");
    EXPECT_EQ(rule.strPeople, u"1");
}

TEST(ParameterStrings, TagsAreFoundWithTheirCaseOnly) {
    EXPECT_EQ(readBack(u"<people><CON><ANY>1</people>").strPeople, u"");
}

TEST(ParameterStrings, AnOpeningTagWithoutItsClosingOneIsAnInvalidCall) {
    EXPECT_EQ(readingError(u"<PEOPLE><CON><ANY>1"), error_number::invalidCall);
    EXPECT_EQ(readingError(u"</PEOPLE><PEOPLE><CON><ANY>1"), error_number::invalidCall);
    EXPECT_EQ(readingError(u"", u"<DELETE>YES"), error_number::invalidCall);
}

TEST(ParameterStrings, WhatWasReadBeforeAFailureStays) {
    RuleState rule;
    EXPECT_EQ(
        test::errorNumber([&] { readQueryParam(u"<PEOPLE><CON><ANY>1</PEOPLE><WORD>x", rule); }),
        error_number::invalidCall);
    EXPECT_EQ(rule.strPeople, u"1");
}

TEST(ParameterStrings, APositionBeyondSixteenBitsOverflows) {
    const std::u16string long32768(32768, u'9');
    EXPECT_EQ(readingError(u"<PEOPLE><CON><ANY>" + long32768 + u"</PEOPLE>"),
              error_number::overflow);
    EXPECT_EQ(readingError(long32768 + u"<PEOPLE><CON><ANY>1</PEOPLE>"), error_number::overflow);
}

TEST(ParameterStrings, TheLastPositionThatSixteenBitsHoldIsRead) {
    // The closing tag stands at position 32767.
    const std::u16string digits(32767 - 1 - 18, u'9');
    const std::u16string fits = u"<PEOPLE><CON><ANY>" + digits + u"</PEOPLE>";
    EXPECT_EQ(readBack(fits).strPeople, digits);
    EXPECT_EQ(readingError(u" " + fits), error_number::overflow);
}

TEST(ParameterStrings, ALongFieldWhoseTagsStandEarlyIsRead) {
    const std::u16string tail(40000, u'x');
    EXPECT_EQ(readBack(u"<PEOPLE><CON><ANY>1</PEOPLE>" + tail).strPeople, u"1");
    EXPECT_TRUE(readBack(tail + u"<ALLMESSAGES>").blnAllMessages);
}

TEST(ParameterStrings, PositionsCountUtf16Units) {
    std::u16string emoji;
    while (emoji.size() + 18 + 1 < 32767) {
        emoji += u"\U0001F4F1";
    }
    EXPECT_EQ(readingError(u"<WORD><CON><ANY>" + emoji + u"</WORD>"), 0);
    EXPECT_EQ(readingError(u"<WORD><CON><ANY>" + emoji + u"\U0001F4F1\U0001F4F1</WORD>"),
              error_number::overflow);
}

TEST(ParameterStrings, EveryListSurvivesWritingAndReadingInEveryScript) {
    RuleState rule;
    rule.strWords = u"रुको;STOP;\U0001F6D1";
    rule.strReplyText = u"धन्यवाद \U0001F64F";
    rule.strReplyAccount = u"2";
    const RuleState read = readBack(buildQueryParam(rule), buildActionParam(rule));
    EXPECT_EQ(read.strWords, rule.strWords);
    EXPECT_EQ(read.strReplyText, rule.strReplyText);
}

} // namespace
} // namespace kvex
