// The commands that change rules, on an SQLite file.
#include "tests/process/KvexrulesTest.h"

#include <algorithm>

namespace kvex::process {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const std::string dryRun = "Nothing is changed. This would be done:\n";

class RuleChanges : public KvexrulesTest {
protected:
    void SetUp() override { done({"init", "--sample"}); }

    [[nodiscard]] std::string content() const {
        return sqlite3(database, "SELECT * FROM SMS_RULES ORDER BY PRIORITY, ID");
    }
    /// The ids in the order of the priorities. The priorities must be 1, 2, 3 and so on.
    [[nodiscard]] std::string order() const {
        const std::string gaps = "SELECT COUNT(*) FROM (SELECT PRIORITY, ROW_NUMBER() OVER (ORDER "
                                 "BY PRIORITY) AS N FROM SMS_RULES) WHERE PRIORITY <> N";
        EXPECT_EQ(sqlite3(database, gaps), "0\n");
        std::string ids = sqlite3(database, "SELECT ID FROM SMS_RULES ORDER BY PRIORITY");
        std::ranges::replace(ids, '\n', ' ');
        return ids;
    }
    [[nodiscard]] std::filesystem::path backups() const {
        return folder / "home/.local/state/kvex/backups";
    }
    /// The backup that a message names last. It must hold what the database held before.
    void expectKept(const std::string &output, const std::string &before) const {
        const std::size_t at = output.rfind("kept: ");
        ASSERT_NE(at, std::string::npos) << output;
        const std::filesystem::path file = output.substr(at + 6, output.size() - at - 7);
        EXPECT_EQ(file.parent_path(), backups());
        EXPECT_EQ(sqlite3(file, "SELECT * FROM SMS_RULES ORDER BY PRIORITY, ID"), before);
    }
};

TEST_F(RuleChanges, SwitchRulesOnAndOff) {
    EXPECT_EQ(done({"enable", "5", "1"}), "Rule 1 \"Not stopped in March\" was already on.\n"
                                          "Rule 5 \"Advertisements\" is now on.\n");
    EXPECT_EQ(done({"disable", "5"}), "Rule 5 \"Advertisements\" is now off.\n");
    EXPECT_FALSE(std::filesystem::exists(backups()));
    const std::string before = content();
    const std::string output = done({"disable", "2", "3", "2"});
    EXPECT_THAT(output, StartsWith("Rule 2 \"Help 🌙 at night\" is now off.\n"
                                   "Rule 3 \"दिल्ली के संदेश\" is now off.\n"
                                   "kept: "));
    expectKept(output, before);
    EXPECT_EQ(sqlite3(database, "SELECT group_concat(ACTIVE) FROM SMS_RULES"), "1,0,0,1,0,1,1\n");
}

TEST_F(RuleChanges, MoveARuleAnywhere) {
    EXPECT_EQ(done({"move", "6", "--before", "2"}), "Rule 6 \"No services\" moved from 6 to 2.\n");
    EXPECT_EQ(order(), "1 6 2 3 4 5 7 ");
    EXPECT_EQ(done({"move", "1", "--after", "4"}),
              "Rule 1 \"Not stopped in March\" moved from 1 to 5.\n");
    EXPECT_EQ(order(), "6 2 3 4 1 5 7 ");
    done({"move", "7", "--first"});
    done({"move", "3", "--last"});
    EXPECT_EQ(order(), "7 6 2 4 1 5 3 ");
    EXPECT_EQ(done({"move", "3", "--last"}), "Rule 3 \"दिल्ली के संदेश\" was already at 7.\n");
    EXPECT_EQ(order(), "7 6 2 4 1 5 3 ");
}

TEST_F(RuleChanges, MoveNumbersRulesThatWereNotNumbered) {
    sqlite3(database, "UPDATE SMS_RULES SET PRIORITY = 10 * PRIORITY");
    sqlite3(database, "UPDATE SMS_RULES SET PRIORITY = NULL WHERE ID = 7");
    done({"move", "2", "--after", "3"});
    EXPECT_EQ(order(), "7 1 3 2 4 5 6 ");
}

TEST_F(RuleChanges, MoveNeedsExactlyOnePlace) {
    for (const std::vector<std::string> &arguments :
         {std::vector<std::string>{"move", "1"}, {"move", "1", "--first", "--last"}}) {
        EXPECT_THAT(failed(2, arguments), HasSubstr("one of --before ID, --after ID, --first"));
    }
    EXPECT_THAT(failed(2, {"move", "--first"}), HasSubstr("needs ID"));
    EXPECT_THAT(failed(1, {"move", "1", "--before", "70"}), HasSubstr("There is no rule 70."));
    EXPECT_THAT(failed(2, {"move", "1", "--after", "x"}), HasSubstr("\"x\" is not the id"));
}

TEST_F(RuleChanges, CopyARuleToTheByte) {
    sqlite3(database, "UPDATE SMS_RULES SET QueryParam = ' <ALLMESSAGES>' || char(13, 10) || 'ख🌙', "
                      "ActionParam = '<DELETE>YES</DELETE>;' WHERE ID = 4");
    EXPECT_EQ(done({"copy", "4", "--name", "  रात 🌙 "}),
              "Rule 4 \"Strangers\" is copied as rule 8 \"रात 🌙\" at 5, switched off.\n");
    EXPECT_EQ(order(), "1 2 3 4 8 5 6 7 ");
    EXPECT_EQ(sqlite3(database, "SELECT b.Name, b.ACTIVE, b.DELETED, hex(a.QueryParam) = "
                                "hex(b.QueryParam), hex(a.ActionParam) = hex(b.ActionParam) FROM "
                                "SMS_RULES a, SMS_RULES b WHERE a.ID = 4 AND b.ID = 8"),
              "रात 🌙|0|0|1|1\n");
}

TEST_F(RuleChanges, CopyAndRenameNeedANameThatTheEditorAccepts) {
    const std::string before = content();
    EXPECT_THAT(failed(2, {"copy", "4"}), HasSubstr("--name NAME"));
    EXPECT_THAT(failed(2, {"rename", "4"}), HasSubstr("needs NAME"));
    const std::string end = " Nothing was changed.\n";
    const std::string taken =
        "kvexrules: A Rule already exists in this name, please select a different name." + end;
    EXPECT_EQ(failed(1, {"copy", "4", "--name", "STRANGERS"}), taken);
    EXPECT_EQ(failed(1, {"rename", "4", "no Services"}), taken);
    EXPECT_EQ(failed(1, {"rename", "4", " "}), "kvexrules: Type a name for this Rule." + end);
    EXPECT_EQ(failed(1, {"copy", "4", "--name", "O'Neill"}),
              "kvexrules: A new name cannot have an apostrophe ('), because the rule editor cannot "
              "search for it." +
                  end);
    EXPECT_THAT(failed(2, {"rename", "4", "\xff"}), HasSubstr("no text in UTF-8"));
    EXPECT_EQ(content(), before);
}

TEST_F(RuleChanges, RenameARule) {
    sqlite3(database, "UPDATE SMS_RULES SET Name = 'O''Neill' WHERE ID = 4");
    EXPECT_EQ(done({"rename", "4", "O'Neill"}), "Rule 4 \"O'Neill\" is now \"O'Neill\".\n");
    EXPECT_EQ(done({"rename", "4", " अजनबी 🌙"}), "Rule 4 \"O'Neill\" is now \"अजनबी 🌙\".\n");
    EXPECT_EQ(sqlite3(database, "SELECT Name FROM SMS_RULES WHERE ID = 4"), "अजनबी 🌙\n");
}

TEST_F(RuleChanges, RemoveRulesAndNumberTheOthers) {
    const std::string before = content();
    const std::string output = done({"remove", "5", "1", "--yes"});
    EXPECT_THAT(output, StartsWith("Rule 1 \"Not stopped in March\" is removed.\n"
                                   "Rule 5 \"Advertisements\" is removed.\n"
                                   "kept: "));
    expectKept(output, before);
    EXPECT_EQ(order(), "2 3 4 6 7 ");
}

TEST_F(RuleChanges, RemoveAsksAtATerminal) {
    const std::string before = content();
    const std::string question = "Remove the rules 1 \"Not stopped in March\" and 5 "
                                 "\"Advertisements\"? [y/N] ";
    const Outcome no = atTerminal({"remove", "1", "5"}, "\n");
    EXPECT_EQ(no.status, 1);
    EXPECT_EQ(no.output, question + "kvexrules: Nothing was changed.\n");
    EXPECT_EQ(content(), before);
    EXPECT_FALSE(std::filesystem::exists(backups()));
    const Outcome yes = atTerminal({"remove", "1", "5"}, "y\n");
    EXPECT_EQ(yes.status, 0);
    EXPECT_THAT(yes.output, StartsWith(question + "Rule 1 "));
    EXPECT_EQ(order(), "2 3 4 6 7 ");
    EXPECT_THAT(atTerminal({"remove", "2"}, "n\n").output,
                StartsWith("Remove the rule 2 \"Help 🌙 at night\"? [y/N] "));
}

TEST_F(RuleChanges, RemoveRefusesWhereNobodyCanBeAsked) {
    const std::string before = content();
    EXPECT_THAT(failed(1, {"remove", "5"}),
                AllOf(HasSubstr("nothing was changed"), HasSubstr("--yes")));
    EXPECT_EQ(content(), before);
}

TEST_F(RuleChanges, RemoveNoRuleThatChangedSinceTheQuestion) {
    const Outcome outcome = atTerminalAnswering({"remove", "1", "5"}, [&] {
        done({"rename", "5", "Not to be removed"});
        return "y\n";
    });
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output,
                AllOf(HasSubstr("The removal of record ID 5 was not stored. Another user"),
                      HasSubstr("Nothing was changed. To change what is stored now, run the "
                                "command again.")));
    EXPECT_EQ(order(), "1 2 3 4 5 6 7 ");
}

TEST_F(RuleChanges, OfADryRunAreOnlyPrinted) {
    const std::string before = content();
    EXPECT_EQ(done({"disable", "4", "6", "--dry-run"}),
              dryRun + "Rule 4 \"Strangers\" is now off.\nRule 6 \"No services\" is now off.\n");
    EXPECT_EQ(done({"enable", "5", "--dry-run"}),
              dryRun + "Rule 5 \"Advertisements\" is now on.\n");
    EXPECT_EQ(done({"move", "4", "--first", "--dry-run"}),
              dryRun + "Rule 4 \"Strangers\" moved from 4 to 1.\n");
    EXPECT_EQ(done({"copy", "4", "--name", "new", "--dry-run"}),
              dryRun + "Rule 4 \"Strangers\" is copied \"new\" at 5, switched off.\n");
    EXPECT_EQ(done({"rename", "4", "new", "--dry-run"}),
              dryRun + "Rule 4 \"Strangers\" is now \"new\".\n");
    EXPECT_EQ(done({"remove", "4", "--dry-run"}), dryRun + "Rule 4 \"Strangers\" is removed.\n");
    failed(1, {"rename", "4", "no services", "--dry-run"});
    EXPECT_EQ(content(), before);
    EXPECT_FALSE(std::filesystem::exists(backups()));
}

TEST_F(RuleChanges, WithUnknownIdsAreRefusedWhole) {
    const std::string before = content();
    const std::string rest = ". Nothing was changed. To list the rules: kvexrules list\n";
    for (const std::string verb : {"enable", "disable", "remove"}) {
        EXPECT_EQ(failed(1, {verb, "99", "1", "-4", "99"}),
                  "kvexrules: There are no rules 99 and -4" + rest);
        EXPECT_THAT(failed(2, {verb, "1", "two"}), HasSubstr("\"two\" is not the id of a rule."));
        EXPECT_THAT(failed(2, {verb}), HasSubstr("needs ID"));
    }
    EXPECT_EQ(failed(1, {"move", "99", "--first"}), "kvexrules: There is no rule 99" + rest);
    EXPECT_EQ(failed(1, {"copy", "99", "--name", "a"}), "kvexrules: There is no rule 99" + rest);
    EXPECT_EQ(failed(1, {"rename", "99", "a"}), "kvexrules: There is no rule 99" + rest);
    EXPECT_EQ(content(), before);
}

TEST_F(RuleChanges, ThatTheDatabaseRefusesChangeNothing) {
    sqlite3(database, "CREATE TRIGGER no BEFORE UPDATE ON SMS_RULES WHEN OLD.ID = 4 BEGIN SELECT "
                      "RAISE(ABORT, 'not four'); END");
    const std::string before = content();
    EXPECT_THAT(failed(1, {"disable", "1", "4"}),
                AllOf(HasSubstr("The change of record ID 4 was not stored."), HasSubstr("not four"),
                      HasSubstr("Nothing was changed.")));
    failed(1, {"remove", "1", "--yes"});
    EXPECT_EQ(content(), before);
}

TEST_F(RuleChanges, WithoutAPlaceForTheBackupChangeNothing) {
    writeFile(folder / "home/.local/state", "a file");
    const std::string before = content();
    EXPECT_THAT(failed(1, {"disable", "1", "2"}), HasSubstr("home/.local/state"));
    EXPECT_EQ(content(), before);
    done({"disable", "1"});
}

TEST_F(RuleChanges, OfADatabaseThatCannotBeReadEndWithTwo) {
    for (const std::vector<std::string> &arguments : {std::vector<std::string>{"enable", "1"},
                                                      {"move", "1", "--first"},
                                                      {"remove", "1"},
                                                      {"copy", "1", "--name", "a"},
                                                      {"rename", "1", "a"},
                                                      {"users"},
                                                      {"accounts"}}) {
        std::vector<std::string> elsewhere = arguments;
        elsewhere.insert(elsewhere.end(), {"--database", "none.db"});
        EXPECT_THAT(failed(2, elsewhere), HasSubstr("none.db"));
    }
}

TEST_F(RuleChanges, OfTenThousandRulesAreOneChange) {
    sqlite3(database,
            "WITH RECURSIVE n(i) AS (SELECT 8 UNION ALL SELECT i + 1 FROM n WHERE i < 10000) "
            "INSERT INTO SMS_RULES (ID, Name, QueryParam, ActionParam, PRIORITY) SELECT i, 'Rule ' "
            "|| i, '<ALLMESSAGES>', '<DELETE>YES</DELETE>', i FROM n");
    done({"move", "10000", "--first"});
    EXPECT_THAT(order(), AllOf(StartsWith("10000 1 2 "), EndsWith(" 9998 9999 ")));
    EXPECT_THAT(done({"copy", "10000", "--name", "Rule 10001"}), HasSubstr("as rule 10001"));
    failed(1, {"rename", "3", "RULE 9999"});
    std::vector<std::string> arguments{"remove", "--yes"};
    for (int id = 2; id <= 10000; ++id) {
        arguments.push_back(std::to_string(id));
    }
    done(arguments);
    EXPECT_EQ(order(), "10001 1 ");
}

class UsersAndAccounts : public KvexrulesTest {};

TEST_F(UsersAndAccounts, OfTheSampleAreListed) {
    done({"init", "--sample"});
    EXPECT_EQ(done({"users"}), "1  SYSTEM\n"
                               "2  Asha Rao\n"
                               "3  Ravi Kumar\n"
                               "4  प्रिया शर्मा\n"
                               "5  Zoë O'Neill\n"
                               "6  Night shift 🌙\n"
                               "7  Meera Nair\n");
    EXPECT_EQ(done({"accounts"}), "1  TRANSCEIVER  Main line\n"
                                  "2  TRANSMITTER  Bulk sending\n"
                                  "3  RECEIVER     Short code 56070\n"
                                  "4  TRANSCEIVER  दिल्ली कार्यालय\n"
                                  "5  transceiver  Old modem 📟\n");
}

TEST_F(UsersAndAccounts, KeepTheirLinesWhateverTheirNames) {
    done({"init"});
    sqlite3(database, "INSERT INTO SMS_USERS (ID, NAME, DELETED) VALUES (3, 'a' || char(10, 27) || "
                      "'\\', 0), (12, 'Zoë O''Neill', 0), (4, 'gone', 1), (5, NULL, 0)");
    EXPECT_EQ(done({"users"}), " 3  a\\n\\u{1b}\\\\\n 5  \n12  Zoë O'Neill\n");
    sqlite3(database,
            "INSERT INTO SMS_ACCOUNT (ID, NAME, BIND_MODE, DELETED) VALUES "
            "(1, 'दिल्ली', 'RECEIVER', 0), (2, 'b', NULL, 0), (13, 'c', 'x' || char(9), 0), "
            "(4, 'gone', 'RECEIVER', 1)");
    EXPECT_EQ(done({"accounts"}), " 1  RECEIVER  दिल्ली\n 2  -         b\n13  x\\t       c\n");
}

} // namespace
} // namespace kvex::process
