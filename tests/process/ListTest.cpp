#include "tests/process/KvexrulesTest.h"

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
    EXPECT_EQ(done({"list"}), "1  off  2  first\n2  on   3  between\n3  on   1  last\n");
}

TEST_F(List, KeepsRulesOfOnePriorityInTheOrderOfTheirIds) {
    rule("2, 'b', 0, 1, 0");
    rule("1, 'a', 0, 1, 0");
    EXPECT_EQ(done({"list"}), "1  on   1  a\n2  on   2  b\n");
}

TEST_F(List, LeavesDeletedRulesOut) {
    rule("1, 'a', 0, 1, 1");
    rule("2, 'b', 0, 1, 0");
    EXPECT_EQ(done({"list"}), "1  on   2  b\n");
}

TEST_F(List, CallsARuleOnOnlyWhenItIsApplied) {
    rule("1, 'a', 0, NULL, 0");
    rule("2, 'b', 0, 2, 0");
    rule("3, NULL, 0, 1, 0");
    EXPECT_EQ(done({"list"}), "1  off  1  a\n2  off  2  b\n3  on   3  \n");
}

TEST_F(List, KeepsARuleOnItsLineWhateverItsName) {
    rule("1, 'a' || char(13, 10, 9, 27) || '\\ O''Neill 🌙', 0, 1, 0");
    EXPECT_EQ(done({"list"}), "1  on   1  a\\r\\n\\t\\u{1b}\\\\ O'Neill 🌙\n");
}

TEST_F(List, LetsNoNameControlATerminal) {
    rule("1, 'a' || char(27) || '[2J', 0, 1, 0");
    EXPECT_EQ(atTerminal({"list"}).output, "1  on   1  a\\u{1b}[2J\n");
    sqlite3(database,
            "INSERT INTO SMS_CONTACTS (NAME, MOBILE) VALUES ('a' || char(27), char(155))");
    EXPECT_EQ(atTerminal({"contacts", "list"}).output, "1\ta\\u{1b}\t\\u{9b}\n");
}

TEST_F(List, ShowsAnIdThatIsNoNumber) {
    sqlite3(database, "DROP TABLE SMS_RULES; CREATE TABLE SMS_RULES (ID TEXT, Name TEXT, "
                      "QueryParam TEXT, ActionParam TEXT, PRIORITY INTEGER, ACTIVE INTEGER, "
                      "DELETED INTEGER)");
    rule("'रात' || char(27), 'a', 0, 1, 0");
    EXPECT_EQ(done({"list"}), "1  on   रात\\u{1b}  a\n");
}

TEST_F(List, ReadsADatabaseThatMayNotBeWritten) {
    rule("1, 'a', 0, 1, 0");
    const std::string file = "file:" + database.string() + "?mode=ro";
    EXPECT_EQ(done({"list", "--database", file}), "1  on   1  a\n");
}

TEST_F(List, OfTheSampleHasEveryRule) {
    database = folder / "samples.db";
    environment["KVEX_DATABASE"] = database.string();
    done({"init", "--sample"});
    EXPECT_EQ(done({"list"}), "1  on   1  Not stopped in March\n"
                              "2  on   2  Help 🌙 at night\n"
                              "3  on   3  दिल्ली के संदेश\n"
                              "4  on   4  Strangers\n"
                              "5  off  5  Advertisements\n"
                              "6  on   6  No services\n"
                              "7  on   7  Everything to the system\n");
}

} // namespace
} // namespace kvex::process
