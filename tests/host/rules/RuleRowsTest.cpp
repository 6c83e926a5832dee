#include "host/rules/RuleRows.h"

#include "host/suite/Databases.h"
#include "tests/support/RaisedError.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

class RuleRows : public testing::Test {
protected:
    test::TestDatabase database_;
    std::unique_ptr<recordset::ClientConnection> connection_ =
        openDatabase(database_.connectionString());
};

TEST_F(RuleRows, AreInTheOrderOfTheirPrioritiesThenOfTheirIds) {
    database_.addRule("c", "q3", "a3", 2);
    database_.addRule("a", "q1", "a1", 1, 0);
    database_.addRule("b", "q2", "a2", 1);
    database_.addRule("gone");
    database_.execute("UPDATE SMS_RULES SET DELETED = 1 WHERE Name = 'gone'");
    const auto rules = readRules(*connection_);
    ASSERT_EQ(rules.size(), 3);
    EXPECT_EQ(rules[0].id, u"2");
    EXPECT_EQ(rules[0].name, u"a");
    EXPECT_EQ(rules[0].isActive, false);
    EXPECT_EQ(rules[0].priority, u"1");
    EXPECT_EQ(rules[0].queryParam, u"q1");
    EXPECT_EQ(rules[0].actionParam, u"a1");
    EXPECT_EQ(rules[1].name, u"b");
    EXPECT_EQ(rules[1].isActive, true);
    EXPECT_EQ(rules[2].name, u"c");
}

TEST_F(RuleRows, CanLeaveOutTheStrings) {
    database_.addRule("a", "q1", "a1", 4);
    const auto rules = readRules(*connection_, Strings::leaveOut);
    ASSERT_EQ(rules.size(), 1);
    EXPECT_EQ(rules[0].name, u"a");
    EXPECT_EQ(rules[0].priority, u"4");
    EXPECT_EQ(rules[0].queryParam, u"");
    EXPECT_EQ(rules[0].actionParam, u"");
}

TEST_F(RuleRows, HaveTheirStringsWhenTheActionsOfOneSayYes) {
    const auto read = [&] {
        std::vector<std::u16string> strings;
        for (const StoredRule &rule : readRules(*connection_, Strings::ifOneSaysYes)) {
            strings.push_back(rule.name + u" " + rule.queryParam + u" " + rule.actionParam);
        }
        return strings;
    };
    database_.addRule("b", "YES", "yes", 2);
    database_.addRule("gone", "q", "YES");
    database_.execute("UPDATE SMS_RULES SET DELETED = 1 WHERE Name = 'gone'");
    database_.addRule("a", "q", "YE S", 1);
    database_.execute("INSERT INTO SMS_RULES (Name, PRIORITY) VALUES ('null', 3)");
    EXPECT_EQ(read(), (std::vector<std::u16string>{u"a  ", u"b  ", u"null  "}));
    database_.addRule("c", "q", "xYESx", 4, 0);
    EXPECT_EQ(read(),
              (std::vector<std::u16string>{u"a q YE S", u"b YES yes", u"null  ", u"c q xYESx"}));
}

TEST_F(RuleRows, HaveTheirStringsWhenABinaryValueSaysYes) {
    database_.addRule("a", "q", "no");
    for (const char *value : {"'x' || char(0) || 'YES'", "CAST('YES' AS BLOB)"}) {
        database_.execute(std::string("UPDATE SMS_RULES SET ActionParam = ") + value);
        EXPECT_EQ(readRules(*connection_, Strings::ifOneSaysYes).front().queryParam, u"q");
    }
}

TEST_F(RuleRows, ReadNullAsNothing) {
    database_.execute("INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY, ACTIVE) "
                      "VALUES (NULL, NULL, NULL, NULL, NULL)");
    const auto rules = readRules(*connection_);
    ASSERT_EQ(rules.size(), 1);
    EXPECT_EQ(rules[0].name, u"");
    EXPECT_EQ(rules[0].isActive, false);
    EXPECT_EQ(rules[0].priority, u"");
    EXPECT_EQ(rules[0].queryParam, u"");
    EXPECT_EQ(rules[0].actionParam, u"");
}

TEST_F(RuleRows, OfUsersAndAccountsAreTheLiveOnesInTheOrderOfTheirIds) {
    database_.addUser(7, "Anna");
    database_.addUser(3, "Ben");
    database_.addUser(5, "gone");
    database_.execute("UPDATE SMS_USERS SET DELETED = 1 WHERE ID = 5");
    database_.addAccount(9, "Main", "TRANSMITTER");
    database_.addAccount(2, "Spare", "RECEIVER");
    database_.addAccount(4, "gone");
    database_.execute("UPDATE SMS_ACCOUNT SET DELETED = 1 WHERE ID = 4");
    EXPECT_EQ(readUsers(*connection_), (std::vector<NamedRow>{{u"3", u"Ben"}, {u"7", u"Anna"}}));
    EXPECT_EQ(readAccounts(*connection_),
              (std::vector<AccountRow>{{{u"2", u"Spare"}, u"RECEIVER"},
                                       {{u"9", u"Main"}, u"TRANSMITTER"}}));
}

TEST_F(RuleRows, FailAsTheDatabaseDoes) {
    database_.execute("DROP TABLE SMS_RULES");
    const auto error = test::raisedBy([&] { return readRules(*connection_); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->fromDatabase());
}

} // namespace
} // namespace kvex::host
