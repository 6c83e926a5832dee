#include "tests/process/KvexrulesTest.h"

namespace kvex::process {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class Check : public KvexrulesTest {
protected:
    void SetUp() override { done({"init", "--sample"}); }

    void change(const std::string &statement) const { sqlite3(database, statement); }
    /// Removes what the sample database has for a check to find.
    void clean() const {
        change("UPDATE SMS_RULES SET QueryParam = replace(replace(QueryParam, '20240301', "
               "'20980301'), '20240331', '20980331')");
    }
};

const std::string sampleTexts =
    "Texts:\n"
    "  rule 1 \"Not stopped in March\": reply: 1 short message in the GSM alphabet\n"
    "  rule 1 \"Not stopped in March\": alert: 1 short message in the GSM alphabet, 2 to 2 "
    "recipients\n"
    "  rule 2 \"Help 🌙 at night\": reply: 1 short message in UCS-2, because the GSM alphabet lacks "
    "\"आ\" (U+0906)\n"
    "  rule 4 \"Strangers\": alert: 1 short message in the GSM alphabet\n";

TEST_F(Check, OfCleanRulesEndsWithZero) {
    clean();
    EXPECT_EQ(done({"check"}), sampleTexts + "7 rules checked: 0 errors, 0 warnings, 0 notes\n");
    EXPECT_EQ(done({"check", "7"}), "1 rule checked: 0 errors, 0 warnings, 0 notes\n");
}

TEST_F(Check, OfFindingsEndsWithOne) {
    clean();
    change("UPDATE SMS_USERS SET DELETED = 1 WHERE ID = 5");
    const Outcome outcome = kvexrules({"check"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output,
              "error: rule 2 \"Help 🌙 at night\": The user 5, which stands in the distribution, is "
              "deleted. [unknown-user]\n"
              "    Choose another user in the distribution, or bring that one back.\n" +
                  sampleTexts + "7 rules checked: 1 error, 0 warnings, 0 notes\n");
    EXPECT_EQ(kvexrules({"check", "2"}).status, 1);
    EXPECT_EQ(kvexrules({"check", "3", "4"}).status, 0);
}

TEST_F(Check, LeavesOutWhatIsLessSevere) {
    const Outcome outcome = kvexrules({"check", "1"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, StartsWith("warning: rule 1 \"Not stopped in March\": Its date and "
                                           "time ended on 20240331 18:30:00."));
    EXPECT_EQ(kvexrules({"check", "1", "--severity", "warning"}).output, outcome.output);
    EXPECT_EQ(kvexrules({"check", "1", "--severity", "error"}).status, 0);
}

TEST_F(Check, FindsARuleThatNeverRuns) {
    clean();
    change("UPDATE SMS_RULES SET ACTIVE = 1 WHERE ID = 5");
    change("INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY) SELECT 'Free', "
           "replace(QueryParam, 'free', 'free;gift'), ActionParam, 8 FROM SMS_RULES WHERE ID = 5");
    EXPECT_EQ(
        kvexrules({"check", "8"}).output,
        "warning: rule 8 \"Free\": It never runs. The rule 5 \"Advertisements\" stands before "
        "it, applies to all of its messages and lets no other rule follow. [never-runs]\n"
        "    Move this rule before the other one, or remove it.\n"
        "1 rule checked: 0 errors, 1 warning, 0 notes\n");
    change("UPDATE SMS_RULES SET ACTIVE = 0 WHERE ID = 5");
    EXPECT_EQ(kvexrules({"check", "8"}).status, 0);
}

TEST_F(Check, PrintsAJsonDocument) {
    clean();
    change("UPDATE SMS_RULES SET Name = 'STRANGERS' WHERE ID = 7");
    const Outcome outcome = kvexrules({"check", "7", "4", "7", "--format", "json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, R"({
  "format": "kvexrules check",
  "version": 1,
  "rules": 2,
  "errors": 0,
  "warnings": 1,
  "notes": 0,
  "findings": [
    {
      "rule": {
        "id": 7,
        "name": "STRANGERS"
      },
      "severity": "warning",
      "code": "same-name",
      "reason": "Its name is the same as that of rule 4 \"Strangers\", at most with other capital letters.",
      "advice": "Rename one of the two.",
      "otherRule": {
        "id": 4,
        "name": "Strangers"
      }
    }
  ],
  "texts": [
    {
      "rule": {
        "id": 4,
        "name": "Strangers"
      },
      "action": "alert",
      "alphabet": "GSM 7-bit",
      "units": 23,
      "parts": 1,
      "recipients": 1,
      "messages": 1,
      "hasPlaceholders": false
    }
  ]
}
)");
}

TEST_F(Check, EscapesItsJsonDocumentOnATerminal) {
    EXPECT_THAT(kvexrules({"check", "2", "--format", "json"}).output,
                HasSubstr("\"Help 🌙 at night\""));
    EXPECT_THAT(atTerminal({"check", "2", "--format", "json"}).output,
                HasSubstr(R"("Help \ud83c\udf19 at night")"));
}

TEST_F(Check, ReadsARowWithoutValues) {
    change("INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY, ACTIVE) "
           "VALUES (NULL, NULL, NULL, NULL, NULL)");
    EXPECT_EQ(
        kvexrules({"check", "8"}).output,
        "error: rule 8 \"\": Its row has no value in Name or ACTIVE. The rules window ends its "
        "list before this rule. [incomplete-row]\n"
        "    Store both values in the database.\n"
        "error: rule 8 \"\": Its PRIORITY is no number of up to 8 digits. The rules window "
        "ends its list before this rule. [incomplete-row]\n"
        "    Store another number in the database.\n"
        "note: rule 8 \"\": QueryParam is not as the rule editor writes it, from its end on. "
        "[stored-differently]\n"
        "    See with kvexrules show what the rule means. OK in the editor stores that.\n"
        "note: rule 8 \"\": ActionParam is not as the rule editor writes it, from its end on. "
        "[stored-differently]\n"
        "    See with kvexrules show what the rule means. OK in the editor stores that.\n"
        "1 rule checked: 2 errors, 0 warnings, 2 notes\n");
}

TEST_F(Check, OfAnUnknownRuleChecksTheOthersAndEndsWithOne) {
    clean();
    const Outcome outcome = kvexrules({"check", "99", "7"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors,
              "kvexrules: There is no rule 99. To list the rules: kvexrules list\n");
    EXPECT_EQ(outcome.output, "1 rule checked: 0 errors, 0 warnings, 0 notes\n");
}

TEST_F(Check, OfWhatCannotBeReadEndsWithTwo) {
    EXPECT_THAT(failed(2, {"check", "one"}), HasSubstr("\"one\" is not the id of a rule"));
    EXPECT_THAT(failed(2, {"check", "--format", "xml"}), HasSubstr("json"));
    EXPECT_THAT(failed(2, {"check", "--severity", "fatal"}), HasSubstr("warning"));
    EXPECT_THAT(failed(2, {"check", "--database", (folder / "none.db").string()}),
                AllOf(HasSubstr("none.db"), HasSubstr("does not exist")));
    change("DROP TABLE SMS_ACCOUNT");
    EXPECT_THAT(failed(2, {"check"}), HasSubstr("SMS_ACCOUNT"));
}

TEST_F(Check, ChangesNothing) {
    const std::string before = sqlite3(database, ".dump");
    kvexrules({"check"});
    EXPECT_EQ(sqlite3(database, ".dump"), before);
}

TEST_F(Check, EndsWhenItsReaderHasGone) {
    EXPECT_EQ(kvexrules({"check"}, Output::withoutReader).errors, "");
}

} // namespace
} // namespace kvex::process
