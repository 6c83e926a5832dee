#include "host/addressbook/ContactTable.h"

#include "tests/addressbook/ContactFileLines.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kvex::host {
namespace {

Lines outcome(std::string_view text) {
    return linesOf(readContactTable(text));
}

TEST(ContactTable, ReadsRowsOfAnyLineEnding) {
    EXPECT_EQ(outcome("Name,Mobile\r\nAsha,98\r\n\r\nRavi,99\nMeera,97"),
              (Lines{"Asha: 98", "Ravi: 99", "Meera: 97"}));
}

TEST(ContactTable, FindsTheSeparatorInTheFirstRow) {
    EXPECT_EQ(outcome("Name;Mobile\nRao, Asha;98\n"), (Lines{"Rao, Asha: 98"}));
    EXPECT_EQ(outcome("Name\tMobile\nRao; Asha\t98\n"), (Lines{"Rao; Asha: 98"}));
    EXPECT_EQ(outcome("Name\tMobile\n\t98\n"), (Lines{"98: 98"}));
}

TEST(ContactTable, ReadsQuotedFields) {
    EXPECT_EQ(outcome("\"Name\",\"Mobile\"\n\"Rao, \"\"Asha\"\"\r\nDesk\",\"98 11\"\n\"\",1\n"),
              (Lines{"Rao, \"Asha\" Desk: 98 11", "1: 1"}));
}

TEST(ContactTable, TakesAQuotationMarkInsideAFieldAsItIs) {
    EXPECT_EQ(outcome("Name,Mobile\nAsha \"Ace\" Rao,98\n"), (Lines{"Asha \"Ace\" Rao: 98"}));
}

TEST(ContactTable, KnowsItsColumnsWithoutRegardToCaseAndMarks) {
    EXPECT_EQ(outcome("e-mail,FULL_NAME,Phone Number\na@b,Asha,98\n"), (Lines{"Asha: 98"}));
    EXPECT_EQ(outcome("MOBILE NO.,Last Name,first-name\n98,Rao,Asha\n97,Rao,\n96,,Asha\n"),
              (Lines{"Asha Rao: 98", "Rao: 97", "Asha: 96"}));
    EXPECT_EQ(outcome("number\n98\n"), (Lines{"98: 98"}));
}

TEST(ContactTable, PrefersTheMobileOfARow) {
    EXPECT_EQ(outcome("Name,Phone,Mobile\nA,1,2\nB,1,\nC,1,none\n"),
              (Lines{"A: 2", "B: 1", "C: 1"}));
}

TEST(ContactTable, NamesTheLineOfARowWithoutANumber) {
    EXPECT_EQ(outcome("Name,Mobile\n\"A\nB\",\nC\nD,x\nE,5\n"),
              (Lines{"E: 5", "2: the row has no telephone number",
                     "4: the row has no telephone number", "5: the row has no telephone number"}));
}

TEST(ContactTable, NamesTheLineOfARowThatCannotBeRead) {
    EXPECT_EQ(outcome("Name,Mobile\n\"A\"x,1\nB,2\n\"C,3\nD,4\nRao, E,5\nF,6,,\nRen\xE9,7\n"),
              (Lines{"B: 2", "D: 4", "F: 6", "2: text follows the closing quotation mark",
                     "4: the quotation mark is not closed",
                     "6: the row has more fields than the first one",
                     "8: the row holds bytes that are no character"}));
}

TEST(ContactTable, RefusesAFirstRowThatNamesNoNumber) {
    for (const char *text : {"", "\n\n", "Asha,98\n", "Name,E-mail\nA,a@b\n", "\xFF\xFEN\0a\0"}) {
        EXPECT_THROW(static_cast<void>(readContactTable(text)), std::invalid_argument) << text;
    }
}

} // namespace
} // namespace kvex::host
