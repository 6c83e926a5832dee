#include "tests/check/CheckFixture.h"

namespace kvex::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using ReferenceFindings = CheckTest;

TEST_F(ReferenceFindings, UsersOfADistributionMustBeThere) {
    addActions(actions(u"<DIST>3;7</DIST>"));
    addActions(actions(u"<DIST>3;9</DIST>"));
    addActions(actions(u"<DIST>8</DIST>"));
    EXPECT_THAT(codes(), ElementsAre("2 unknown-user", "3 unknown-user"));
    const CheckReport found = report();
    EXPECT_EQ(toUtf8(found.findings[0].remark.reason),
              "There is no user 9, which stands in the distribution.");
    EXPECT_EQ(toUtf8(found.findings[1].remark.reason),
              "The user 8, which stands in the distribution, is deleted.");
}

TEST_F(ReferenceFindings, AccountsMustBeThere) {
    addConditions(u"<ACCOUNT><CON><ANY>1;3;4</ACCOUNT>");
    addActions(actions(u"<REPLY>a;6</REPLY>"));
    addActions(actions(u"<ALERT>a;4;981</ALERT>"));
    EXPECT_THAT(codes(),
                ElementsAre("1 unknown-account", "2 unknown-account", "3 unknown-account"));
    const CheckReport found = report();
    EXPECT_EQ(toUtf8(found.findings[0].remark.reason),
              "The account 4, which stands in the condition on accounts, is deleted.");
    EXPECT_EQ(toUtf8(found.findings[1].remark.reason),
              "There is no account 6, which stands in the reply.");
    EXPECT_EQ(toUtf8(found.findings[2].remark.reason),
              "The account 4, which stands in the alert, is deleted.");
}

TEST_F(ReferenceFindings, AnIdIsReadAsTheComponentReadsIt) {
    addActions(actions(u"<DIST>003; 7</DIST>"));
    EXPECT_THAT(codes(), IsEmpty());
}

TEST_F(ReferenceFindings, AnAccountOfAConditionMustReceive) {
    addConditions(u"<ACCOUNT><CON><ANY>1;3</ACCOUNT>");
    addConditions(u"<ACCOUNT><NOT><ANY>2</ACCOUNT>");
    addConditions(u"<ACCOUNT><CON><ANY>5</ACCOUNT>");
    EXPECT_THAT(codes(), ElementsAre("2 wrong-bind-mode", "3 wrong-bind-mode"));
    EXPECT_EQ(toUtf8(report().findings[0].remark.reason),
              "The account 2 in the condition on accounts cannot receive messages.");
}

TEST_F(ReferenceFindings, AnAccountOfAReplyOrAlertMustSend) {
    addActions(actions(u"<REPLY>a;1</REPLY><ALERT>a;5;981</ALERT>"));
    addActions(actions(u"<REPLY>a;2</REPLY><ALERT>a;3;981</ALERT>"));
    EXPECT_THAT(codes(), ElementsAre("1 wrong-bind-mode", "1 wrong-bind-mode"));
    EXPECT_EQ(toUtf8(report().findings[0].remark.reason),
              "The account 1 in the reply cannot send messages.");
}

TEST_F(ReferenceFindings, AnIdMustBeANumber) {
    addConditions(u"<ACCOUNT><CON><ANY>1;Both</ACCOUNT>");
    addActions(actions(u"<DIST>3;99999999999</DIST>"));
    addActions(actions(u"<REPLY>a</REPLY>"));
    addActions(actions(u"<ALERT>a;;981</ALERT>"));
    EXPECT_THAT(codes(),
                ElementsAre("1 no-id", "2 no-id", "3 no-id", "3 stored-differently", "4 no-id"));
    const CheckReport found = report();
    EXPECT_EQ(toUtf8(found.findings[0].remark.reason),
              "\"Both\" in the condition on accounts is not the id of an account.");
    EXPECT_EQ(toUtf8(found.findings[2].remark.reason), "There is no account in the reply.");
}

} // namespace
} // namespace kvex::host
