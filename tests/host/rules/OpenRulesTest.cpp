#include "host/rules/OpenRules.h"

#include "host/rules/RuleChanges.h"
#include "host/suite/Databases.h"
#include "platform/Text.h"
#include "tests/support/RaisedError.h"
#include "tests/support/TestDatabase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kvex::host {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

/// Three rules with the ids 1, 2 and 3.
class ThreeRules : public test::TestDatabase {
public:
    ThreeRules() {
        int priority = 0;
        for (const char *name : {"a", "b", "c"}) {
            addRule(name, "q", "x", ++priority);
        }
    }
};

class OpenRulesTest : public testing::Test {
protected:
    /// A user of their own, with a connection of their own.
    struct User {
        explicit User(const test::TestDatabase &database)
            : connection(openDatabase(database.connectionString())), open(*connection) {}
        std::optional<Error> store(Rules wanted) {
            return test::raisedBy([&] {
                open.store(wanted);
                return 0;
            });
        }
        std::unique_ptr<recordset::ClientConnection> connection;
        OpenRules open;
    };

    /// "ID|NAME|ACTIVE|PRIORITY|QueryParam|ActionParam" of each rule.
    std::vector<std::string> stored() {
        return database_.rows("SELECT ID, Name, ACTIVE, PRIORITY, QueryParam, ActionParam FROM "
                              "SMS_RULES ORDER BY PRIORITY, ID");
    }
    static void expectChangedByAnother(const std::optional<Error> &error) {
        ASSERT_TRUE(error);
        EXPECT_EQ(error->number(), rowChangedByAnother);
        EXPECT_EQ(error->helpContext(), HelpContext::changedByAnother);
        EXPECT_THAT(toUtf8(error->description()), EndsWith(" Nothing was changed."));
    }

    ThreeRules database_;
    User user_{database_};
};

TEST_F(OpenRulesTest, StoreWhatDiffers) {
    Rules wanted = user_.open.rules();
    wanted[0].name = u"don't रात 🌙";
    wanted[0].isActive = false;
    wanted[1].priority = u"9";
    wanted[2].queryParam = u"Q";
    wanted[2].actionParam = u"X";
    EXPECT_FALSE(user_.store(wanted));
    EXPECT_THAT(stored(), ElementsAre("1|don't रात 🌙|0|1|q|x", "3|c|1|3|Q|X", "2|b|1|9|q|x"));
}

TEST_F(OpenRulesTest, RemoveWhatIsNotWanted) {
    EXPECT_FALSE(user_.store({user_.open.rules()[1]}));
    EXPECT_THAT(stored(), ElementsAre("2|b|1|2|q|x"));
}

TEST_F(OpenRulesTest, AddRulesWithoutAnIdAndGiveThemOne) {
    Rules wanted = user_.open.rules();
    wanted.insert(wanted.begin(), {u"", u"new 🌙", false, u"0", u"q;\r\nरात", u"  x "});
    user_.open.store(wanted);
    EXPECT_EQ(wanted[0].id, u"4");
    EXPECT_EQ(stored()[0], "4|new 🌙|0|0|q;\r\nरात|  x ");
    EXPECT_EQ(stored().size(), 4);
}

TEST_F(OpenRulesTest, LeaveAValueThatReadsTheSameAsItIs) {
    database_.execute("UPDATE SMS_RULES SET ACTIVE = NULL, QueryParam = NULL WHERE ID = 1");
    database_.execute("UPDATE SMS_RULES SET ACTIVE = 2 WHERE ID = 2");
    User user(database_);
    Rules wanted = user.open.rules();
    for (StoredRule &rule : wanted) {
        rule.name += u"!";
    }
    EXPECT_FALSE(user.store(wanted));
    EXPECT_THAT(stored(), ElementsAre("1|a!|NULL|1|NULL|x", "2|b!|2|2|q|x", "3|c!|1|3|q|x"));
    User next(database_);
    EXPECT_FALSE(next.store(switched(next.open.rules(), {u"1", u"2"}, true)));
    EXPECT_THAT(database_.rows("SELECT ACTIVE FROM SMS_RULES ORDER BY ID"),
                ElementsAre("1", "1", "1"));
}

TEST_F(OpenRulesTest, StoreNothingWhenOneRuleIsRefused) {
    const auto before = stored();
    database_.refuseChanges("c");
    const auto error = user_.store(switched(user_.open.rules(), {u"1", u"2", u"3"}, false));
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->fromDatabase());
    EXPECT_THAT(toUtf8(error->description()), EndsWith(" Nothing was changed."));
    EXPECT_EQ(stored(), before);
}

TEST_F(OpenRulesTest, TellTheSecondOfTwoUsersWhoSwitchTheSameRule) {
    User other(database_);
    EXPECT_FALSE(other.store(switched(other.open.rules(), {u"3"}, false)));
    const auto before = stored();
    expectChangedByAnother(user_.store(switched(user_.open.rules(), {u"1", u"2", u"3"}, false)));
    EXPECT_EQ(stored(), before);
}

TEST_F(OpenRulesTest, TellTheSecondOfTwoUsersWhoMoveRules) {
    User other(database_);
    EXPECT_FALSE(other.store(moved(other.open.rules(), u"3", {Place::Side::before, u"2"})));
    const auto before = stored();
    expectChangedByAnother(
        user_.store(moved(user_.open.rules(), u"1", {Place::Side::behind, u"3"})));
    EXPECT_EQ(stored(), before);
}

TEST_F(OpenRulesTest, RemoveNoRuleInWhichAnythingHasChanged) {
    for (const std::string column : {"Name", "ActionParam"}) {
        User user(database_);
        database_.execute("UPDATE SMS_RULES SET " + column + " = 'changed' WHERE ID = 2");
        const auto before = stored();
        expectChangedByAnother(user.store(without(user.open.rules(), {u"1", u"2"})));
        EXPECT_EQ(stored(), before);
    }
}

TEST_F(OpenRulesTest, TellWhenARuleIsGone) {
    database_.execute("DELETE FROM SMS_RULES WHERE ID = 2");
    expectChangedByAnother(user_.store(switched(user_.open.rules(), {u"2"}, false)));
}

TEST_F(OpenRulesTest, LeaveRulesAloneThatAnotherChangesMeanwhile) {
    User other(database_);
    EXPECT_FALSE(other.store(renamed(other.open.rules(), u"1", u"A")));
    EXPECT_FALSE(user_.store(switched(user_.open.rules(), {u"1", u"2"}, false)));
    EXPECT_THAT(stored(), ElementsAre("1|A|0|1|q|x", "2|b|0|2|q|x", "3|c|1|3|q|x"));
}

TEST_F(OpenRulesTest, FailAtOnceWithoutAKey) {
    database_.execute("CREATE TABLE COPY AS SELECT * FROM SMS_RULES");
    database_.execute("DROP TABLE SMS_RULES");
    database_.execute("ALTER TABLE COPY RENAME TO SMS_RULES");
    User user(database_);
    const auto error = test::raisedBy([&] {
        user.open.requireWritable();
        return 0;
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->helpContext(), HelpContext::noPrimaryKey);
}

} // namespace
} // namespace kvex::host
