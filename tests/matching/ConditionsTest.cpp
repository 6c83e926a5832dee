// What the conditions of a rule mean, as docs/matching.md says it.
#include "tests/matching/MatchingFixture.h"

namespace kvex::test {
namespace {

struct Row {
    const char *name;
    std::u16string conditions;
    Message message;
    /// Why the rule does not apply; "" when it does.
    std::string expected;
};

Message from(const std::u16string &sender) {
    Message changed = message();
    changed.sender = sender;
    return changed;
}
Message through(std::int32_t account) {
    Message changed = message();
    changed.account = account;
    return changed;
}
Message saying(const std::u16string &text) {
    Message changed = message();
    changed.text = text;
    return changed;
}
Message at(const std::u16string &moment) {
    Message changed = message();
    changed.moment = moment;
    return changed;
}
Message service() {
    Message changed = message();
    changed.isService = true;
    return changed;
}

const std::u16string march = u"<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>";

const std::vector<Row> rows{
    {"AllMessagesMeansAll", u"<ALLMESSAGES>", message(), ""},
    {"AllMessagesMeansServiceMessagesToo", u"<ALLMESSAGES>", service(), ""},
    {"IgnoringServiceMessagesIsACondition", u"<IGNOREIFSERVICE>YES</IGNOREIFSERVICE>", message(),
     ""},
    {"AServiceMessageIsIgnored", u"<IGNOREIFSERVICE>YES</IGNOREIFSERVICE>", service(),
     "it is a service message"},
    {"OtherwiseAServiceMessageIsAMessage",
     u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><WORD><CON><ANY>stop</WORD>", service(), ""},
    {"OnlyYesIgnoresServiceMessages",
     u"<IGNOREIFSERVICE>yes</IGNOREIFSERVICE><WORD><CON><ANY>stop</WORD>", service(), ""},

    {"TheSenderIsOneOfSome", u"<PEOPLE><CON><ANY>1;2</PEOPLE>", from(u"2"), ""},
    {"TheSenderIsNoneOfSome", u"<PEOPLE><CON><ANY>1;2</PEOPLE>", from(u"3"),
     "the sender is not 1 or 2"},
    {"OneSenderIsNotTwo", u"<PEOPLE><CON><ALL>1;2</PEOPLE>", from(u"2"), "the sender is not 1"},
    {"OneSenderIsAllOfOne", u"<PEOPLE><CON><ALL>2;+2</PEOPLE>", from(u"2"), ""},
    {"NotAnyMeansNone", u"<PEOPLE><NOT><ANY>1;2</PEOPLE>", from(u"2"), "the sender is 2"},
    {"NotAnyOfOthers", u"<PEOPLE><NOT><ANY>1;2</PEOPLE>", from(u"3"), ""},
    {"NotAllOfTwoHoldsForEverySender", u"<PEOPLE><NOT><ALL>1;2</PEOPLE>", from(u"2"), ""},
    {"NotAllOfOneIsNotThatOne", u"<PEOPLE><NOT><ALL>2</PEOPLE>", from(u"2"), "the sender is 2"},
    {"BlanksInNumbersDoNotCount", u"<PEOPLE><CON><ANY> 98 11 </PEOPLE>", from(u"9 811"), ""},
    {"OnePlusDoesNotCount", u"<PEOPLE><CON><ANY>+4917</PEOPLE>", from(u"4917"), ""},
    {"APlusOfTheSenderDoesNotCount", u"<PEOPLE><CON><ANY>4917</PEOPLE>", from(u"+49 17"), ""},
    {"TwoPlusesCount", u"<PEOPLE><CON><ANY>++4917</PEOPLE>", from(u"4917"),
     "the sender is not ++4917"},
    {"LeadingZerosCount", u"<PEOPLE><CON><ANY>004917</PEOPLE>", from(u"+4917"),
     "the sender is not 004917"},
    {"TheEndOfANumberIsNotTheNumber", u"<PEOPLE><CON><ANY>9811100011</PEOPLE>",
     from(u"+919811100011"), "the sender is not 9811100011"},
    {"LettersInASenderHaveNoCase", u"<PEOPLE><CON><ANY>MyBank</PEOPLE>", from(u"MYBANK"), ""},
    {"AnEmptyEntryIsNoSender", u"<PEOPLE><CON><ANY>1;;2</PEOPLE>", from(u""),
     "the sender is not 1,  or 2"},

    {"TheAccountIsOneOfSome", u"<ACCOUNT><CON><ANY>1;2</ACCOUNT>", through(2), ""},
    {"TheAccountIsNoneOfSome", u"<ACCOUNT><CON><ANY>1;2</ACCOUNT>", through(3),
     "it came in through account 3, not through 1 or 2"},
    {"NotThroughTheAccount", u"<ACCOUNT><NOT><ANY>1;2</ACCOUNT>", through(1),
     "it came in through account 1"},
    {"NotThroughOthers", u"<ACCOUNT><NOT><ANY>1;2</ACCOUNT>", through(3), ""},
    {"AllOfTwoAccountsIsNone", u"<ACCOUNT><CON><ALL>1;2</ACCOUNT>", through(1),
     "it came in through account 1, not through 2"},
    {"AccountsAreNumbers", u"<ACCOUNT><CON><ANY> 02 </ACCOUNT>", through(2), ""},
    {"WhatIsNoNumberIsNoAccount", u"<ACCOUNT><CON><ANY>two;3</ACCOUNT>", through(2),
     "it came in through account 2, not through two or 3"},

    {"AWordIsInTheText", u"<WORD><CON><ANY>stop;halt</WORD>", saying(u"Do stop!"), ""},
    {"NoWordIsInTheText", u"<WORD><CON><ANY>stop;halt</WORD>", saying(u"Go on"),
     "the text does not contain \"stop\" or \"halt\""},
    {"WordsHaveNoCase", u"<WORD><CON><ANY>StoP</WORD>", saying(u"sTOp"), ""},
    {"WordsOfOtherScriptsHaveNoCase", u"<WORD><CON><ANY>ΣΤΟΠ;ÄÖ</WORD>", saying(u"äö"), ""},
    {"AccentsCount", u"<WORD><CON><ANY>eleve</WORD>", saying(u"élève"),
     "the text does not contain \"eleve\""},
    {"CharactersBeyondTheFirstPlaneHaveNoCase", u"<WORD><CON><ANY>𐐀</WORD>", saying(u"x𐐨"), ""},
    {"AWordIsFoundWithinAWord", u"<WORD><CON><ANY>stop</WORD>", saying(u"unstoppable"), ""},
    {"APhraseIsFound", u"<WORD><CON><ANY>call me</WORD>", saying(u"please Call Me back"), ""},
    {"BlanksWithinAPhraseCount", u"<WORD><CON><ANY>call me</WORD>", saying(u"call  me"),
     "the text does not contain \"call me\""},
    {"BlanksAroundAWordDoNotCount", u"<WORD><CON><ANY>halt; stop </WORD>", saying(u"stop"), ""},
    {"AllWordsAreInTheText", u"<WORD><CON><ALL>offer;free</WORD>", saying(u"Free offer"), ""},
    {"OneOfAllWordsIsMissing", u"<WORD><CON><ALL>offer;free;win</WORD>", saying(u"Free offer"),
     "the text does not contain \"win\""},
    {"TheSameWordTwiceIsOne", u"<WORD><CON><ALL>stop;STOP</WORD>", saying(u"stop"), ""},
    {"NotAnyWord", u"<WORD><NOT><ANY>offer;free;win</WORD>", saying(u"Free offer"),
     "the text contains \"offer\" and \"free\""},
    {"NotAnyWordOfOthers", u"<WORD><NOT><ANY>offer;free</WORD>", saying(u"Hello"), ""},
    {"NotAllWords", u"<WORD><NOT><ALL>offer;free</WORD>", saying(u"Free offer"),
     "the text contains \"offer\" and \"free\""},
    {"NotAllWordsHoldsWithSomeOfThem", u"<WORD><NOT><ALL>offer;free</WORD>", saying(u"Free"), ""},
    {"AnEmptyWordIsInNoText", u"<WORD><CON><ANY>; </WORD>", saying(u"a ; b"),
     "the text does not contain \"\" or \"\""},
    {"AnEmptyTextHasNoWord", u"<WORD><CON><ANY>a</WORD>", saying(u""),
     "the text does not contain \"a\""},

    {"ACommandBeginsTheText", u"<WORD><CON><ANY><ASCOMMAND>STOP;HALT</WORD>", saying(u"stop it"),
     ""},
    {"ACommandMatchesFromTheLeft", u"<WORD><CON><ANY><ASCOMMAND>STOP;HALT</WORD>",
     saying(u"do stop"), "the text does not begin with \"STOP\" or \"HALT\""},
    {"ABlankBeforeACommandCounts", u"<WORD><CON><ANY><ASCOMMAND>STOP</WORD>", saying(u" stop"),
     "the text does not begin with \"STOP\""},
    {"ACommandMayGoOnInTheText", u"<WORD><CON><ANY><ASCOMMAND>STOP</WORD>", saying(u"Stopping"),
     ""},
    {"OneOfAllCommandsIsEnough", u"<WORD><CON><ALL><ASCOMMAND>STOP;HALT</WORD>", saying(u"halt"),
     ""},
    {"NotACommand", u"<WORD><NOT><ANY><ASCOMMAND>STOP;HALT</WORD>", saying(u"halt"),
     "the text begins with \"HALT\""},
    {"NotACommandHoldsForTheWordElsewhere", u"<WORD><NOT><ANY><ASCOMMAND>STOP</WORD>",
     saying(u"do stop"), ""},

    {"TheRangeBeginsWithItsStart", march, at(u"20240301 09:00:00"), ""},
    {"ASecondBeforeTheRange", march, at(u"20240301 08:59:59"),
     "it arrived before 2024-03-01 09:00:00"},
    {"TheRangeEndsWithItsEnd", march, at(u"20240331 18:30:00"), ""},
    {"ASecondAfterTheRange", march, at(u"20240331 18:30:01"),
     "it arrived after 2024-03-31 18:30:00"},
    {"ARangeWithoutTimesHasWholeDays", u"<DATETIME>20240301 ,20240302</DATETIME>",
     at(u"20240302 23:59:59"), ""},
    {"ARangeWithoutTimesBeginsAtMidnight", u"<DATETIME>20240301 ,20240302</DATETIME>",
     at(u"20240301 00:00:00"), ""},
    {"AReversedRangeHasNoMoment", u"<DATETIME>20240331 00:00:00,20240301 00:00:00</DATETIME>",
     at(u"20240315 00:00:00"), "it arrived before 2024-03-31 00:00:00"},
    {"ADateThatDoesNotExist", u"<DATETIME>20240231 00:00:00,20240301 00:00:00</DATETIME>",
     message(), "its range of dates is none: \"20240231 00:00:00,20240301 00:00:00\""},
    {"ADateWithoutAComma", u"<DATETIME>20240301 00:00:00</DATETIME>", message(),
     "its range of dates is none: \"20240301 00:00:00\""},

    {"AllConditionsMustHold",
     u"<PEOPLE><CON><ANY>9811100011</PEOPLE><ACCOUNT><CON><ANY>1</ACCOUNT>"
     u"<WORD><CON><ANY>stop</WORD>" +
         march,
     message(), ""},
    {"TheFirstConditionThatFailedIsNamed",
     u"<WORD><CON><ANY>x</WORD><ACCOUNT><CON><ANY>2</ACCOUNT>", message(),
     "it came in through account 1, not through 2"},

    {"NoConditionIsNotEverything", u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE>", message(),
     "it has no condition"},
    {"NoTextIsNotEverything", u"", message(), "it has no condition"},
    {"NoPeopleAreNotEverybody", u"<PEOPLE><CON><ANY></PEOPLE>", message(),
     "its list of people is empty"},
    {"NotNobodyIsNotEverybody", u"<PEOPLE><NOT><ANY></PEOPLE><WORD><CON><ANY>stop</WORD>",
     message(), "its list of people is empty"},
    {"NoAccountsAreNotEvery", u"<ACCOUNT></ACCOUNT><WORD><CON><ANY>stop</WORD>", message(),
     "its list of accounts is empty"},
    {"NoWordsAreNotEverything", u"<WORD><NOT><ALL></WORD>", message(),
     "its list of words is empty"},
    {"NoDatesAreNotAlways", u"<DATETIME></DATETIME><WORD><CON><ANY>stop</WORD>", message(),
     "its range of dates is empty"},
    {"AnUnclosedConditionAppliesToNothing",
     u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><WORD><CON><ANY>stop</WORD><DATETIME>2024", message(),
     "its conditions cannot be read: <DATETIME> has no closing tag"},
    {"AConditionBeyondReachAppliesToNothing",
     std::u16string(32767, u' ') + u"<WORD><CON><ANY>stop</WORD>", message(),
     "its conditions cannot be read: <WORD> stands beyond the position 32767"},
};

class Conditions : public MatchingTest, public testing::WithParamInterface<Row> {};

TEST_P(Conditions, Are) {
    EXPECT_EQ(refusal(GetParam().conditions, GetParam().message), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(, Conditions, testing::ValuesIn(rows),
                         [](const auto &row) { return row.param.name; });

class LongLists : public MatchingTest {};

TEST_F(LongLists, AreCutInAReason) {
    EXPECT_EQ(refusal(u"<PEOPLE><CON><ANY>1;2;3;4;5</PEOPLE>", from(u"9")),
              "the sender is not 1, 2, 3, 4 or 5");
    EXPECT_EQ(refusal(u"<PEOPLE><CON><ANY>1;2;3;4;5;6</PEOPLE>", from(u"9")),
              "the sender is not 1, 2, 3, 4 or 2 more");
}

} // namespace
} // namespace kvex::test
