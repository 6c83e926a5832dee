#include "host/addressbook/ContactSearch.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

using Texts = std::vector<std::u16string>;

std::vector<Contact>
contacts(std::initializer_list<std::pair<const char16_t *, const char16_t *>> namesAndNumbers) {
    std::vector<Contact> result;
    for (const auto &[name, number] : namesAndNumbers) {
        result.push_back({u"", name, number});
    }
    return result;
}

/// The names that the search finds, in order.
Texts names(const ContactSearch &search, std::u16string_view words) {
    Texts result;
    for (const std::size_t index : search.find(words)) {
        result.push_back(search[index].name);
    }
    return result;
}

TEST(ContactSearch, OrdersByNameWithoutRegardToCaseThenByNumber) {
    const ContactSearch search(
        contacts({{u"ravi", u"2"}, {u"Asha", u"1"}, {u"Ravi", u"1"}, {u"asha k", u"0"}}));
    EXPECT_EQ(names(search, u""), (Texts{u"Asha", u"asha k", u"Ravi", u"ravi"}));
}

TEST(ContactSearch, KeepsTheOrderOfEqualContacts) {
    const ContactSearch search({{u"2", u"A", u"1"}, {u"1", u"a", u"1"}});
    EXPECT_EQ(names(search, u""), (Texts{u"A", u"a"}));
}

TEST(ContactSearch, FindsEveryContactWithoutAWord) {
    const ContactSearch search(contacts({{u"A", u"1"}, {u"B", u"2"}}));
    EXPECT_EQ(search.find(u"").size(), 2U);
    EXPECT_EQ(search.find(u"   ").size(), 2U);
}

TEST(ContactSearch, NeedsEveryWordInAnyOrder) {
    const ContactSearch search(
        contacts({{u"Ravi Kumar", u"981"}, {u"Ravi Rao", u"982"}, {u"Kumar Sen", u"983"}}));
    EXPECT_EQ(names(search, u"kum rav"), (Texts{u"Ravi Kumar"}));
    EXPECT_EQ(names(search, u"  982   ravi "), (Texts{u"Ravi Rao"}));
    EXPECT_EQ(names(search, u"ravi 983"), Texts());
}

TEST(ContactSearch, IgnoresCaseInEveryScript) {
    const ContactSearch search(
        contacts({{u"ÉMILE Ünal", u"1"}, {u"अनिल गुप्ता", u"2"}, {u"🚨 duty", u"3"}}));
    EXPECT_EQ(names(search, u"émile üNAL"), (Texts{u"ÉMILE Ünal"}));
    EXPECT_EQ(names(search, u"गुप्"), (Texts{u"अनिल गुप्ता"}));
    EXPECT_EQ(names(search, u"🚨"), (Texts{u"🚨 duty"}));
}

TEST(ContactSearch, FindsDigitsDespiteSeparatorsBetweenThem) {
    const ContactSearch search(contacts({{u"A", u"+91 (98111) 000-11"}, {u"B", u"98.111/00022"}}));
    EXPECT_EQ(names(search, u"9811100011"), (Texts{u"A"}));
    EXPECT_EQ(names(search, u"+919811"), (Texts{u"A"}));
    EXPECT_EQ(names(search, u"98111-00022"), (Texts{u"B"}));
    EXPECT_EQ(names(search, u"000-11"), (Texts{u"A"}));
}

TEST(ContactSearch, MatchesMarksThatAreNotBetweenDigits) {
    const ContactSearch search(contacts({{u"A-B", u"1"}, {u"AB", u"2"}, {u"C (D)", u"3"}}));
    EXPECT_EQ(names(search, u"a-b"), (Texts{u"A-B"}));
    EXPECT_EQ(names(search, u"-"), (Texts{u"A-B"}));
    EXPECT_EQ(names(search, u"(d"), (Texts{u"C (D)"}));
}

TEST(ContactSearch, FindsNoWordAcrossNameAndNumber) {
    const ContactSearch search(contacts({{u"Line 1", u"23"}}));
    EXPECT_EQ(names(search, u"123"), Texts());
}

} // namespace
} // namespace kvex::host
