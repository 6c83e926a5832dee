// How tags, their contents and their flags are read. Each row of a table is one case.
#include "platform/Error.h"
#include "rules/ParameterStrings.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace kvex {
namespace {

/// A text, the content of DATETIME that is read from it, and the number of the error that it
/// raises.
struct Content {
    const char *name;
    std::u16string text, expected;
    std::int32_t error = 0;
};

class TagContent : public testing::TestWithParam<Content> {};

TEST_P(TagContent, IsWhatStandsBetweenFirstOpeningAndFirstClosing) {
    const auto &[name, text, expected, expectedError] = GetParam();
    RuleState rule;
    EXPECT_EQ(test::errorNumber([&, &read = text] { readQueryParam(read, rule); }), expectedError);
    EXPECT_EQ(rule.strDateTime, expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TagContent,
    testing::Values(
        Content{"Plain", u"<DATETIME>x</DATETIME>", u"x"},
        Content{"Empty", u"<DATETIME></DATETIME>", u""}, Content{"NoTag", u"DATETIME", u""},
        Content{"OneSemicolonAtTheEnd", u"<DATETIME>x;</DATETIME>", u"x"},
        Content{"TwoSemicolonsAtTheEnd", u"<DATETIME>x;;</DATETIME>", u"x;"},
        Content{"ASemicolonAlone", u"<DATETIME>;</DATETIME>", u""},
        Content{"ASemicolonBeforeABlank", u"<DATETIME>; </DATETIME>", u"; "},
        Content{"ABracketBeforeTheOpening", u"<<DATETIME>x</DATETIME>", u"x"},
        Content{"ABracketBeforeTheClosing", u"<DATETIME>x<</DATETIME>", u"x<"},
        Content{"ABracketBehindTheOpening", u"<DATETIME><x</DATETIME>", u"<x"},
        Content{"APieceOfATagBefore", u"<DATETIM<DATETIME>x</DATETIME>", u"x"},
        Content{"APieceOfAClosingTagWithin", u"<DATETIME>x</DATETIM</DATETIME>", u"x</DATETIM"},
        Content{"APieceOfATagAtTheEnd", u"<DATETIME", u""},
        Content{"AnotherLetter", u"<DATETIMF>x</DATETIMF>", u""},
        Content{"AnotherCase", u"<DateTime>x</DateTime>", u""},
        Content{"TheOpeningTwice", u"<DATETIME><DATETIME>x</DATETIME>", u"<DATETIME>x"},
        Content{"TheClosingTwice", u"<DATETIME>x</DATETIME>y</DATETIME>", u"x"},
        Content{"BothTwice", u"<DATETIME>x</DATETIME><DATETIME>y</DATETIME>", u"x"},
        Content{"NoClosing", u"<DATETIME>x", u"", error_number::invalidCall},
        Content{"NothingBehindTheOpening", u"<DATETIME>", u"", error_number::invalidCall},
        Content{"TheClosingAlone", u"x</DATETIME>", u""},
        Content{"TheClosingBefore", u"</DATETIME><DATETIME>x</DATETIME>", u"",
                error_number::invalidCall},
        Content{"BehindAllMessages", u"<ALLMESSAGES><DATETIME>x</DATETIME>", u""},
        Content{"BeforeAllMessages", u"<DATETIME>x</DATETIME><ALLMESSAGES>", u""}),
    [](const auto &test) { return std::string(test.param.name); });

/// A content of PEOPLE, ACCOUNT and WORD, and what is read from it. PEOPLE and ACCOUNT give the
/// same.
struct Flags {
    const char *name;
    std::u16string content;
    std::u16string list;
    int negated, all;
    std::u16string words;
    int wordsNegated, wordsAll, asCommand;
};

class TagFlags : public testing::TestWithParam<Flags> {};

TEST_P(TagFlags, AreTakenFromTheFirstCharacters) {
    const Flags &expected = GetParam();
    RuleState rule;
    // What the content does not state keeps its value.
    rule.intPeopleNot = rule.intPeopleAll = rule.intAccountNot = rule.intAccountAll =
        rule.intWordsNot = rule.intWordsAll = rule.intAsCommand = 7;
    rule.strPeople = rule.varAccounts = rule.strWords = u"old";
    readQueryParam(u"<PEOPLE>" + expected.content + u"</PEOPLE><ACCOUNT>" + expected.content +
                       u"</ACCOUNT><WORD>" + expected.content + u"</WORD>",
                   rule);
    EXPECT_EQ(rule.strPeople, expected.list);
    EXPECT_EQ(rule.intPeopleNot, expected.negated);
    EXPECT_EQ(rule.intPeopleAll, expected.all);
    EXPECT_EQ(rule.varAccounts, expected.list);
    EXPECT_EQ(rule.intAccountNot, expected.negated);
    EXPECT_EQ(rule.intAccountAll, expected.all);
    EXPECT_EQ(rule.strWords, expected.words);
    EXPECT_EQ(rule.intWordsNot, expected.wordsNegated);
    EXPECT_EQ(rule.intWordsAll, expected.wordsAll);
    EXPECT_EQ(rule.intAsCommand, expected.asCommand);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TagFlags,
    testing::Values(
        Flags{"NoContent", u"", u"", 7, 7, u"", 7, 7, 7},
        Flags{"ASemicolonAlone", u";", u"", 7, 7, u"", 7, 7, 7},
        Flags{"ModifiersAlone", u"<NOT><ALL>", u"", 1, 1, u"", 1, 1, 0},
        Flags{"AffirmedAny", u"<CON><ANY>1;2", u"1;2", 0, 0, u"1;2", 0, 0, 0},
        Flags{"AffirmedAll", u"<CON><ALL>1;2", u"1;2", 0, 1, u"1;2", 0, 1, 0},
        Flags{"NegatedAny", u"<NOT><ANY>1;2", u"1;2", 1, 0, u"1;2", 1, 0, 0},
        Flags{"NegatedAll", u"<NOT><ALL>1;2;", u"1;2", 1, 1, u"1;2", 1, 1, 0},
        Flags{"TheOtherWayRound", u"<ALL><NOT>1", u"1", 1, 1, u"1", 1, 1, 0},
        Flags{"NoModifiers", u"9811100011;98", u";98", 0, 0, u";98", 0, 0, 0},
        Flags{"NineCharacters", u"123456789", u"", 0, 0, u"", 0, 0, 0},
        Flags{"EndingAtTheTenth", u"12345<NOT>x", u"x", 1, 0, u"x", 1, 0, 0},
        Flags{"EndingAtTheEleventh", u"123456<NOT>x", u">x", 0, 0, u">x", 1, 0, 0},
        Flags{"EndingAtTheTwentyFirst", u"1234567890123456<ALL>x", u"123456<ALL>x", 0, 0,
              u"123456<ALL>x", 0, 1, 0},
        Flags{"EndingAtTheTwentySecond", u"12345678901234567<ALL>x", u"1234567<ALL>x", 0, 0,
              u"1234567<ALL>x", 0, 0, 0},
        Flags{"ACommand", u"<CON><ANY><ASCOMMAND>STOP", u"<ASCOMMAND>STOP", 0, 0, u"STOP", 0, 0, 1},
        Flags{"ACommandWithoutWords", u"<NOT><ALL><ASCOMMAND>", u"<ASCOMMAND>", 1, 1, u"", 1, 1, 1},
        Flags{"ACommandThatBeginsEarlier", u"<ASCOMMAND>STOP;HALT;GO", u">STOP;HALT;GO", 0, 0,
              u"GO", 0, 0, 1},
        Flags{"ACommandThatBeginsLater", u"<CON><ANY>x<ASCOMMAND>y", u"x<ASCOMMAND>y", 0, 0,
              u"x<ASCOMMAND>y", 0, 0, 0},
        Flags{"AnotherCase", u"<not><all>1", u"1", 0, 0, u"1", 0, 0, 0}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace
} // namespace kvex
