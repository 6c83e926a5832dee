#include "host/kvexrules/DescriptionFormat.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kvex::host {
namespace {

constexpr LONG black = 0;
constexpr LONG blue = 0xFF0000;
constexpr LONG red = 0x0000FF;

const DescriptionFormat &format(std::string_view name) {
    return *std::ranges::find(descriptionFormats(), name, &DescriptionFormat::name);
}

std::string shown(std::string_view name, const Description &description) {
    return format(name).rule("7", description);
}

const Description stop{{u"Apply this Rule\r\nIf the message contains the words ", black},
                       {u" (as SMS Command) ", red},
                       {u"STOP or HALT", blue},
                       {u"\r\nThen Delete it ", black}};

TEST(DescriptionFormat, OfTextIsExactlyTheText) {
    EXPECT_EQ(shown("text", stop), "Apply this Rule\n"
                                   "If the message contains the words  (as SMS Command) STOP or "
                                   "HALT\n"
                                   "Then Delete it \n");
    EXPECT_EQ(format("text").opening, "");
    EXPECT_EQ(format("text").between, "\n");
    EXPECT_EQ(format("text").closing, "");
}

TEST(DescriptionFormat, OfTextKeepsControlCharacters) {
    EXPECT_EQ(shown("text", {{u"a\tb\x1b\\", blue}}), "a\tb\x1b\\\n");
}

TEST(DescriptionFormat, OfTextOnATerminalMakesControlCharactersVisible) {
    const DescriptionFormat &terminal = textForTerminals();
    EXPECT_EQ(terminal.rule("7", stop), shown("text", stop));
    EXPECT_EQ(terminal.rule("7", {{u"a\x1b[2J\nb\\", blue}, {u"\r\nc", black}}),
              "a\\u{1b}[2J\\nb\\\\\nc\n");
    EXPECT_EQ(terminal.name, "text");
    EXPECT_EQ(terminal.opening, "");
    EXPECT_EQ(terminal.between, "\n");
    EXPECT_EQ(terminal.closing, "");
}

TEST(DescriptionFormat, OfColoursOnATerminalMakesControlCharactersVisible) {
    const DescriptionFormat &terminal = coloursForTerminals();
    EXPECT_EQ(terminal.rule("7", stop), shown("ansi", stop));
    EXPECT_EQ(terminal.rule("7", {{u"a\x1b[2J\nb\\", blue}, {u"\r\nc", black}}),
              "\x1b[34ma\\u{1b}[2J\\nb\\\\\x1b[0m\nc\n");
    EXPECT_EQ(terminal.between, "\n");
}

TEST(DescriptionFormat, OfTextBreaksAValuesLines) {
    EXPECT_EQ(shown("text", {{u"a\r\nb", blue}, {u"\r", black}, {u"\nc", black}}), "a\nb\nc\n");
}

TEST(DescriptionFormat, OfATerminalColoursValuesAndRemarks) {
    EXPECT_EQ(shown("ansi", stop), "Apply this Rule\n"
                                   "If the message contains the words \033[31m (as SMS Command) "
                                   "\033[0m\033[34mSTOP or HALT\033[0m\n"
                                   "Then Delete it \n");
}

TEST(DescriptionFormat, OfATerminalColoursEachLineOfAValue) {
    EXPECT_EQ(shown("ansi", {{u"a\r\n\r\nb", blue}}), "\033[34ma\033[0m\n\n\033[34mb\033[0m\n");
}

TEST(DescriptionFormat, OfATerminalSeparatesRulesByABlankLine) {
    EXPECT_EQ(format("ansi").opening, "");
    EXPECT_EQ(format("ansi").between, "\n");
    EXPECT_EQ(format("ansi").closing, "");
}

TEST(DescriptionFormat, OfATerminalHasAnyColour) {
    EXPECT_EQ(shown("ansi", {{u"a", 0x030201}}), "\033[38;2;1;2;3ma\033[0m\n");
}

TEST(DescriptionFormat, OfATerminalLetsNoValueControlIt) {
    EXPECT_EQ(shown("ansi", {{u"\x1b[2Ja", black}}), "\xEF\xBF\xBD[2Ja\n");
}

TEST(DescriptionFormat, OfAPageIsOneElementForEachRule) {
    EXPECT_EQ(shown("html", stop),
              "<pre id=\"rule-7\">Apply this Rule\n"
              "If the message contains the words <span style=\"color:#ff0000\"> (as SMS Command) "
              "</span><span style=\"color:#0000ff\">STOP or HALT</span>\n"
              "Then Delete it </pre>\n");
}

TEST(DescriptionFormat, OfAPageHasAnyColour) {
    EXPECT_EQ(shown("html", {{u"a", 0x030201}, {u"", 0x030201}}),
              "<pre id=\"rule-7\"><span style=\"color:#010203\">a</span></pre>\n");
}

TEST(DescriptionFormat, OfAPageBreaksLinesWithinAColour) {
    EXPECT_EQ(shown("html", {{u"a\r\nb", red}}),
              "<pre id=\"rule-7\"><span style=\"color:#ff0000\">a\nb</span></pre>\n");
}

TEST(DescriptionFormat, OfAPageEscapesMarkup) {
    EXPECT_EQ(shown("html", {{u"<b> & \"c\" ]]>\x0001", blue}}),
              "<pre id=\"rule-7\"><span style=\"color:#0000ff\">&lt;b&gt; &amp; \"c\" "
              "]]&gt;\xEF\xBF\xBD</span></pre>\n");
}

TEST(DescriptionFormat, OfAPageClosesWhatItOpens) {
    EXPECT_THAT(format("html").opening, testing::StartsWith("<!DOCTYPE html>\n<html "));
    EXPECT_THAT(format("html").opening, testing::EndsWith("<body>\n"));
    EXPECT_EQ(format("html").closing, "</body>\n</html>\n");
    EXPECT_EQ(format("html").between, "");
}

} // namespace
} // namespace kvex::host
