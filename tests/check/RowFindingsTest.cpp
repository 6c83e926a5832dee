#include "tests/check/CheckFixture.h"

namespace kvex::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using RowFindings = CheckTest;

TEST_F(RowFindings, ARuleOfTheEditorHasNone) {
    add(u"<IGNOREIFSERVICE>YES</IGNOREIFSERVICE><PEOPLE><CON><ANY>9811100011;9811100022</PEOPLE>"
        u"<ACCOUNT><NOT><ANY>1;3</ACCOUNT><WORD><NOT><ALL>STOP;HALT</WORD>"
        u"<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>",
        u"<DIST>3;7</DIST><REPLY>Received;2</REPLY>"
        u"<ALERT>New message;3;9811100033;9811100044</ALERT>"
        u"<DELETE>NO</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>");
    add(u"<ALLMESSAGES>", harmlessAction);
    addConditions(u"<WORD><CON><ANY><ASCOMMAND>STOP;HALT</WORD>");
    EXPECT_THAT(codes(), IsEmpty());
}

TEST_F(RowFindings, ARowWithoutNameOrActiveIsIncomplete) {
    addConditions(u"<WORD><CON><ANY>a</WORD>");
    addConditions(u"<WORD><CON><ANY>b</WORD>").name = u"";
    rows.incompleteRules = {u"2"};
    EXPECT_THAT(codes(), ElementsAre("2 incomplete-row"));
}

TEST_F(RowFindings, APriorityThatTheWindowCannotListMakesARowIncomplete) {
    addConditions(u"<WORD><CON><ANY>a</WORD>").priority = u"";
    addConditions(u"<WORD><CON><ANY>b</WORD>").priority = u"123456789";
    addConditions(u"<WORD><CON><ANY>c</WORD>").priority = u"12345678";
    addConditions(u"<WORD><CON><ANY>d</WORD>").priority = u"0";
    EXPECT_THAT(codes(), ElementsAre("1 incomplete-row", "2 incomplete-row"));
}

TEST_F(RowFindings, AnUnclosedTagEndsTheReading) {
    addConditions(u"<PEOPLE><CON><ANY>981<WORD><CON><ANY>a</WORD>");
    addConditions(u"<PEOPLE><CON><ANY>981</PEOPLE><WORD><CON><ANY>a</WORD>");
    addActions(u"</REPLY><REPLY>a;2<DELETE>NO</DELETE>");
    EXPECT_THAT(codes(), ElementsAre("1 unclosed-tag", "3 unclosed-tag"));
    EXPECT_EQ(toUtf8(report().findings[0].remark.reason),
              "<PEOPLE> has no </PEOPLE> behind it. The rule is read only up to there; what comes "
              "later is lost.");
}

TEST_F(RowFindings, ATagBeyondThePosition32767EndsTheReading) {
    const std::u16string filling(32767, u'x');
    add(u"<WORD><CON><ANY>" + filling + u"</WORD>", harmlessAction);
    add(harmlessCondition + filling, harmlessAction);
    EXPECT_THAT(codes(), ElementsAre("1 tag-beyond-reach", "1 too-long", "2 too-long",
                                     "2 stored-differently"));
}

TEST_F(RowFindings, ASecondOpeningTagIsNotRead) {
    addConditions(u"<PEOPLE><CON><ANY>981</PEOPLE><PEOPLE><CON><ANY>982</PEOPLE>");
    addActions(u"<REPLY>please <DELETE> it;2</REPLY><DELETE>NO</DELETE>"
               u"<IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
    EXPECT_THAT(codes(), ElementsAre("1 repeated-tag", "2 repeated-tag", "2 neither-yes-nor-no"));
    EXPECT_EQ(toUtf8(report().findings[0].remark.reason),
              "<PEOPLE> stands more than once in QueryParam. Only the first one is read.");
}

TEST_F(RowFindings, TheSameNumberInIsAndIsNotIsAContradiction) {
    addConditions(u"<PEOPLE><CON><ANY>981;982</PEOPLE><PEOPLE><NOT><ANY>983;982</PEOPLE>");
    addConditions(u"<PEOPLE><CON><ANY>981;982</PEOPLE><PEOPLE><NOT><ANY>983</PEOPLE>");
    addConditions(u"<PEOPLE><CON><ANY>981;982</PEOPLE><PEOPLE><CON><ANY>982</PEOPLE>");
    addConditions(u"<WORD><NOT><ALL>STOP</WORD><WORD><CON><ANY>STOP</WORD>");
    EXPECT_THAT(codes(), ElementsAre("1 repeated-tag", "1 contradicting-entry", "2 repeated-tag",
                                     "3 repeated-tag", "4 repeated-tag", "4 contradicting-entry"));
    rows.rules.resize(1);
    EXPECT_EQ(reason("contradicting-entry"), "\"982\" is in an \"is\" and in an \"is not\" of "
                                             "<PEOPLE>. Only the first of the two is read.");
}

TEST_F(RowFindings, ConditionsBesideAllMessagesAreNotRead) {
    add(query(u"<WORD><CON><ANY>a</WORD><ALLMESSAGES>"), harmlessAction);
    add(u" <ALLMESSAGES> ", harmlessAction);
    EXPECT_THAT(codes(), ElementsAre("1 unread-conditions", "2 stored-differently"));
}

TEST_F(RowFindings, AListWithoutModifiersLosesItsFirstCharacters) {
    addConditions(u"<PEOPLE>9811100011;9811100022;9811100033</PEOPLE>");
    addConditions(u"<ACCOUNT><ANY><CON>1</ACCOUNT>");
    addConditions(u"<WORD><CON><ANY>a <ALL> b</WORD>");
    addConditions(u"<WORD><NOT><ALL>a</WORD>");
    EXPECT_THAT(codes(), ElementsAre("1 missing-modifiers", "1 empty-entry", "2 missing-modifiers",
                                     "3 missing-modifiers"));
    rows.rules.resize(1);
    EXPECT_EQ(reason("missing-modifiers"),
              "The list behind <PEOPLE> begins with \"9811100011\". It is read as "
              "\"<CON><ANY>\", and its first 10 characters are dropped.");
}

TEST_F(RowFindings, AValueMustBeYesOrNo) {
    add(u"<IGNOREIFSERVICE>yes</IGNOREIFSERVICE><WORD><CON><ANY>a</WORD>", harmlessAction);
    addActions(actions(u"<DIST>3</DIST>", u"1", u"NO"));
    addActions(actions(u"<DIST>3</DIST>", u"NO", u""));
    addActions(actions(u"<DIST>3</DIST>", u"YES", u"YES"));
    EXPECT_THAT(codes(), ElementsAre("1 neither-yes-nor-no", "2 neither-yes-nor-no",
                                     "3 neither-yes-nor-no"));
}

TEST_F(RowFindings, ASemicolonCutsAReply) {
    addActions(actions(u"<REPLY>Hello; we are closed;2</REPLY>"));
    addActions(actions(u"<REPLY>Hello, we are closed;2</REPLY>"));
    EXPECT_THAT(codes(), ElementsAre("1 cut-text"));
    EXPECT_EQ(reason("cut-text"), "The text of the reply ends at its first \";\": \"Hello\". The "
                                  "account is read as \" we are closed;2\".");
}

TEST_F(RowFindings, ASemicolonCutsAnAlert) {
    addActions(actions(u"<ALERT>Hello; we are closed;2;981</ALERT>"));
    addActions(actions(u"<ALERT>Hello;2;981;982</ALERT>"));
    // Without a second recipient nobody knows which of the two is wrong.
    addActions(actions(u"<ALERT>Hello;nobody;981</ALERT>"));
    EXPECT_THAT(codes(), ElementsAre("1 cut-text", "3 no-id"));
    rows.rules.resize(1);
    EXPECT_EQ(reason("cut-text"), "The text of the alert ends at its first \";\": \"Hello\". The "
                                  "account is read as \" we are closed\".");
}

TEST_F(RowFindings, AnEmptyListIsNotEverything) {
    addConditions(u"<PEOPLE><CON><ANY></PEOPLE><WORD><CON><ANY>a</WORD>");
    addConditions(u"<WORD><CON><ANY>b</WORD><ACCOUNT></ACCOUNT>");
    addActions(actions(u"<DIST> </DIST><REPLY>a;2</REPLY>"));
    addActions(actions(u"<ALERT>Hello;2;</ALERT><REPLY>a;2</REPLY>"));
    EXPECT_THAT(codes(),
                ElementsAre("1 empty-list", "2 empty-list", "3 empty-list", "4 empty-list"));
    rows.rules.resize(1);
    EXPECT_EQ(reason("empty-list"),
              "<PEOPLE> has no number. An empty list never means \"everything\".");
}

TEST_F(RowFindings, AnEmptyEntryStandsBetweenOthers) {
    addConditions(u"<PEOPLE><CON><ANY>981;;982</PEOPLE>");
    addConditions(u"<PEOPLE><CON><ANY>981;982;</PEOPLE>");
    addActions(actions(u"<DIST>3; ;7</DIST>"));
    EXPECT_THAT(codes(), ElementsAre("1 empty-entry", "2 stored-differently", "3 empty-entry"));
}

TEST_F(RowFindings, TheLongestTextsAreThoseOfTheEditor) {
    addConditions(u"<WORD><CON><ANY>a</WORD>").name = std::u16string(50, u'n');
    addConditions(u"<WORD><CON><ANY>b</WORD>").name = std::u16string(51, u'n');
    const std::u16string empty = query(u"<WORD><CON><ANY></WORD>");
    addConditions(u"<WORD><CON><ANY>" + std::u16string(5000 - empty.size(), u'w') + u"</WORD>");
    addConditions(u"<WORD><CON><ANY>" + std::u16string(5001 - empty.size(), u'v') + u"</WORD>");
    EXPECT_THAT(codes(), ElementsAre("2 too-long", "4 too-long"));
    const auto isRefused = [&](const StoredRule &rule) {
        const RuleRead read = strings.read(rule.queryParam, rule.actionParam);
        return strings.refusal(rule.name, false, read.values).has_value();
    };
    EXPECT_FALSE(isRefused(rows.rules[2]));
    EXPECT_TRUE(isRefused(rows.rules[3]));
}

TEST_F(RowFindings, TheLongestActionsAreThoseOfTheEditor) {
    const std::size_t around = actions(u"<REPLY>;2</REPLY>").size();
    for (const std::size_t size : {2500U, 2501U}) {
        addActions(actions(u"<REPLY>" + std::u16string(size - around, u'r') + u";2</REPLY>"));
    }
    EXPECT_THAT(codes(), ElementsAre("1 several-messages", "2 too-long", "2 several-messages"));
}

TEST_F(RowFindings, TheEditorRefusesARuleThatSelectsOrDoesNothing) {
    add(query(u""), harmlessAction);
    addActions(actions(u""));
    addConditions(u"<WORD><CON><ANY>a</WORD>").name = u" ";
    add(u"<IGNOREIFSERVICE>YES</IGNOREIFSERVICE>", harmlessAction);
    EXPECT_THAT(codes(),
                ElementsAre("1 refused-by-editor", "2 refused-by-editor", "3 refused-by-editor"));
    rows.rules.resize(1);
    EXPECT_EQ(reason("refused-by-editor"), "The rule editor refuses to store the rule as it is: "
                                           "\"Please select some conditions for this Rule.\"");
}

TEST_F(RowFindings, OtherTextThanTheEditorsIsNoted) {
    addConditions(u"<word><CON><ANY>a</word><WORD><CON><ANY>b</WORD>");
    addActions(u"<DIST>3</DIST>");
    addActions(u"<DIST>3</DIST><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
    EXPECT_THAT(codes(), ElementsAre("1 stored-differently", "2 stored-differently"));
    rows.rules.resize(2);
    EXPECT_EQ(toUtf8(report().findings[0].remark.reason),
              "QueryParam is not as the rule editor writes it, from "
              "\"word><CON><ANY>a</word><WORD><CON><ANY>b</WORD>\" on.");
    EXPECT_EQ(toUtf8(report().findings[1].remark.reason),
              "ActionParam is not as the rule editor writes it, from its end on.");
}

} // namespace
} // namespace kvex::host
