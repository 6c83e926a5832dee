#include "host/addressbook/Contacts.h"

#include "adapters/sqlite/SqliteError.h"
#include "host/suite/Databases.h"
#include "platform/Error.h"
#include "tests/support/RaisedError.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace kvex::test {
namespace {

using host::FileContact;
using Rows = std::vector<std::string>;
using Ids = std::vector<std::int64_t>;

class ContactStore : public testing::Test {
protected:
    host::StoredCount store(const std::vector<FileContact> &contacts) {
        return host::storeContacts(*connection, 1, contacts);
    }
    Rows stored() {
        return database.rows("SELECT USER_ID, NAME, MOBILE, DELETED FROM SMS_CONTACTS ORDER BY ID");
    }

    Rows deleted() { return database.rows("SELECT ID, DELETED FROM SMS_CONTACTS ORDER BY ID"); }

    TestDatabase database;
    std::unique_ptr<recordset::ClientConnection> connection =
        host::openDatabase(database.connectionString());
};

TEST_F(ContactStore, AddsTheContactsAsTheUsers) {
    const auto count = store({{u"O'Neill", u"98 11"}, {u"अनिल 🚨", u"+91"}});
    EXPECT_EQ(count.added, 2U);
    EXPECT_EQ(count.alreadyThere, 0U);
    EXPECT_EQ(stored(), (Rows{"1|O'Neill|98 11|0", "1|अनिल 🚨|+91|0"}));
}

TEST_F(ContactStore, AddsNoneTwice) {
    database.execute("INSERT INTO SMS_CONTACTS (USER_ID, NAME, MOBILE) VALUES (1, 'A', '1')");
    const auto count = store({{u"A", u"1"}, {u"A", u"2"}, {u"a", u"1"}, {u"A", u"2"}});
    EXPECT_EQ(count.added, 2U);
    EXPECT_EQ(count.alreadyThere, 2U);
    EXPECT_EQ(stored(), (Rows{"1|A|1|0", "1|A|2|0", "1|a|1|0"}));
}

TEST_F(ContactStore, DoesNotCountContactsOfOthersNobodysAndDeletedOnes) {
    database.execute("INSERT INTO SMS_CONTACTS (USER_ID, NAME, MOBILE, DELETED) VALUES "
                     "(2, 'A', '1', 0), (NULL, 'A', '1', 0), (1, 'A', '1', 1)");
    EXPECT_EQ(store({{u"A", u"1"}}).added, 1U);
}

TEST_F(ContactStore, StoresNothingWhenTheDatabaseRefusesOne) {
    database.execute("CREATE TRIGGER refuse BEFORE INSERT ON SMS_CONTACTS WHEN NEW.NAME = 'C' "
                     "BEGIN SELECT RAISE(ABORT, 'full'); END");
    EXPECT_EQ(test::errorNumber([&] {
                  store({{u"A", u"1"}, {u"B", u"2"}, {u"C", u"3"}, {u"D", u"4"}});
              }),
              sqlite::errorBase + SQLITE_CONSTRAINT_TRIGGER);
    EXPECT_EQ(stored(), Rows());
    EXPECT_EQ(store({{u"A", u"1"}}).added, 1U);
}

TEST_F(ContactStore, DoesNotAddAContactWhoseExportWouldReadTheSame) {
    database.execute("INSERT INTO SMS_CONTACTS (USER_ID, NAME, MOBILE) VALUES "
                     "(1, 'A' || char(13, 10) || ' B ', ' 1 '), (1, NULL, '2'), (1, ' ', '3')");
    EXPECT_EQ(store({{u"A  B", u"1"}, {u"2", u"2"}, {u"3", u"3"}}).alreadyThere, 3U);
    EXPECT_EQ(store({{u"A B", u"1"}}).added, 1U);
}

TEST_F(ContactStore, MarksTheUsersContactsAndNobodysAsDeleted) {
    database.execute("INSERT INTO SMS_CONTACTS (ID, USER_ID, NAME, MOBILE) VALUES "
                     "(9, 1, 'A', '1'), (3, NULL, 'B', '2'), (4, 1, 'C', '3'), (5, 2, 'D', '4')");
    EXPECT_EQ(host::removeContacts(*connection, 1, {9, 3}), Ids());
    EXPECT_EQ(deleted(), (Rows{"3|1", "4|0", "5|0", "9|1"}));
    EXPECT_EQ(host::removeContacts(*connection, 2, {5}), Ids());
    EXPECT_EQ(deleted(), (Rows{"3|1", "4|0", "5|1", "9|1"}));
}

TEST_F(ContactStore, RemovesNoneWhenOneIsNotThere) {
    database.execute("INSERT INTO SMS_CONTACTS (ID, USER_ID, NAME, MOBILE, DELETED) VALUES "
                     "(3, 1, 'A', '1', 0), (4, 2, 'B', '2', 0), (5, 1, 'C', '3', 1)");
    EXPECT_EQ(host::removeContacts(*connection, 1, {3, 4, 5, 6, -1}), (Ids{-1, 4, 5, 6}));
    EXPECT_EQ(deleted(), (Rows{"3|0", "4|0", "5|1"}));
    EXPECT_EQ(host::removeContacts(*connection, 1, {3}), Ids()) << "the transaction has ended";
}

TEST_F(ContactStore, RemovesNoneWhenTheDatabaseRefusesOne) {
    database.execute("INSERT INTO SMS_CONTACTS (ID, USER_ID, NAME, MOBILE) VALUES "
                     "(3, 1, 'A', '1'), (4, 1, 'B', '2')");
    database.execute("CREATE TRIGGER refuse BEFORE UPDATE ON SMS_CONTACTS WHEN NEW.NAME = 'B' "
                     "BEGIN SELECT RAISE(ABORT, 'no'); END");
    EXPECT_EQ(test::errorNumber([&] {
                  return host::removeContacts(*connection, 1, {3, 4});
              }),
              sqlite::errorBase + SQLITE_CONSTRAINT_TRIGGER);
    EXPECT_EQ(deleted(), (Rows{"3|0", "4|0"}));
}

TEST_F(ContactStore, GivesTheUsersContactsAndNobodys) {
    database.execute("INSERT INTO SMS_CONTACTS (ID, USER_ID, NAME, MOBILE, DELETED) VALUES "
                     "(9, 1, 'A', '1', 0), (3, NULL, NULL, NULL, 0), (4, 2, 'C', '3', 0), "
                     "(5, 1, 'D', '4', 1)");
    const auto contacts = host::readContacts(*connection, 1);
    ASSERT_EQ(contacts.size(), 2U);
    EXPECT_EQ(contacts[0].id, u"3");
    EXPECT_EQ(contacts[0].name + contacts[0].number, u"");
    EXPECT_EQ(contacts[1].id, u"9");
}

} // namespace
} // namespace kvex::test
