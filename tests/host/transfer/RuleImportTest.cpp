// Imports into a database: everything is stored, or nothing.
#include "host/transfer/RuleImport.h"

#include "host/suite/Databases.h"
#include "host/transfer/RuleExport.h"
#include "tests/host/transfer/Document.h"
#include "tests/support/RaisedError.h"
#include "tests/support/TestDatabase.h"

namespace kvex::host {
namespace {

class RuleImport : public DocumentTest {
protected:
    void import(const std::string &text, ImportMode mode = ImportMode::update) {
        const RuleDocument document = read(text);
        const RuleTables before = readRuleTables(*connection_);
        applyImport(*connection_, planImport(document, before.rules, mode), document, before);
    }
    std::string exported() {
        const RuleTables tables = readRuleTables(*connection_);
        return exportDocument(tables.rules, tables.users, tables.accounts, strings_);
    }

    test::TestDatabase database_;
    std::unique_ptr<recordset::ClientConnection> connection_ =
        openDatabase(database_.connectionString());
};

TEST_F(RuleImport, GivesBackEveryRow) {
    database_.addRule("b", "<ALLMESSAGES>", "<DELETE>YES</DELETE>", 7, 0);
    database_.addRule("unclosed", "<PEOPLE>98", "<DIST>99</DIST>", 0);
    database_.addRule("O'Neill", "", "", 9);
    database_.addRule("B", "x", "y", 7);
    database_.execute("INSERT INTO SMS_RULES (PRIORITY) VALUES (8)");
    const std::string before = exported();
    database_.execute("DELETE FROM SMS_RULES");
    import(before);
    EXPECT_EQ(exported(), before);
    const auto rules = readRuleTables(*connection_).rules;
    ASSERT_EQ(rules.size(), 5);
    EXPECT_EQ(rules[0].content.name, u"unclosed");
    EXPECT_EQ(rules[0].priority, u"1");
    EXPECT_EQ(rules[3].content, (RuleContent{{}, true, {}, {}}));
    EXPECT_EQ(rules[4].priority, u"5");
}

TEST_F(RuleImport, KeepsTheIdsOfRulesThatItChanges) {
    database_.addRule("a", "q", "a", 1);
    database_.addRule("b", "q", "a", 2);
    import(documentOf(ruleNamed("b") + "," + ruleNamed("x")), ImportMode::replace);
    const auto rules = readRuleTables(*connection_).rules;
    ASSERT_EQ(rules.size(), 2);
    EXPECT_EQ(rules[0], (RuleRow{u"2", u"1", {u"b", true, u"<ALLMESSAGES>", u"a"}}));
    EXPECT_EQ(rules[1].content.name, u"x");
    EXPECT_EQ(rules[1].priority, u"2");
}

TEST_F(RuleImport, StoresNothingWhenARowIsRefused) {
    database_.addRule("a", "q", "a", 1);
    database_.addRule("b", "q", "a", 2);
    database_.execute("CREATE TRIGGER refuse BEFORE INSERT ON SMS_RULES WHEN NEW.Name = 'y' "
                      "BEGIN SELECT RAISE(ABORT, 'no'); END");
    const std::string before = exported();
    EXPECT_LT(test::errorNumber([&] {
                  import(documentOf(ruleNamed("x") + "," + ruleNamed("b") + "," + ruleNamed("y")),
                         ImportMode::replace);
              }),
              0);
    EXPECT_EQ(exported(), before);
}

TEST_F(RuleImport, StoresNothingWhenAnotherUserChangedTheRulesMeanwhile) {
    database_.addRule("a", "q", "a", 1);
    const RuleDocument document = read(documentOf(ruleNamed("x")));
    const RuleTables before = readRuleTables(*connection_);
    const ImportPlan plan = planImport(document, before.rules, ImportMode::update);
    database_.addRule("b", "q", "a", 2);
    const std::string now = exported();
    EXPECT_EQ(test::errorNumber([&] { applyImport(*connection_, plan, document, before); }),
              rowChangedByAnother);
    EXPECT_EQ(exported(), now);
}

} // namespace
} // namespace kvex::host
