#include "rules/ReadingHints.h"

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

RuleState fullRule() {
    RuleState rule;
    rule.strPeople = u"1;2";
    rule.strWords = u"STOP";
    rule.strDateTime = u"20240301 09:00:00,20240331 18:30:00";
    rule.strReplyText = u"Received";
    rule.strReplyAccount = u"2";
    rule.strAlertText = u"Look";
    rule.strAlertAccount = u"2";
    rule.strAlertRecipients = u"3;4";
    return rule;
}

std::u16string replyHint(const std::u16string &text) {
    return replyTextHint(fullRule(), text);
}

TEST(ReadingHints, AreOnlyAboutThreeCharacters) {
    for (const char16_t *text : {u"", u"a", u"a, b: c/d & \"e\" @@SMS@@"}) {
        EXPECT_EQ(replyHint(text), u"");
        EXPECT_EQ(alertTextHint(fullRule(), text), u"");
        EXPECT_EQ(peopleHint(fullRule(), {u"b", text}), u"");
        EXPECT_EQ(wordsHint(fullRule(), {text, u"b"}), u"");
        EXPECT_EQ(recipientsHint(fullRule(), {text}), u"");
    }
    EXPECT_EQ(wordsHint(fullRule(), {}), u"");
}

TEST(ReadingHints, SayThatNothingChanges) {
    for (const char16_t *text : {u"a < b", u"5 > 3", u" <b>bold</b> ", u"<reply>"}) {
        EXPECT_EQ(replyHint(text), u"The server reads this text as it stands.");
        EXPECT_EQ(alertTextHint(fullRule(), text), u"The server reads this text as it stands.");
    }
    EXPECT_EQ(wordsHint(fullRule(), {u"a", u"<b>"}),
              u"The server reads these words as they stand.");
    EXPECT_EQ(peopleHint(fullRule(), {u"<1"}), u"The server reads these numbers as they stand.");
    EXPECT_EQ(recipientsHint(fullRule(), {u">1"}),
              u"The server reads these numbers as they stand.");
}

TEST(ReadingHints, SayWhereATextEnds) {
    EXPECT_EQ(replyHint(u"a;b"), u"The server reads the text up to \";\" only: \"a\".");
    EXPECT_EQ(replyHint(u"a ; b; c"), u"The server reads the text up to \";\" only: \"a \".");
    EXPECT_EQ(replyHint(u";b"), u"The server reads the text up to \";\" only: \"\".");
    EXPECT_EQ(replyHint(u"a <b </REPLY>;c"),
              u"The server reads the text up to \"</REPLY>\" only: \"a <b\".");
    EXPECT_EQ(alertTextHint(fullRule(), u"a;b"),
              u"The server reads the text up to \";\" only: \"a\".");
    EXPECT_EQ(alertTextHint(fullRule(), u"a</ALERT>b"),
              u"The server reads the text up to \"</ALERT>\" only: \"a\".");
}

TEST(ReadingHints, NeedNoOtherValues) {
    EXPECT_EQ(replyTextHint({}, u"a;b"), u"The server reads the text up to \";\" only: \"a\".");
    EXPECT_EQ(alertTextHint({}, u"a;b"), u"The server reads the text up to \";\" only: \"a\".");
    EXPECT_EQ(recipientsHint({}, {u"1;2"}), u"The server reads \"1;2\" as \"1\" and \"2\".");
}

TEST(ReadingHints, QuoteALongTextWithoutItsMiddle) {
    EXPECT_EQ(replyHint(u"twenty-four\r\ncharacters;x"),
              u"The server reads the text up to \";\" only: \"twenty-four characters\".");
    EXPECT_EQ(replyHint(u"Thank you for your message, we answer it soon; really"),
              u"The server reads the text up to \";\" only: \"Thank you fo…swer it soon\".");
    EXPECT_EQ(replyHint(u"12345678901\U0001F4F1 and \U0001F4F1"
                        u"45678901234;"),
              u"The server reads the text up to \";\" only: \"12345678901…45678901234\".");
}

TEST(ReadingHints, SayWhatBecomesOfAnEntry) {
    EXPECT_EQ(wordsHint(fullRule(), {u"a;b"}), u"The server reads \"a;b\" as \"a\" and \"b\".");
    EXPECT_EQ(wordsHint(fullRule(), {u"x", u"a;b;c", u"y"}),
              u"The server reads \"a;b;c\" as \"a\", \"b\" and \"c\".");
    EXPECT_EQ(wordsHint(fullRule(), {u"x", u"a;"}), u"The server reads \"a;\" as \"a\".");
    EXPECT_EQ(wordsHint(fullRule(), {u"a;", u"x"}), u"The server reads \"a;\" as \"a\" and \"\".");
    EXPECT_EQ(wordsHint(fullRule(), {u"a</WORD>b"}), u"The server reads \"a</WORD>b\" as \"a\".");
    EXPECT_EQ(peopleHint(fullRule(), {u"1;2"}), u"The server reads \"1;2\" as \"1\" and \"2\".");
    EXPECT_EQ(recipientsHint(fullRule(), {u"1;2", u"3"}),
              u"The server reads \"1;2\" as \"1\" and \"2\".");
}

TEST(ReadingHints, CountTheEntriesWhenManyChange) {
    EXPECT_EQ(wordsHint(fullRule(), {u"a;b", u"x", u"c;d"}),
              u"The server reads 5 words instead of 3.");
    EXPECT_EQ(wordsHint(fullRule(), {u"a;b;c;d"}), u"The server reads 4 words instead of 1.");
    EXPECT_EQ(wordsHint(fullRule(), {u"a</WORD>", u"x"}), u"The server reads 1 word instead of 2.");
    EXPECT_EQ(recipientsHint(fullRule(), {u"1;2", u"3;4"}),
              u"The server reads 4 numbers instead of 2.");
}

TEST(ReadingHints, SayThatAWordIsAnOption) {
    EXPECT_EQ(wordsHint(fullRule(), {u"<ALL>"}),
              u"The server reads \"<ALL>\" as an option of the words.");
    EXPECT_EQ(wordsHint(fullRule(), {u"a", u"<NOT>;"}),
              u"The server reads \"<NOT>\" as an option of the words.");
    EXPECT_EQ(wordsHint(fullRule(), {u"<ASCOMMAND>x"}),
              u"The server reads \"<ASCOMMAND>\" as an option of the words.");
    EXPECT_EQ(wordsHint(fullRule(), {u"a long word", u"<ALL>"}),
              u"The server reads these words as they stand.");
    RuleState all = fullRule();
    all.intWordsAll = 1;
    EXPECT_EQ(wordsHint(all, {u"<ALL>"}), u"The server reads these words as they stand.");
}

TEST(ReadingHints, SayWhatElseIsMisread) {
    EXPECT_EQ(replyHint(u"<DELETE>"), u"With this text the server misreads \"Delete it\".");
    EXPECT_EQ(replyHint(u"<DELETE>YES</DELETE>;"),
              u"With this text the server misreads \"Delete it\".");
    EXPECT_EQ(replyHint(u"<ALERT>"), u"With this text the server misreads the alert.");
    EXPECT_EQ(alertTextHint(fullRule(), u"<DIST></DIST><DELETE><IGNOREFURTHERRULES>"),
              u"With this text the server misreads \"Delete it\" and \"Do not process any more "
              u"Rules\".");
    EXPECT_EQ(wordsHint(fullRule(), {u"<DATETIME>"}),
              u"With these words the server misreads the date and time.");
    EXPECT_EQ(peopleHint(fullRule(), {u"<WORD>"}),
              u"With these numbers the server misreads the words.");
    EXPECT_EQ(wordsHint(fullRule(), {u"<ACCOUNT>x</ACCOUNT>", u"<DATETIME>"}),
              u"With these words the server misreads the date and time.");
}

TEST(ReadingHints, SayThatTheRuleCannotBeReadToItsEnd) {
    EXPECT_EQ(replyHint(u"</DELETE>"),
              u"With this text the server cannot read the rule to its end.");
    RuleState noDate;
    EXPECT_EQ(wordsHint(noDate, {u"<DATETIME>"}),
              u"With these words the server cannot read the rule to its end.");
    EXPECT_EQ(peopleHint(fullRule(), {u"</WORD>"}),
              u"With these numbers the server cannot read the rule to its end.");
    EXPECT_EQ(replyHint(std::u16string(33'000, u'a') + u"<"),
              u"With this text the server cannot read the rule to its end.");
}

TEST(ReadingHints, SayThatTheRuleIsForAllMessages) {
    const std::u16string words =
        u"With these words the server reads a rule for all messages, without other conditions.";
    EXPECT_EQ(wordsHint(fullRule(), {u"<ALLMESSAGES>"}), words);
    RuleState all = fullRule();
    all.blnAllMessages = true;
    EXPECT_EQ(wordsHint(all, {u"a;b"}), u"The server reads \"a;b\" as \"a\" and \"b\".");
    EXPECT_EQ(replyHint(u"<ALLMESSAGES>"), u"The server reads this text as it stands.");
}

} // namespace
} // namespace kvex::test
