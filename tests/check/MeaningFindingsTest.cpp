#include "tests/check/CheckFixture.h"

namespace kvex::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using MeaningFindings = CheckTest;

TEST_F(MeaningFindings, ADateMustBeTwoWholeMoments) {
    for (const char16_t *range : {
             u"20240301 09:00:00,20240331 18:30:00",
             u"20240301 09:00:00",
             u"20240301 09:00:00,",
             u"20240301 ,20240331 18:30:00",
             u"20240230 09:00:00,20240331 18:30:00",
             u"20240301 24:00:00,20240331 18:30:00",
             u"20240301 09:60:00,20240331 18:30:00",
             u"20240301 09:00:60,20240331 18:30:00",
             u"20240301 9:00:00,20240331 18:30:00",
             u"20240301 09:00:00,20240331 18:30:00,",
             u"20240301T09:00:00,20240331 18:30:00",
             u"20240301 09.00:00,20240331 18:30:00",
             u"20240229 00:00:00,20240331 23:59:59",
         }) {
        addConditions(u"<DATETIME>" + std::u16string(range) + u"</DATETIME>");
    }
    EXPECT_THAT(codes(), ElementsAre("2 malformed-date", "3 malformed-date", "4 malformed-date",
                                     "5 malformed-date", "6 malformed-date", "7 malformed-date",
                                     "8 malformed-date", "9 malformed-date", "10 malformed-date",
                                     "11 malformed-date", "12 malformed-date"));
}

TEST_F(MeaningFindings, ARangeMustNotEndBeforeItBegins) {
    addConditions(u"<DATETIME>20240401 09:00:00,20240401 08:59:59</DATETIME>");
    addConditions(u"<DATETIME>20240401 09:00:00,20240401 09:00:00</DATETIME>");
    EXPECT_THAT(codes(), ElementsAre("1 reversed-dates"));
}

TEST_F(MeaningFindings, ARangeIsPastWhenItsEndIs) {
    addConditions(u"<DATETIME>20240301 09:00:00,20240315 11:59:59</DATETIME>");
    addConditions(u"<DATETIME>20240301 09:00:00,20240315 12:00:00</DATETIME>");
    EXPECT_THAT(codes(), ElementsAre("1 past-dates"));
    EXPECT_EQ(reason("past-dates"), "Its date and time ended on 20240315 11:59:59. It applies to "
                                    "no message any more.");
}

TEST_F(MeaningFindings, NamesThatDifferOnlyInCaseAreTheSame) {
    addConditions(u"<WORD><CON><ANY>a</WORD>").name = u"Überall";
    addConditions(u"<WORD><CON><ANY>b</WORD>").name = u"Überal";
    addConditions(u"<WORD><CON><ANY>c</WORD>").name = u"ÜBERALL";
    EXPECT_THAT(codes(), ElementsAre("3 same-name"));
    EXPECT_EQ(reason("same-name"), "Its name is the same as that of rule 1 \"Überall\", at most "
                                   "with other capital letters.");
    EXPECT_EQ(remark("same-name").other, 0U);
}

TEST_F(MeaningFindings, ARuleBehindOneForAllMessagesThatStopsNeverRuns) {
    addConditions(u"<WORD><CON><ANY>a</WORD>");
    add(u"<ALLMESSAGES>", actions(u"<DIST>3</DIST>", u"NO", u"YES"));
    addConditions(u"<WORD><CON><ANY>a</WORD>");
    addConditions(u"<WORD><CON><ANY>a</WORD>").isActive = false;
    add(u"<ALLMESSAGES>", harmlessAction);
    EXPECT_THAT(codes(), ElementsAre("3 never-runs", "5 never-runs"));
    rows.rules.resize(3);
    EXPECT_EQ(reason("never-runs"),
              "It never runs. The rule 2 \"Rule 2\" stands before it, applies "
              "to all messages and lets no other rule follow.");
    EXPECT_EQ(remark("never-runs").other, 1U);
}

TEST_F(MeaningFindings, ARuleBehindOneThatDeletesAllMessagesNeverRuns) {
    add(u"<ALLMESSAGES>", actions(u"", u"YES", u"NO"));
    addConditions(u"<WORD><CON><ANY>a</WORD>");
    EXPECT_EQ(reason("never-runs"),
              "It never runs. The rule 1 \"Rule 1\" stands before it, applies "
              "to all messages and deletes them.");
}

TEST_F(MeaningFindings, ARuleBehindOneThatAppliesToItsMessagesAndStopsNeverRuns) {
    add(query(u"<WORD><CON><ANY>a;b</WORD>"), actions(u"<DIST>3</DIST>", u"NO", u"YES"));
    addConditions(u"<PEOPLE><CON><ANY>981</PEOPLE><WORD><CON><ANY>b</WORD>");
    addConditions(u"<WORD><CON><ANY>b;c</WORD>");
    EXPECT_THAT(codes(), ElementsAre("2 never-runs"));
    EXPECT_EQ(reason("never-runs"),
              "It never runs. The rule 1 \"Rule 1\" stands before it, applies "
              "to all of its messages and lets no other rule follow.");
}

TEST_F(MeaningFindings, ARuleRunsBehindOneThatTakesNothing) {
    const std::u16string stop = actions(u"<DIST>3</DIST>", u"NO", u"YES");
    add(u"<ALLMESSAGES>", stop).isActive = false;
    add(u"<ALLMESSAGES>", harmlessAction);
    add(query(u"<WORD><CON><ANY>a</WORD>"), actions(u"<DIST>3</DIST>", u"YES", u"NO"));
    addConditions(u"<WORD><CON><ANY>a</WORD>");
    add(query(u"<WORD><CON><ANY>a</WORD>"), stop).priority = u"5";
    addConditions(u"<WORD><CON><ANY>a</WORD>").priority = u"5";
    EXPECT_THAT(codes(), IsEmpty());
}

TEST_F(MeaningFindings, ARuleWhoseConditionsAreInDoubtTakesNothing) {
    for (const std::u16string_view conditions : {
             u"",
             u"<PEOPLE><CON><ANY></PEOPLE>",
             u"<WORD><CON><ANY>a</WORD><PEOPLE><CON><ANY></PEOPLE>",
             u"<WORD>a</WORD>",
             u"<WORD><CON><ANY>a</WORD><WORD><CON><ANY>b</WORD>",
             u"<WORD><CON><ANY>a</WORD><DATETIME>20990101</DATETIME>",
             u"<WORD><CON><ANY>a</WORD><ACCOUNT><CON><ANY>x</ACCOUNT>",
         }) {
        rows.rules.clear();
        add(query(std::u16string(conditions)), actions(u"<DIST>3</DIST>", u"NO", u"YES"));
        addConditions(u"<ACCOUNT><CON><ANY>1</ACCOUNT><WORD><CON><ANY>a</WORD>"
                      u"<DATETIME>20990101 00:00:00,20990102 00:00:00</DATETIME>");
        EXPECT_THAT(codes(), testing::Not(testing::Contains("2 never-runs"))) << toUtf8(conditions);
    }
    rows.rules[0].queryParam = u"<IGNOREIFSERVICE>Yes</IGNOREIFSERVICE><WORD><CON><ANY>a</WORD>";
    EXPECT_THAT(codes(), testing::Not(testing::Contains("2 never-runs")));
    rows.rules[0].queryParam = query(u"<WORD><CON><ANY>a</WORD>");
    EXPECT_THAT(codes(), ElementsAre("2 never-runs"));
}

TEST_F(MeaningFindings, AReplyToAllMessagesCanLoop) {
    add(u"<ALLMESSAGES>", actions(u"<REPLY>a;2</REPLY>"));
    add(u"<IGNOREIFSERVICE>YES</IGNOREIFSERVICE>", actions(u"<REPLY>a;2</REPLY>"));
    add(u"<ALLMESSAGES>", actions(u"<ALERT>a;2;981</ALERT>"));
    EXPECT_THAT(codes(), ElementsAre("1 reply-to-all"));
}

TEST_F(MeaningFindings, ASenderGetsTheAlert) {
    const std::u16string alert = actions(u"<ALERT>a;2;982;983</ALERT>");
    add(query(u"<PEOPLE><CON><ANY>981;982</PEOPLE>"), alert);
    add(query(u"<PEOPLE><NOT><ANY>981;982</PEOPLE>"), alert);
    add(query(u"<PEOPLE><CON><ANY>981;98</PEOPLE>"), alert);
    EXPECT_THAT(codes(), ElementsAre("1 alert-to-sender"));
    EXPECT_EQ(reason("alert-to-sender"), "\"982\" is a sender of the rule and gets its alert, so "
                                         "each of their messages comes back to them.");
}

TEST_F(MeaningFindings, ATextOfSeveralMessagesIsNoted) {
    addActions(actions(u"<REPLY>" + std::u16string(160, u'a') + u";2</REPLY>"));
    addActions(actions(u"<REPLY>" + std::u16string(161, u'a') + u";2</REPLY>"));
    addActions(actions(u"<ALERT>" + std::u16string(70, u'a') + u"ж;2;981;982;983</ALERT>"));
    EXPECT_THAT(codes(), ElementsAre("2 several-messages", "3 several-messages"));
    const CheckReport found = report();
    EXPECT_EQ(toUtf8(found.findings[0].remark.reason),
              "The text of the reply takes 2 short messages in the GSM alphabet.");
    EXPECT_EQ(toUtf8(found.findings[0].remark.advice), "Shorten it by 1 of its 161 characters.");
    EXPECT_EQ(toUtf8(found.findings[1].remark.reason),
              "The text of the alert takes 2 short messages in UCS-2, because the GSM alphabet "
              "lacks \"ж\" (U+0436); 6 to its 3 recipients.");
    EXPECT_EQ(toUtf8(found.findings[1].remark.advice),
              "Shorten it by 1 of its 71 characters, or write it with the letters of the GSM "
              "alphabet.");
}

TEST_F(MeaningFindings, APlaceholderTakesAtLeastNothing) {
    addActions(
        actions(u"<ALERT>" + std::u16string(150, u'a') + u"@@SMS@@@@SENDER@@;2;981</ALERT>"));
    addActions(actions(u"<ALERT>" + std::u16string(161, u'a') + u"@@SMS@@;2;981</ALERT>"));
    EXPECT_EQ(reason("several-messages"), "The text of the alert takes at least 2 short messages "
                                          "in the GSM alphabet.");
    EXPECT_TRUE(report().texts[0].text.hasPlaceholders);
    EXPECT_EQ(report().texts[0].text.length.units, 150U);
}

} // namespace
} // namespace kvex::host
