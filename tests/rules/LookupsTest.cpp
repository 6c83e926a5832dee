#include "rules/Lookups.h"

#include "tests/support/ComponentTest.h"

namespace kvex::test {
namespace {

class Lookups : public ComponentTest {};

TEST_F(Lookups, NamesAreFoundByIdAndTrimmed) {
    database.addUser(3, "  Asha  ");
    database.addAccount(2, "मुख्य \xF0\x9F\x93\xB1");
    openSession();
    EXPECT_EQ(GetUserName(3), u"Asha");
    EXPECT_EQ(GetAccountName(2), u"मुख्य \U0001F4F1");
    EXPECT_EQ(session().rsUsers->field(u"ID").int32(), 3);
}

TEST_F(Lookups, AnIdThatNoLiveRowHasIsEmptyAndLeavesTheEnd) {
    database.addUser(3, "Asha");
    database.addUser(4, "Gone");
    database.execute("UPDATE SMS_USERS SET DELETED = 1 WHERE ID = 4");
    openSession();
    EXPECT_EQ(GetUserName(4), u"");
    EXPECT_TRUE(session().rsUsers->eof());
}

TEST_F(Lookups, WithoutUsersAtTheStartNothingIsTouched) {
    openSession();
    database.addUser(3, "Asha");
    EXPECT_EQ(GetUserName(3), u"");
    session().rsUsers->close();
    EXPECT_EQ(GetUserName(3), u"");
    session().rsUsers->open(u"SELECT * FROM SMS_USERS", *session().cnMain);
}

TEST_F(Lookups, ANameWithoutValueIsLoggedAndEmpty) {
    database.execute("INSERT INTO SMS_USERS (ID, NAME) VALUES (3, NULL)");
    database.execute("INSERT INTO SMS_ACCOUNT (ID, NAME, BIND_MODE) VALUES (2, NULL, 'RECEIVER')");
    openSession();
    EXPECT_EQ(GetUserName(3), u"");
    EXPECT_EQ(GetAccountName(2), u"");
    expectLog({u"Sub: GetUserName, Module: General", u"Sub: GetAccountName, Module: General"});
}

TEST_F(Lookups, AClosedRecordSetIsLoggedAndEmpty) {
    database.addAccount(2, "Main");
    openSession();
    session().rsAccounts->close();
    EXPECT_EQ(GetAccountName(2), u"");
    expectLog({u"Sub: GetAccountName, Module: General"});
}

} // namespace
} // namespace kvex::test
