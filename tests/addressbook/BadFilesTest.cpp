// Files that are cut off, damaged or not contact files at all. Reading one gives contacts, skipped
// entries or an error's sentence.
#include "tests/addressbook/ContactFileLines.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kvex::host {
namespace {

using namespace std::string_literals;

/// The lines of linesOf(), or the error's sentence.
Lines outcome(const std::string &bytes) {
    try {
        return linesOf(readContactFile(bytes, false));
    } catch (const std::invalid_argument &error) {
        return {error.what()};
    }
}

std::string utf16(std::u16string_view text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text) {
        bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    }
    return bytes;
}

const std::string goodCards =
    "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E0=A4=85;=\r\n=41\r\n"
    "TEL;CELL:98111\r\nEND:VCARD\r\nBEGIN:VCARD\r\nVERSION:4.0\r\nitem1.TEL;TYPE=\"cell,voice\":"
    "9\\;\r\n"
    " 8\r\nFN:🚨\r\nEND:VCARD\r\n";
const std::string goodTable =
    "sep=;\r\nName;Mobile;Phone 1 - Value;Phone 1 - Type\r\n"
    "\"Rao, \"\"A\"\"\";98111 ::: 98112;;\r\nअनिल 🚨;;\"97\r\n98\";* Mobile\r\n";
const std::string goodWide = utf16(u"Name,Mobile\nअनिल 🚨,98111\n");

TEST(BadFiles, AreRefusedWithTheReason) {
    const Lines noText{"It is not text: it holds bytes of value 0."};
    const Lines noTable{
        "Its first row names no column of numbers. Name the columns there, as in: Name,Mobile"};
    EXPECT_EQ(outcome(""), noTable);
    EXPECT_EQ(outcome("\xEF\xBB\xBF"), noTable);
    EXPECT_EQ(outcome("\xFF\xFE"), noTable);
    EXPECT_EQ(outcome("\"\"\"\"\"\""), noTable);
    EXPECT_EQ(outcome("\xFF\xD8\xFF\xE0\x10JFIF\x01\xFE\x80\x81"), noTable);
    EXPECT_EQ(outcome("\0\0"s), noText);
    EXPECT_EQ(outcome("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\x10\0\0\0\x10"s), noText);
    EXPECT_EQ(outcome(goodCards + "\0"s), noText);
    EXPECT_EQ(outcome("Name,Mobile\n\"A,98\n"), (Lines{"2: the quotation mark is not closed"}));
    EXPECT_EQ(outcome("BEGIN:VCARD"), (Lines{"1: the card has no END"}));
    EXPECT_EQ(outcome("BEGIN:VCARD\n:\n;\n=\nEND:VCARD\n"),
              (Lines{"2: the line is not one of a vCard"}));
}

TEST(BadFiles, InUtf16LoseOnlyTheRowThatIsBroken) {
    const std::string broken = "the row holds bytes that are not a character";
    EXPECT_EQ(outcome(utf16(u"Name,Mobile\nA\xD83D,1\nB,2\n\xDEA8,3\nC,4\n")),
              (Lines{"B: 2", "C: 4", "2: " + broken, "4: " + broken}));
    EXPECT_EQ(outcome(utf16(u"Name,Mobile\nA,1\nB,2") + "3"), (Lines{"A: 1", "3: " + broken}));
}

TEST(BadFiles, ThatAreCutOffAnywhereAreReadOrRefused) {
    for (const std::string *good : {&goodCards, &goodTable, &goodWide}) {
        for (std::size_t length = 0; length < good->size(); ++length) {
            EXPECT_FALSE(outcome(good->substr(0, length)).empty()) << length;
        }
    }
    EXPECT_EQ(outcome(goodCards).size() + outcome(goodTable).size() + outcome(goodWide).size(), 7U);
}

TEST(BadFiles, WithAnyByteDamagedAreReadOrRefused) {
    for (const std::string *good : {&goodCards, &goodTable, &goodWide}) {
        for (std::size_t at = 0; at < good->size(); ++at) {
            for (const char byte : "\xFF\n\r\"=;:, \\"s + "\0"s) {
                std::string damaged = *good;
                damaged[at] = byte;
                EXPECT_FALSE(outcome(damaged).empty()) << at << " " << int{byte};
            }
        }
    }
}

} // namespace
} // namespace kvex::host
