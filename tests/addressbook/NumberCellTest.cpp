#include "host/addressbook/NumberCell.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

using Texts = std::vector<std::string>;

/// The numbers of the cell, or what is wrong with it.
Texts outcome(std::string_view text) {
    const NumberCell cell = readNumberCell(text);
    Texts result;
    for (const std::u16string &number : cell.numbers) {
        result.push_back(toUtf8(number));
    }
    if (!cell.fault.empty()) {
        result.push_back("! " + cell.fault);
    }
    return result;
}

TEST(NumberCell, TakesOneNumberAsItIsWritten) {
    EXPECT_EQ(outcome(" +91 (98111) 000-11 "), (Texts{"+91 (98111) 000-11"}));
    EXPECT_EQ(outcome("0171/123.456"), (Texts{"0171/123.456"}));
    EXPECT_EQ(outcome("12"), (Texts{"12"}));
}

TEST(NumberCell, TakesNoNumberWithoutADigit) {
    for (const char *text : {"", "  ", "none", ":::", ";,|\n", "'", "none | also none", "="}) {
        EXPECT_EQ(outcome(text), Texts()) << text;
    }
}

TEST(NumberCell, TakesANumberWithoutItsScheme) {
    EXPECT_EQ(outcome("tel:+91-98111-00011"), (Texts{"+91-98111-00011"}));
    EXPECT_EQ(outcome(" TEL: tel:98111; Tel:98112"), (Texts{"98111", "98112"}));
    EXPECT_EQ(outcome("tel:"), Texts());
    EXPECT_EQ(outcome("tel98111"), (Texts{"tel98111"}));
    EXPECT_EQ(outcome("tel:'98111"),
              (Texts{"! the number '98111 begins with a spreadsheet's text marker"}));
}

TEST(NumberCell, SplitsAtWhatSeparatesNumbers) {
    for (const char *text : {"98111 ::: 98112", "98111:::98112", "98111;98112", "98111, 98112",
                             "98111|98112", "98111\n98112", "98111\r\n98112", "98111\r98112",
                             ";98111;;98112;", " ::: 98111 | 98112"}) {
        EXPECT_EQ(outcome(text), (Texts{"98111", "98112"})) << text;
    }
    EXPECT_EQ(outcome("12|34\n56 ::: 78"), (Texts{"12", "34", "56", "78"}));
    EXPECT_EQ(outcome("12;"), (Texts{"12"}));
}

TEST(NumberCell, RefusesWhatMayBeAPauseOrThousands) {
    EXPECT_EQ(outcome("9,811,100,011"),
              (Texts{"! the parts of 9,811,100,011 between \",\" and \";\" are not all numbers"}));
    EXPECT_EQ(outcome("98111;1234"),
              (Texts{"! the parts of 98111;1234 between \",\" and \";\" are not all numbers"}));
    EXPECT_EQ(outcome("98111,none"),
              (Texts{"! the parts of 98111,none between \",\" and \";\" are not all numbers"}));
}

TEST(NumberCell, RefusesANumberThatASpreadsheetRounded) {
    for (const std::string text : {"9,81111E+11", "9.81111E+11", "9e11", "+9.8E11", "-98,E-1"}) {
        EXPECT_EQ(outcome(text),
                  (Texts{"! the number " + text + " lost its digits in a spreadsheet"}));
    }
    EXPECT_EQ(outcome("98111 ::: 9,8E+11"),
              (Texts{"! the number 9,8E+11 lost its digits in a spreadsheet"}));
    EXPECT_EQ(outcome("98111;9E+11111"),
              (Texts{"! the number 9E+11111 lost its digits in a spreadsheet"}));
}

TEST(NumberCell, TakesLettersThatAreNoExponent) {
    for (const char *text : {"9E", "E9", "9.8", "9 E 11", "9E11a", "98 ext 5", "9E+"}) {
        EXPECT_EQ(outcome(text), (Texts{text}));
    }
}

TEST(NumberCell, RefusesASpreadsheetsTextMarker) {
    EXPECT_EQ(outcome("'98111"),
              (Texts{"! the number '98111 begins with a spreadsheet's text marker"}));
    EXPECT_EQ(outcome(" ’98111"),
              (Texts{"! the number ’98111 begins with a spreadsheet's text marker"}));
    EXPECT_EQ(outcome("=\"98111\""),
              (Texts{"! the number =\"98111\" begins with a spreadsheet's text marker"}));
    EXPECT_EQ(outcome("98111;'98112"),
              (Texts{"! the number '98112 begins with a spreadsheet's text marker"}));
    EXPECT_EQ(outcome("98'111"), (Texts{"98'111"}));
}

} // namespace
} // namespace kvex::host
