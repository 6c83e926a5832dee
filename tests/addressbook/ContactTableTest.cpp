#include "host/addressbook/ContactFile.h"

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

TEST(ContactTable, TakesEveryNumberOfTheBestKind) {
    EXPECT_EQ(
        outcome("Name,Business Phone,Home Phone,Home Phone 2,Business Fax,Mobile Phone\n"
                "A,1,2,3,4,5\nB,1,2,3,4,\nC,1,,3,4,\nD,1,,,4,\nE,,,,4,\n"),
        (Lines{"A: 5", "B: 2", "B: 3", "C: 3", "D: 1", "6: the row has no telephone number"}));
    EXPECT_EQ(outcome("Name,Other Phone,Work Phone,Home Phone,Phone\nA,1,2,3,4\nB,1,2,,\nC,1,,,\n"),
              (Lines{"A: 4", "B: 2", "C: 1"}));
}

TEST(ContactTable, SplitsACellOfSeveralNumbers) {
    EXPECT_EQ(outcome("Name,Mobile,Cell\nA,98111 ::: 98112,98112\nB,\"98113\r\n98114\",98115\n"),
              (Lines{"A: 98111", "A: 98112", "B: 98113", "B: 98114", "B: 98115"}));
}

TEST(ContactTable, NamesTheLineOfANumberThatCannotBeTaken) {
    EXPECT_EQ(outcome("Name;Mobile;Home Phone\nA;9,81111E+11;98\nB;'98;\nC;98;9,8E+11\n"),
              (Lines{"C: 98", "2: the number 9,81111E+11 lost its digits in a spreadsheet",
                     "3: the number '98 begins with a spreadsheet's text marker"}));
}

TEST(ContactTable, ReadsNumbersWithTheirLabels) {
    EXPECT_EQ(
        outcome(
            "Name,Phone 1 - Type,Phone 1 - Value,Phone 2 - Type,Phone 2 - Value\n"
            "A,Work,1,* Mobile,2 ::: 3\nB,Work,1,Home,2\nC,Work Fax,1,Pager,2\n"
            "D,Custom,1,Work,2\nE,Custom,1,,\nF,,1,Home,2\nG,Main,1,Home,2\nH,Mobile,1,Mobile,2\n"),
        (Lines{"A: 2", "A: 3", "B: 2", "D: 2", "E: 1", "F: 1", "G: 1", "H: 1", "H: 2",
               "4: the row has no telephone number"}));
    EXPECT_EQ(
        outcome("First Name,Middle Name,Last Name,Organization Name,Phone 1 - Label,Phone 1 - "
                "Value,Phone 2 - Label,Phone 2 - Value\n"
                "Asha,Devi,Rao,Acme,Home,1,Mobil,2\n,,,Acme,,3,,\n"),
        (Lines{"Asha Devi Rao: 2", "Acme: 3"}));
    EXPECT_EQ(outcome("Name,Phone 1 - Value\nA,1\n"), (Lines{"A: 1"}));
}

TEST(ContactTable, HonoursTheSeparatorThatTheFirstLineNames) {
    EXPECT_EQ(outcome("sep=;\r\nName;Mobile\r\nRao, Asha;98\r\nB;\r\n"),
              (Lines{"Rao, Asha: 98", "4: the row has no telephone number"}));
    EXPECT_EQ(outcome("\"SEP=|\"\nName|Mobile\nA|98\n"), (Lines{"A: 98"}));
    EXPECT_EQ(outcome("sep=\t\nName\tMobile\nA\t98\n"), (Lines{"A: 98"}));
    EXPECT_EQ(outcome("sep=,\nName,Mobile\nA;B,98\n"), (Lines{"A;B: 98"}));
    EXPECT_THROW(static_cast<void>(readContactTable("sep=;\nName,Mobile\nA,98\n")),
                 std::invalid_argument);
    EXPECT_THROW(static_cast<void>(readContactTable("sep=;")), std::invalid_argument);
}

TEST(ContactTable, KnowsTheHeadingsOfOtherLanguages) {
    for (const char *header :
         {"Vorname;Nachname;Mobiltelefon", "Vorname;Name;Handy", "Vorname;Nachname;Mobil-Tel.-Nr.",
          "Prénom;Nom;Tél. mobile", "PRÉNOM;NOM;Téléphone portable", "Prenom;Nom;Mobile",
          "Pre\u0301nom;Nom;Te\u0301l. mobile", "Nombre;Apellidos;Teléfono móvil",
          "Nombre;Apellido;Celular", "पहला नाम;अंतिम नाम;मोबाइल फ़ोन", "प्रथम नाम;कुलनाम;मोबाइल नंबर",
          "पहला नाम;उपनाम;मोबाइल फोन"}) {
        EXPECT_EQ(outcome(std::string(header) + "\nAsha;Rao;98\n"), (Lines{"Asha Rao: 98"}))
            << header;
    }
    for (const char *header :
         {"Name;Telefon", "Anzeigename;Telefon (privat)", "Name;Telefon geschäftlich 2",
          "Nom complet;Téléphone (domicile)", "Nom;Téléphone 2 (bureau)", "Nom;Autre téléphone",
          "Nombre completo;Teléfono particular", "Nombre;Teléfono del trabajo", "नाम;फ़ोन",
          "पूरा नाम;दूरभाष", "Firma;Haupttelefon", "Société;N° de mobile"}) {
        EXPECT_EQ(outcome(std::string(header) + "\nAsha;98\n"), (Lines{"Asha: 98"})) << header;
    }
    EXPECT_EQ(outcome("Name,Vorname,Nachname,Handy\nAsha Rao,A,R,98\n"), (Lines{"Asha Rao: 98"}));
}

TEST(ContactTable, TakesTheColumnNameForTheFullNameBesideAFirstName) {
    EXPECT_EQ(outcome("Name,First Name,Mobile\nAsha Rao,Asha,98\n"), (Lines{"Asha Rao: 98"}));
}

TEST(ContactTable, RefusesAHeaderWithoutRows) {
    for (const char *text : {"Name,Mobile", "Name,Mobile\n\n \n", "sep=,\nName,Mobile\n"}) {
        try {
            static_cast<void>(readContactTable(text));
            FAIL() << "no error was raised for " << text;
        } catch (const std::invalid_argument &error) {
            EXPECT_STREQ(error.what(), "Its first row names the columns, but no row follows.");
        }
    }
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
                     "8: the row holds bytes that are not a character"}));
}

TEST(ContactTable, NamesTheLineOfWhatIsTooLong) {
    const std::string most(255, 'a');
    EXPECT_EQ(
        outcome("Name,Mobile\n" + most + ",98\na" + most + ",98\nB,9" + most + "\nC,9" +
                most.substr(1) + "\n"),
        (Lines{most + ": 98", "C: 9" + most.substr(1), "3: the name is longer than 255 characters",
               "4: the number is longer than 255 characters"}));
    const std::string mebibyte(std::size_t{1024} * 1024, 'a');
    EXPECT_EQ(outcome("Name,Mobile,Note\nA,98," + mebibyte.substr(5) + "\nB,98," +
                      mebibyte.substr(4) + "\nC,98\n\"" + mebibyte),
              (Lines{"A: 98", "C: 98", "3: the row is longer than 1 MiB",
                     "5: the row is longer than 1 MiB"}));
}

TEST(ContactTable, RefusesAFirstRowThatNamesNoNumber) {
    for (const char *text : {"", "\n\n", "Asha,98\n", "Name,E-mail\nA,a@b\n", "\xFF\xFEN\0a\0"}) {
        EXPECT_THROW(static_cast<void>(readContactTable(text)), std::invalid_argument) << text;
    }
}

} // namespace
} // namespace kvex::host
