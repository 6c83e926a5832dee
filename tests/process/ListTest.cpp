#include "tests/process/KvexrulesTest.h"

#include <sstream>

namespace kvex::process {
namespace {

class List : public KvexrulesTest {
protected:
    void SetUp() override { done({"init"}); }
    void rule(const std::string &values) const {
        sqlite3(database, "INSERT INTO SMS_RULES (ID, Name, PRIORITY, ACTIVE, DELETED) VALUES (" +
                              values + ")");
    }
};

TEST_F(List, OfNoRulesIsEmpty) {
    EXPECT_EQ(done({"list"}), "");
}

TEST_F(List, IsInPriorityOrder) {
    rule("1, 'last', 10, 1, 0");
    rule("2, 'first', -3, 0, 0");
    rule("3, 'between', 9, 1, 0");
    EXPECT_EQ(done({"list"}),
              "1  off  2  -      first\n2  on   3  -      between\n3  on   1  -      last\n");
}

TEST_F(List, KeepsRulesOfOnePriorityInTheOrderOfTheirIds) {
    rule("2, 'b', 0, 1, 0");
    rule("1, 'a', 0, 1, 0");
    EXPECT_EQ(done({"list"}), "1  on   1  -      a\n2  on   2  -      b\n");
}

TEST_F(List, LeavesDeletedRulesOut) {
    rule("1, 'a', 0, 1, 1");
    rule("2, 'b', 0, 1, 0");
    EXPECT_EQ(done({"list"}), "1  on   2  -      b\n");
}

TEST_F(List, CallsARuleOnOnlyWhenItIsApplied) {
    rule("1, 'a', 0, NULL, 0");
    rule("2, 'b', 0, 2, 0");
    rule("3, NULL, 0, 1, 0");
    EXPECT_EQ(done({"list"}), "1  off  1  -      a\n2  off  2  -      b\n3  on   3  -      \n");
}

TEST_F(List, KeepsARuleOnItsLineWhateverItsName) {
    rule("1, 'a' || char(13, 10, 9, 27) || '\\ O''Neill 🌙', 0, 1, 0");
    EXPECT_EQ(done({"list"}), "1  on   1  -      a\\r\\n\\t\\u{1b}\\\\ O'Neill 🌙\n");
}

TEST_F(List, LetsNoNameControlATerminal) {
    rule("1, 'a' || char(27) || '[2J', 0, 1, 0");
    EXPECT_EQ(atTerminal({"list"}).output, "1  on   1  -      a\\u{1b}[2J\n");
    sqlite3(database,
            "INSERT INTO SMS_CONTACTS (NAME, MOBILE) VALUES ('a' || char(27), char(155))");
    EXPECT_EQ(atTerminal({"contacts", "list"}).output, "1\ta\\u{1b}\t\\u{9b}\n");
}

TEST_F(List, ShowsAnIdThatIsNoNumber) {
    sqlite3(database, "DROP TABLE SMS_RULES; CREATE TABLE SMS_RULES (ID TEXT, Name TEXT, "
                      "QueryParam TEXT, ActionParam TEXT, PRIORITY INTEGER, ACTIVE INTEGER, "
                      "DELETED INTEGER)");
    rule("'रात' || char(27), 'a', 0, 1, 0");
    EXPECT_EQ(done({"list"}), "1  on   रात\\u{1b}  -      a\n");
}

TEST_F(List, ReadsADatabaseThatMayNotBeWritten) {
    rule("1, 'a', 0, 1, 0");
    const std::string file = "file:" + database.string() + "?mode=ro";
    EXPECT_EQ(done({"list", "--database", file}), "1  on   1  -      a\n");
}

TEST_F(List, OfTheSampleHasEveryRule) {
    database = folder / "samples.db";
    environment["KVEX_DATABASE"] = database.string();
    done({"init", "--sample"});
    EXPECT_EQ(done({"list"}), "1  on   1  stops  Not stopped in March\n"
                              "2  on   2  -      Help 🌙 at night\n"
                              "3  on   3  -      दिल्ली के संदेश\n"
                              "4  on   4  -      Strangers\n"
                              "5  off  5  stops  Advertisements\n"
                              "6  on   6  -      No services\n"
                              "7  on   7  -      Everything to the system\n");
}

/// Lists a rule with this ActionParam, and returns its mark.
class ListMark : public KvexrulesTest {
protected:
    void SetUp() override { done({"init"}); }
    std::string of(const std::string &actionParam,
                   const std::string &queryParam = "<ALLMESSAGES>") {
        sqlite3(database, "DELETE FROM SMS_RULES; INSERT INTO SMS_RULES (ID, Name, QueryParam, "
                          "ActionParam) VALUES (1, 'a', '" +
                              queryParam + "', '" + actionParam + "')");
        const std::string line = done({"list"});
        EXPECT_THAT(line, testing::MatchesRegex("1  on   1  .....  a\n"));
        return line.substr(11, 5);
    }
};

TEST_F(ListMark, IsForRulesThatLetNoOtherFollow) {
    EXPECT_EQ(of("<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>"), "stops");
    EXPECT_EQ(of("<IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>"), "-    ");
    EXPECT_EQ(of("<IGNOREFURTHERRULES>yes</IGNOREFURTHERRULES>"), "-    ");
    EXPECT_EQ(of("<DELETE>YES</DELETE>"), "-    ");
    EXPECT_EQ(of("<REPLY>YES</REPLY>"), "-    ");
    EXPECT_EQ(of(""), "-    ");
}

TEST_F(ListMark, IsAQuestionMarkWhenTheRuleCannotBeRead) {
    EXPECT_EQ(of("<DIST><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>"), "?    ");
    EXPECT_EQ(of("<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>", "<WORD>"), "?    ");
}

TEST_F(List, MarksARuleOfWhichAnEarlierOneTakesAllMessages) {
    const auto filled = [this](const std::string &id, const std::string &conditions,
                               const std::string &actions) {
        rule(id + ", 'rule " + id + "', " + id + ", 1, 0");
        sqlite3(database, "UPDATE SMS_RULES SET QueryParam = '" + conditions +
                              "', ActionParam = '" + actions + "' WHERE ID = " + id);
    };
    const std::string stop = "<DELETE>NO</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>";
    const std::string word = "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><WORD><CON><ANY>";
    filled("1", word + "a;b</WORD>", stop);
    filled("2", word + "b</WORD>", stop);
    filled("3", word + "c</WORD>", "");
    filled("4", "<ALLMESSAGES>", "<DELETE>YES</DELETE>");
    filled("5", word + "c</WORD>", "");
    filled("6", word + "c</WORD>", "");
    sqlite3(database, "UPDATE SMS_RULES SET ACTIVE = 0 WHERE ID = 6");
    EXPECT_EQ(done({"list"}), "1  on   1  stops  rule 1\n"
                              "2  on   2  never  rule 2\n"
                              "3  on   3  -      rule 3\n"
                              "4  on   4  -      rule 4\n"
                              "5  on   5  never  rule 5\n"
                              "6  off  6  -      rule 6\n");
    sqlite3(database, "UPDATE SMS_RULES SET ACTIVE = 0 WHERE ID IN (1, 4)");
    EXPECT_EQ(done({"list", "--grep", "rule 2"}), "2  on   2  stops  rule 2\n");
    EXPECT_EQ(done({"list", "--grep", "rule 5"}), "5  on   5  -      rule 5\n");
}

class ListGrep : public KvexrulesTest {
protected:
    void SetUp() override { done({"init", "--sample"}); }
    /// The ids of the rules that have the text.
    [[nodiscard]] std::string ids(const std::string &text) const {
        std::string ids;
        std::istringstream lines(kvexrules({"list", "--grep", text}).output);
        for (std::string line; std::getline(lines, line);) {
            ids += line.substr(8, 1);
        }
        return ids;
    }
};

TEST_F(ListGrep, FindsTextInNamesDescriptionsAndStoredTexts) {
    EXPECT_EQ(ids("no services"), "6");
    EXPECT_EQ(ids("दिल्ली के"), "3");
    EXPECT_EQ(ids("🌙 AT"), "2");
    EXPECT_EQ(ids("MEERA nair"), "1");
    EXPECT_EQ(ids("ZOË o'neill"), "2");
    EXPECT_EQ(ids("<delete>yes"), "5");
    EXPECT_EQ(ids("9811100055"), "4");
    EXPECT_EQ(ids("%"), "");
}

TEST_F(ListGrep, KeepsThePositions) {
    EXPECT_EQ(done({"list", "--grep", "no services"}), "6  on   6  -      No services\n");
}

TEST_F(ListGrep, EndsWithOneWhenNoRuleHasTheText) {
    const Outcome outcome = kvexrules({"list", "--grep", "nowhere"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(kvexrules({"list", "--grep", "nowhere", "--format", "json"}).output,
              "{\n  \"rules\": []\n}\n");
}

TEST_F(ListGrep, FindsRulesThatCannotBeRead) {
    sqlite3(database, "UPDATE SMS_RULES SET QueryParam = '<WORD>odd' WHERE ID = 6");
    EXPECT_EQ(ids("ODD"), "6");
    EXPECT_EQ(ids("asha rao"), "");
}

TEST_F(List, IsAlsoADocument) {
    rule("7, 'a \"quoted\" रात 🌙' || char(10), 1, 1, 0");
    rule("12, NULL, 2, 0, 0");
    sqlite3(database, "UPDATE SMS_RULES SET ActionParam = "
                      "'<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>' WHERE ID = 12");
    EXPECT_EQ(done({"list", "--format", "json"}), R"({
  "rules": [
    {
      "position": 1,
      "id": 7,
      "name": "a \"quoted\" रात 🌙\n",
      "active": true,
      "stops": false,
      "neverReached": false
    },
    {
      "position": 2,
      "id": 12,
      "name": "",
      "active": false,
      "stops": true,
      "neverReached": false
    }
  ]
}
)");
    EXPECT_THAT(atTerminal({"list", "--format", "json"}).output,
                testing::HasSubstr("\\u0930\\u093e\\u0924 \\ud83c\\udf19\\n"));
    EXPECT_THAT(failed(2, {"list", "--format", "xml"}),
                testing::HasSubstr("The formats are text and json."));
}

} // namespace
} // namespace kvex::process
