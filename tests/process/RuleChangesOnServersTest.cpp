// The commands that change rules, on each kind of database.
#include "tests/process/AnyDatabase.h"

namespace kvex::process {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class RuleChangesOn : public AnyDatabase {
protected:
    void SetUp() override { done({"init", "--sample"}); }

    /// "ID ACTIVE PRIORITY" of each rule.
    [[nodiscard]] std::vector<std::string> order() const {
        return rows("SELECT ID, ACTIVE, PRIORITY FROM SMS_RULES ORDER BY PRIORITY, ID");
    }
};

TEST_P(RuleChangesOn, AreStoredAndKept) {
    EXPECT_THAT(done({"users"}), HasSubstr("\n5  Zoë O'Neill\n6  Night shift 🌙\n"));
    EXPECT_THAT(done({"accounts"}), HasSubstr("\n3  RECEIVER     Short code 56070\n"));
    done({"enable", "5"});
    done({"move", "6", "--first"});
    const std::vector<std::string> before = content();
    const std::string output = done({"disable", "2", "3"});
    ASSERT_EQ(keptBackups().size(), 1);
    EXPECT_THAT(output, HasSubstr("kept: " + keptBackups().front().string()));
    EXPECT_EQ(contentOf(keptBackups().front()), before);
    EXPECT_EQ(done({"copy", "2", "--name", "रात 🌙 \"2\""}),
              "Rule 2 \"Help 🌙 at night\" is copied as rule 8 \"रात 🌙 \"2\"\" at 4, switched "
              "off.\n");
    EXPECT_EQ(valueOf("SELECT COUNT(*) FROM SMS_RULES a, SMS_RULES b WHERE a.ID = 2 AND b.ID = 8 "
                      "AND a.QueryParam = b.QueryParam AND a.ActionParam = b.ActionParam"),
              "1");
    done({"rename", "7", "अजनबी 🌙"});
    EXPECT_EQ(valueOf("SELECT Name FROM SMS_RULES WHERE ID = 7"), "अजनबी 🌙");
    done({"remove", "1", "4", "--yes"});
    EXPECT_THAT(order(), ElementsAre("6|1|1", "2|0|2", "8|0|3", "3|0|4", "5|1|5", "7|1|6"));
}

TEST_P(RuleChangesOn, AreAllUndoneWhenOneRuleChangedMeanwhile) {
    const std::vector<std::string> before = order();
    const Outcome outcome = atTerminalAnswering({"remove", "1", "5"}, [&] {
        run("UPDATE SMS_RULES SET ActionParam = '<DELETE>NO</DELETE>' WHERE ID = 5");
        return "y\n";
    });
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, HasSubstr("Nothing was changed. To change what is stored now"));
    EXPECT_EQ(order(), before);
}

INSTANTIATE_TEST_SUITE_P(, RuleChangesOn, testing::ValuesIn(anyKinds()), anyKindName);

} // namespace
} // namespace kvex::process
