#include "host/addressbook/ContactExport.h"

#include "tests/addressbook/ContactFileLines.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

using Contacts = std::vector<Contact>;

TEST(ContactExport, WritesACardForEachContact) {
    EXPECT_EQ(asVCards(Contacts{{u"3", u"Asha Rao", u"98 11"}, {u"4", u" ", u"12"}}),
              "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Asha Rao\r\nTEL;TYPE=cell:98 11\r\nEND:VCARD\r\n"
              "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:12\r\nTEL;TYPE=cell:12\r\nEND:VCARD\r\n");
    EXPECT_EQ(asVCards({}), "");
}

TEST(ContactExport, EscapesTheSeparatorsOfACardsValues) {
    EXPECT_EQ(asVCards(Contacts{{u"", u"a\\b,c;d\r\ne\"f:g", u"1;2"}}),
              "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:a\\\\b\\,c\\;d\\ne\"f:g\r\nTEL;TYPE=cell:1\\;2\r\n"
              "END:VCARD\r\n");
}

TEST(ContactExport, FoldsLongLinesBetweenCharacters) {
    const std::string a71(71, 'a');
    const std::string b72(72, 'b');
    EXPECT_EQ(asVCards(Contacts{{u"", fromUtf8(a71 + "é" + b72 + "🚨"), u"1"}}),
              "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:" + a71 + "\r\n é" + b72 +
                  "\r\n 🚨\r\nTEL;TYPE=cell:1\r\nEND:VCARD\r\n");
    EXPECT_EQ(asVCards(Contacts{{u"", fromUtf8(a71 + "b"), u"1"}}),
              "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:" + a71 + "b\r\nTEL;TYPE=cell:1\r\nEND:VCARD\r\n");
}

TEST(ContactExport, WritesATable) {
    EXPECT_EQ(asCsv(Contacts{{u"3", u"Asha; Rao", u"98 11"}, {u"4", u"", u"12"}}),
              "Name,Mobile\r\nAsha; Rao,98 11\r\n,12\r\n");
    EXPECT_EQ(asCsv({}), "Name,Mobile\r\n");
}

TEST(ContactExport, QuotesFieldsThatContainASeparator) {
    EXPECT_EQ(asCsv(Contacts{{u"", u"a,b", u"1\n2"}, {u"", u"a\rb", u"1"}, {u"", u"\"a\"", u"1"}}),
              "Name,Mobile\r\n\"a,b\",\"1\n2\"\r\n\"a\rb\",1\r\n\"\"\"a\"\"\",1\r\n");
}

TEST(ContactExport, IsReadAgainAsTheSameContacts) {
    const Contacts contacts{{u"", u"अनिल 🚨", u"+91 98-11"},
                            {u"", u"O'Neill \"Ace\", \\; Rao\\n|", u"(98) 11"},
                            {u"", u"=1+1", u"98/11"},
                            {u"", std::u16string(200, u'अ'), u"9"}};
    const Lines lines{"अनिल 🚨: +91 98-11", "O'Neill \"Ace\", \\; Rao\\n|: (98) 11", "=1+1: 98/11",
                      toUtf8(std::u16string(200, u'अ')) + ": 9"};
    EXPECT_EQ(linesOf(readContactFile(asVCards(contacts), true)), lines);
    EXPECT_EQ(linesOf(readContactFile(asCsv(contacts), false)), lines);
}

} // namespace
} // namespace kvex::host
