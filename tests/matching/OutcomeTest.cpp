// What becomes of a message: the actions, the end, and both reports.
#include "host/matching/PlayReport.h"
#include "tests/matching/MatchingFixture.h"

namespace kvex::test {
namespace {

using host::asJson;
using host::asText;
using host::Matcher;
using host::Outcome;

constexpr auto allMessages = u"<ALLMESSAGES>";

std::u16string actions(const std::u16string &some, const std::u16string &deletes,
                       const std::u16string &ends) {
    return some + u"<DELETE>" + deletes + u"</DELETE><IGNOREFURTHERRULES>" + ends +
           u"</IGNOREFURTHERRULES>";
}

class OutcomeOfPlay : public MatchingTest {
protected:
    static std::string played(std::vector<PlayedRule> rules, const Message &played = message()) {
        Matcher matcher(std::move(rules));
        return asText(matcher.explain(played));
    }
};

TEST_F(OutcomeOfPlay, WithoutRulesEndsAtOnce) {
    EXPECT_EQ(played({}), "Processing ended after the last rule.\n");
}

TEST_F(OutcomeOfPlay, HasEachActionWithItsTextsFilledIn) {
    const auto all = actions(u"<DIST>3;7</DIST><REPLY>Got \"@@SMS@@\";2</REPLY>"
                             u"<ALERT>@@SENDER@@: @@SMS@@@@SMS@@ @@sms@@;5;1;2</ALERT>",
                             u"YES", u"YES");
    Message message = test::message();
    message.text = u"a @@SENDER@@";
    EXPECT_EQ(played({rule(allMessages, all)}, message),
              "rule 1 \"Rule 1\": applies\n"
              "    distributes the message to the users 3, 7\n"
              "    sends the reply \"Got \"a @@SENDER@@\"\" to 9811100011 through account 2\n"
              "    sends the alert \"9811100011: a @@SENDER@@a @@SENDER@@ @@sms@@\" to 1, 2 "
              "through account 5\n"
              "    deletes the message\n"
              "    lets no other rule follow\n"
              "Processing ended at rule 1 \"Rule 1\".\n");
}

TEST_F(OutcomeOfPlay, OfARuleWithoutFurtherRulesEndsThere) {
    EXPECT_EQ(played({rule(allMessages, actions(u"", u"NO", u"YES")),
                      rule(allMessages, someActions, u"2")}),
              "rule 1 \"Rule 1\": applies\n"
              "    lets no other rule follow\n"
              "rule 2 \"Rule 2\": not reached\n"
              "Processing ended at rule 1 \"Rule 1\".\n");
}

TEST_F(OutcomeOfPlay, OfADeletedMessageEndsThere) {
    EXPECT_EQ(played({rule(allMessages, actions(u"", u"YES", u"NO")),
                      rule(allMessages, someActions, u"2")}),
              "rule 1 \"Rule 1\": applies\n"
              "    deletes the message\n"
              "rule 2 \"Rule 2\": not reached\n"
              "Processing ended at rule 1 \"Rule 1\".\n");
}

TEST_F(OutcomeOfPlay, GoesOnAfterARuleThatDoesNotApply) {
    EXPECT_EQ(played({rule(u"<WORD><CON><ANY>x</WORD>", actions(u"", u"YES", u"YES")),
                      rule(allMessages, someActions, u"2")}),
              "rule 1 \"Rule 1\": does not apply: the text does not contain \"x\"\n"
              "rule 2 \"Rule 2\": applies\n"
              "    distributes the message to the users 3\n"
              "Processing ended after the last rule.\n");
}

TEST_F(OutcomeOfPlay, OnlyYesDeletesAndEnds) {
    EXPECT_EQ(played({rule(allMessages, actions(u"", u"yes", u" Y"))}),
              "rule 1 \"Rule 1\": applies\nProcessing ended after the last rule.\n");
}

TEST_F(OutcomeOfPlay, SaysFromWhereActionsCannotBeRead) {
    EXPECT_EQ(played({rule(allMessages, u"<DIST>3</DIST><REPLY>x;2<DELETE>YES</DELETE>"),
                      rule(allMessages, someActions, u"2")}),
              "rule 1 \"Rule 1\": applies\n"
              "    distributes the message to the users 3\n"
              "    its actions cannot be read from <REPLY> on\n"
              "rule 2 \"Rule 2\": applies\n"
              "    distributes the message to the users 3\n"
              "Processing ended after the last rule.\n");
}

TEST_F(OutcomeOfPlay, SaysWhenTheOrderIsInDoubt) {
    PlayedRule second = rule(allMessages, someActions, u"2");
    second.row.priority = u"1";
    EXPECT_EQ(played({rule(allMessages, actions(u"", u"NO", u"YES")), second}),
              "rule 1 \"Rule 1\": applies\n"
              "    lets no other rule follow\n"
              "rule 2 \"Rule 2\": not reached\n"
              "Processing ended at rule 1 \"Rule 1\".\n"
              "The next rule 2 \"Rule 2\" has the same priority, so the server may apply it "
              "first.\n");
}

TEST_F(OutcomeOfPlay, KeepsTextsOnTheirLine) {
    PlayedRule named = rule(allMessages, actions(u"<REPLY>a\r\n\x1b;2</REPLY>", u"NO", u"NO"));
    named.row.name = u"a\nb";
    EXPECT_EQ(played({named}), "rule 1 \"a\\nb\": applies\n"
                               "    sends the reply \"a\\r\\n\\u{1b}\" to 9811100011 through "
                               "account 2\n"
                               "Processing ended after the last rule.\n");
}

TEST_F(OutcomeOfPlay, IsADocument) {
    Matcher matcher(
        {rule(u"<WORD><CON><ANY>x</WORD>"),
         rule(allMessages, u"<DIST>3;é</DIST><ALERT>Hi;2;1</ALERT><DELETE>YES</DELETE>", u"2"),
         rule(allMessages, someActions, u"3")});
    EXPECT_EQ(asJson(matcher.explain(message()), true), R"({
  "format": "kvexrules try",
  "version": 1,
  "rules": [
    {
      "rule": {
        "id": 1,
        "name": "Rule 1"
      },
      "result": "does not apply",
      "condition": "words",
      "reason": "the text does not contain \"x\""
    },
    {
      "rule": {
        "id": 2,
        "name": "Rule 2"
      },
      "result": "applies",
      "actions": [
        {
          "action": "distribute",
          "users": [
            "3",
            "\u00e9"
          ]
        },
        {
          "action": "alert",
          "text": "Hi",
          "account": "2",
          "recipients": [
            "1"
          ]
        },
        {
          "action": "delete"
        }
      ]
    },
    {
      "rule": {
        "id": 3,
        "name": "Rule 3"
      },
      "result": "not reached"
    }
  ],
  "endedAt": {
    "id": 2,
    "name": "Rule 2"
  }
}
)");
}

class TallyOfPlay : public MatchingTest {
protected:
    TallyOfPlay()
        : matcher_({rule(u"<WORD><CON><ANY>stop</WORD>", actions(u"", u"YES", u"NO")),
                    rule(u"<PEOPLE><CON><ANY>7</PEOPLE>", someActions, u"2"),
                    rule(u"<WORD><CON><ANY></WORD>", someActions, u"3"),
                    rule(u"<WORD><CON><ANY>o</WORD>", someActions, u"4")}) {}

    host::Tally tally(const std::vector<std::u16string> &texts) {
        host::Tally tally(matcher_);
        std::size_t line = 1;
        for (const std::u16string &text : texts) {
            Message message = test::message();
            message.text = text;
            tally.play(message, line++);
        }
        return tally;
    }

private:
    Matcher matcher_;
};

TEST_F(TallyOfPlay, CountsAndNamesWhatWasNotTouched) {
    EXPECT_EQ(asText(tally({u"stop", u"x", u"go", u"y", u"Stop"})),
              "5 messages, 4 enabled rules\n"
              "  rule 1 \"Rule 1\": 2 messages\n"
              "  rule 2 \"Rule 2\": 0 messages\n"
              "  rule 3 \"Rule 3\": 0 messages\n"
              "  rule 4 \"Rule 4\": 1 message\n"
              "Messages that no rule touched: 2 (line 2, 4)\n"
              "Rules that no message touched: 2\n"
              "  rule 2 \"Rule 2\"\n"
              "  rule 3 \"Rule 3\": its list of words is empty\n");
}

TEST_F(TallyOfPlay, NamesTenLines) {
    const std::string text = asText(tally(std::vector<std::u16string>(12, u"x")));
    EXPECT_NE(text.find("touched: 12 (line 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, and 2 more)\n"),
              std::string::npos)
        << text;
}

TEST_F(TallyOfPlay, IsADocument) {
    const std::string text = asJson(tally({u"stop", u"x"}));
    EXPECT_EQ(text.substr(text.find("\"untouchedLines\"")), R"("untouchedLines": [
    2
  ],
  "untouchedRules": [
    {
      "id": 2,
      "name": "Rule 2"
    },
    {
      "id": 3,
      "name": "Rule 3",
      "reason": "its list of words is empty"
    },
    {
      "id": 4,
      "name": "Rule 4"
    }
  ]
}
)");
    EXPECT_EQ(text.substr(0, text.find("    },\n    {")), R"({
  "format": "kvexrules try",
  "version": 1,
  "messages": 2,
  "rules": [
    {
      "rule": {
        "id": 1,
        "name": "Rule 1"
      },
      "hits": 1
)");
}

} // namespace
} // namespace kvex::test
