#include "host/addressbook/ContactFile.h"

#include "tests/addressbook/ContactFileLines.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kvex::host {
namespace {

Lines outcome(std::string_view text) {
    return linesOf(readVCards(text));
}

/// A card of version 4.0 with these lines. Adds the line breaks.
std::string card(std::string_view lines, std::string_view version = "4.0") {
    return "BEGIN:VCARD\r\nVERSION:" + std::string(version) + "\r\n" + std::string(lines) +
           "END:VCARD\r\n";
}

TEST(VCard, GivesNameAndNumberOfBothVersions) {
    EXPECT_EQ(outcome(card("FN:Asha Rao\r\nTEL:98111 00011\r\n", "3.0") +
                      card("FN:अनिल 🚨\r\nTEL;VALUE=text:+91-9811100033\r\n")),
              (Lines{"Asha Rao: 98111 00011", "अनिल 🚨: +91-9811100033"}));
}

TEST(VCard, TakesLinesThatEndInALineFeedAlone) {
    EXPECT_EQ(outcome("BEGIN:VCARD\nVERSION:3.0\nFN:A\nTEL:1\nEND:VCARD"), (Lines{"A: 1"}));
}

TEST(VCard, UnfoldsLinesAlsoInsideOfACharacter) {
    EXPECT_EQ(outcome(card("FN:Asha\r\n  R\xC3\r\n \xA9mi\r\n\t Rao\r\nTEL:9\r\n 8\r\n")),
              (Lines{"Asha Rémi Rao: 98"}));
}

TEST(VCard, DoesNotCareAboutCase) {
    EXPECT_EQ(outcome("begin:vcard\nversion:3.0\nfn:A\ntel;type=Cell:1\nend:VCard\n"),
              (Lines{"A: 1"}));
}

TEST(VCard, ReadsGroupsAndQuotedParameters) {
    EXPECT_EQ(outcome(card("FN:A\r\nitem1.TEL;X-LABEL=\"a;b:c,d\";TYPE=\"voice,cell\":98\r\n"
                           "item2.TEL:11\r\n")),
              (Lines{"A: 98"}));
}

TEST(VCard, ReadsEscapedCharacters) {
    EXPECT_EQ(outcome(card("FN:Rao\\, Asha\\; \\\\ O'Neill\\nDesk\r\nTEL:1\r\n")),
              (Lines{"Rao, Asha; \\ O'Neill Desk: 1"}));
}

TEST(VCard, BuildsAMissingNameFromItsPartsOrTheOrganisation) {
    EXPECT_EQ(outcome(card("N:Rao;Asha,Devi;K\\;;Dr.;Ph.D.\r\nTEL:1\r\n") +
                      card("FN:\r\nN:;;;;\r\nORG:Acme\\, Inc.;Sales\r\nTEL:2\r\n") +
                      card("TEL:3\r\n")),
              (Lines{"Dr. Asha Devi K; Rao Ph.D.: 1", "Acme, Inc. Sales: 2", "3: 3"}));
}

TEST(VCard, PrefersMobileNumbers) {
    EXPECT_EQ(outcome(card("FN:A\r\nTEL;TYPE=home:1\r\nTEL;TYPE=cell:2\r\nTEL;CELL:3\r\n"
                           "TEL;TYPE=work;TYPE=CELL:4\r\n")),
              (Lines{"A: 2", "A: 3", "A: 4"}));
}

TEST(VCard, WithoutAMobileTakesEveryNumberOfAPerson) {
    EXPECT_EQ(outcome(card("FN:A\r\nTEL;TYPE=home,voice:1\r\nTEL;TYPE=fax:2\r\nTEL:3\r\n"
                           "TEL;TYPE=pager:4\r\nTEL;TYPE=\"fax,voice\":5\r\n")),
              (Lines{"A: 1", "A: 3", "A: 5"}));
}

TEST(VCard, KeepsOnlyTheNumberOfATelephoneUri) {
    EXPECT_EQ(outcome(card("FN:A\r\nTEL;VALUE=uri;TYPE=cell:tel:+91-98111-00011;ext=5\r\n"
                           "TEL;VALUE=URI;TYPE=cell:TEL:98\r\nTEL;VALUE=uri:sip:a1@b\r\n")),
              (Lines{"A: +91-98111-00011", "A: 98"}));
}

TEST(VCard, NamesTheLineOfACardWithoutANumber) {
    EXPECT_EQ(
        outcome(card("FN:A\r\n") + card("FN:B\r\nTEL;TYPE=fax:1\r\n") +
                card("FN:C\r\nTEL:none\r\n") + card("FN:D\r\nTEL:1\r\n")),
        (Lines{"D: 1", "1: the card has no telephone number", "5: the card has no telephone number",
               "10: the card has no telephone number"}));
}

TEST(VCard, ReadsVersion21) {
    EXPECT_EQ(outcome(card("N:Rao;Asha\r\nTEL;HOME;VOICE:1\r\nTEL;PREF;CELL;VOICE:2\r\n"
                           "TEL;FAX:3\r\nPHOTO;ENCODING=BASE64;JPEG:/9j/4AAQ==\r\n\r\n",
                           "2.1")),
              (Lines{"Asha Rao: 2"}));
}

TEST(VCard, ReadsQuotedPrintable) {
    EXPECT_EQ(
        outcome(
            card("FN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E0=A4=85=E0=A4=A8=\r\n"
                 "=E0=A4=BF=E0=A4=B2 =3D=41=0D=0AB\r\nTEL;CELL:1\r\n",
                 "2.1") +
            card("N;QUOTED-PRINTABLE;CHARSET=ISO-8859-1:M=FCller;Ren=e9;;;\r\nTEL:2\r\n", "2.1") +
            card("N;ENCODING=quoted-printable:M=FCller\r\nTEL:3\r\n", "2.1") +
            card("ORG;ENCODING=QUOTED-PRINTABLE:Acme=\r\n\r\nTEL;ENCODING=QUOTED-PRINTABLE:=\r\n"
                 "4\r\n",
                 "2.1")),
        (Lines{"अनिल =A B: 1", "René Müller: 2", "Müller: 3", "Acme: 4"}));
}

TEST(VCard, DoesNotJoinALineThatIsNotQuotedPrintable) {
    EXPECT_EQ(outcome(card("NOTE:quoted-printable=\r\nFN:A=\r\nTEL:1\r\n", "2.1")),
              (Lines{"A=: 1"}));
}

TEST(VCard, KeepsTheBlankOfAFoldedLineInVersion21Alone) {
    EXPECT_EQ(outcome(card("FN:Asha\r\n Rao\r\nTEL:1\r\n", "2.1") +
                      card("FN:Asha\r\n Rao\r\nTEL:2\r\n", "3.0")),
              (Lines{"Asha Rao: 1", "AshaRao: 2"}));
}

TEST(VCard, UnfoldsEachCardByItsOwnVersion) {
    EXPECT_EQ(outcome(card("TEL:1\r\n", "2.1") +
                      "BEGIN:VCARD\r\nFN:Asha\r\n Rao\r\nVERSION:3.0\r\nTEL:2\r\nEND:VCARD\r\n"),
              (Lines{"1: 1", "AshaRao: 2"}));
    EXPECT_EQ(outcome(card("NOTE:VERSION 2.1\r\nX-VERSION:2.1\r\nFN:Asha\r\n Rao\r\nTEL:1\r\n")),
              (Lines{"AshaRao: 1"}));
}

TEST(VCard, NamesTheLineOfATextThatCannotBeDecoded) {
    EXPECT_EQ(
        outcome(card("FN;ENCODING=QUOTED-PRINTABLE:=4\r\nTEL:1\r\n", "2.1") +
                card("FN;ENCODING=QUOTED-PRINTABLE:=4X\r\nTEL:1\r\n", "2.1") +
                card("FN;ENCODING=QUOTED-PRINTABLE;CHARSET=KLINGON:=41\r\nTEL:1\r\n", "2.1") +
                card("FN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=E9\r\nTEL:1\r\n", "2.1") +
                card("NOTE;ENCODING=QUOTED-PRINTABLE:=4\r\nFN:A\r\nTEL:1\r\n", "2.1")),
        (Lines{"A: 1", "3: the quoted-printable text is not complete",
               "8: the quoted-printable text is not complete", "13: the character set is not known",
               "18: the text is not valid in its character set"}));
}

TEST(VCard, NamesACardWhoseQuotedPrintableTextSwallowsItsEnd) {
    EXPECT_EQ(
        outcome("BEGIN:VCARD\nVERSION:2.1\nTEL:1\nFN;ENCODING=QUOTED-PRINTABLE:A=\nEND:VCARD\n"),
        (Lines{"1: the card has no END"}));
    EXPECT_EQ(outcome("BEGIN:VCARD\nVERSION:2.1\nTEL:1\nFN;ENCODING=QUOTED-PRINTABLE:A="),
              (Lines{"1: the card has no END"}));
}

TEST(VCard, SplitsAValueOfSeveralNumbers) {
    EXPECT_EQ(
        outcome(card("FN:A\r\nTEL;TYPE=cell:98111 ::: 98112\r\nTEL;TYPE=cell:98113\\;98114\r\n")),
        (Lines{"A: 98111", "A: 98112", "A: 98113", "A: 98114"}));
}

TEST(VCard, NamesTheLineOfANumberThatCannotBeTaken) {
    EXPECT_EQ(outcome(card("FN:A\r\nTEL;TYPE=cell:9.8E+11\r\n") +
                      card("FN:B\r\nTEL;TYPE=home:9.8E+11\r\nTEL;TYPE=cell:1\r\n") +
                      card("FN:C\r\nTEL:1\r\nTEL:'2\r\nTEL:'3\r\n")),
              (Lines{"B: 1", "4: the number 9.8E+11 lost its digits in a spreadsheet",
                     "16: the number '2 begins with a spreadsheet's text marker"}));
}

TEST(VCard, NamesTheLineOfAnotherVersion) {
    EXPECT_EQ(outcome("BEGIN:VCARD\nVERSION:5.0\nTEL:1\nEND:VCARD\n"
                      "BEGIN:VCARD\nFN:A\nTEL:1\nEND:VCARD\n"),
              (Lines{"2: vCard version 5.0 is not supported, only 2.1, 3.0 and 4.0 are",
                     "5: the card has no version"}));
    EXPECT_EQ(outcome("BEGIN:VCARD\n=42\nVERSION:5.0\nTEL:1\nEND:VCARD\n"),
              (Lines{"3: vCard version 5.0 is not supported, only 2.1, 3.0 and 4.0 are"}));
}

TEST(VCard, NamesTheLineOfACardWhoseNameIsTooLong) {
    EXPECT_EQ(outcome(card("TEL:1\r\n") + card("FN:" + std::string(256, 'a') + "\r\nTEL:2\r\n")),
              (Lines{"1: 1", "5: the name is longer than 255 characters"}));
}

TEST(VCard, NamesTheLineThatIsNotAVCardLine) {
    EXPECT_EQ(outcome(card("FN:A\r\nTEL\r\n") + card("FN:B\r\nTEL;X=\"1:2\r\n") +
                      card("FN:C\r\n.TEL:1\r\n") + card("FN:D\r\n\r\nTEL:1\r\n")),
              (Lines{"D: 1", "4: the line is not one of a vCard",
                     "9: the line is not one of a vCard", "14: the line is not one of a vCard"}));
}

TEST(VCard, NamesTheLineThatIsNotUtf8) {
    EXPECT_EQ(outcome(card("FN:Ren\xE9\r\nTEL:1\r\n") + card("FN:B\r\nTEL:2\r\n")),
              (Lines{"B: 2", "3: the line holds bytes that are not a character"}));
}

TEST(VCard, NamesACardWithoutAnEnd) {
    EXPECT_EQ(outcome("BEGIN:VCARD\nVERSION:3.0\nTEL:1\n" + card("FN:B\r\nTEL:2\r\n") +
                      "BEGIN:VCARD\nVERSION:3.0\nTEL:3\n"),
              (Lines{"B: 2", "1: the card has no END", "9: the card has no END"}));
}

TEST(VCard, NamesTextBetweenCardsOnce) {
    EXPECT_EQ(outcome(card("TEL:1\r\n") + "FN:A\nTEL:2\n\nEND:VCARD\n" + card("TEL:3\r\n")),
              (Lines{"1: 1", "3: 3", "5: the text belongs to no card"}));
}

TEST(VCard, RefusesATextWithoutACard) {
    EXPECT_THROW(static_cast<void>(readVCards("")), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(readVCards("Name,Mobile\nA,1\n")), std::invalid_argument);
}

TEST(ContactFile, IsRecognisedByWhatItBeginsWith) {
    const std::string card = "\xEF\xBB\xBF\r\nBegin:vCard\nVERSION:3.0\nFN:A\nTEL:1\nEND:VCARD\n";
    EXPECT_EQ(readContactFile(card, false).contacts.size(), 1U);
    EXPECT_EQ(readContactFile("\xEF\xBB\xBFName,Mobile\nA,1\n", false).contacts.size(), 1U);
    EXPECT_THROW(static_cast<void>(readContactFile("Name,Mobile\nA,1\n", true)),
                 std::invalid_argument);
}

} // namespace
} // namespace kvex::host
