#include "tests/check/CheckFixture.h"

#include "host/check/Tags.h"

#include <fstream>
#include <set>
#include <sstream>

namespace kvex::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Report : public CheckTest {
protected:
    /// A rule with an error and a note, and one with a warning.
    void addThreeFindings() {
        addActions(actions(u"<ALERT>" + std::u16string(70, u'a') + u"ж;9;981;982</ALERT>"));
        add(u"<ALLMESSAGES>", actions(u"<REPLY>Got \"@@SMS@@\";2</REPLY>")).name = u"All\n\u202E";
    }
};

TEST_F(Report, AsTextHasTwoLinesAFindingThenTheTextsThenTheCounts) {
    addThreeFindings();
    EXPECT_EQ(
        reportAsText(report()),
        "error: rule 1 \"Rule 1\": There is no account 9, which stands in the alert. "
        "[unknown-account]\n"
        "    Choose another account in the alert, or bring that one back.\n"
        "note: rule 1 \"Rule 1\": The text of the alert takes 2 short messages in UCS-2, because "
        "the GSM alphabet lacks \"ж\" (U+0436); 4 to its 2 recipients. [several-messages]\n"
        "    Shorten it by 1 of its 71 characters, or write it with the letters of the GSM "
        "alphabet.\n"
        "warning: rule 2 \"All\\n\\u{202e}\": It replies to all messages, and service messages are "
        "among them. A machine that answers the reply starts an endless exchange. [reply-to-all]\n"
        "    Use \"Ignore this Rule for Service messages\" instead of \"For All Messages\".\n"
        "Texts:\n"
        "  rule 1 \"Rule 1\": alert: 2 short messages in UCS-2, because the GSM alphabet lacks "
        "\"ж\" (U+0436), 4 to 2 recipients\n"
        "  rule 2 \"All\\n\\u{202e}\": reply: at least 1 short message in the GSM alphabet\n"
        "2 rules checked: 1 error, 1 warning, 1 note\n");
}

TEST_F(Report, AsTextOfCleanRulesIsOneLine) {
    addConditions(u"<WORD><CON><ANY>a</WORD>");
    EXPECT_EQ(reportAsText(report()), "1 rule checked: 0 errors, 0 warnings, 0 notes\n");
}

TEST_F(Report, AsJsonIsThisDocument) {
    addThreeFindings();
    add(u"<ALLMESSAGES>", harmlessAction).name = u"RULE 1";
    EXPECT_EQ(reportAsJson(report(Severity::warning)), R"({
  "format": "kvexrules check",
  "version": 1,
  "rules": 3,
  "errors": 1,
  "warnings": 2,
  "notes": 0,
  "findings": [
    {
      "rule": {
        "id": 1,
        "name": "Rule 1"
      },
      "severity": "error",
      "code": "unknown-account",
      "reason": "There is no account 9, which stands in the alert.",
      "advice": "Choose another account in the alert, or bring that one back."
    },
    {
      "rule": {
        "id": 2,
        "name": "All\n)"
                                                       "\u202E"
                                                       R"("
      },
      "severity": "warning",
      "code": "reply-to-all",
      "reason": "It replies to all messages, and service messages are among them. A machine that answers the reply starts an endless exchange.",
      "advice": "Use \"Ignore this Rule for Service messages\" instead of \"For All Messages\"."
    },
    {
      "rule": {
        "id": 3,
        "name": "RULE 1"
      },
      "severity": "warning",
      "code": "same-name",
      "reason": "Its name is the same as that of rule 1 \"Rule 1\", at most with other capital letters.",
      "advice": "Rename one of the two.",
      "otherRule": {
        "id": 1,
        "name": "Rule 1"
      }
    }
  ],
  "texts": [
    {
      "rule": {
        "id": 1,
        "name": "Rule 1"
      },
      "action": "alert",
      "alphabet": "UCS-2",
      "units": 71,
      "parts": 2,
      "recipients": 2,
      "messages": 4,
      "hasPlaceholders": false,
      "forcedBy": "ж"
    },
    {
      "rule": {
        "id": 2,
        "name": "All\n)"
                                                       "\u202E"
                                                       R"("
      },
      "action": "reply",
      "alphabet": "GSM 7-bit",
      "units": 6,
      "parts": 1,
      "recipients": 1,
      "messages": 1,
      "hasPlaceholders": true
    }
  ]
}
)");
}

TEST_F(Report, AsJsonOfNoRulesHasEmptyLists) {
    EXPECT_EQ(reportAsJson(report()), R"({
  "format": "kvexrules check",
  "version": 1,
  "rules": 0,
  "errors": 0,
  "warnings": 0,
  "notes": 0,
  "findings": [],
  "texts": []
}
)");
}

TEST_F(Report, AsJsonForATerminalIsAscii) {
    addThreeFindings();
    const std::string document = reportAsJson(report(), true);
    EXPECT_TRUE(
        std::ranges::all_of(document, [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); }));
    EXPECT_THAT(document, testing::HasSubstr(R"("name": "All\n\u202e")"));
}

TEST_F(Report, LeavesOutWhatIsLessSevere) {
    addThreeFindings();
    EXPECT_EQ(report(Severity::note).findings.size(), 3U);
    EXPECT_EQ(report(Severity::warning).findings.size(), 2U);
    EXPECT_EQ(report(Severity::error).findings.size(), 1U);
}

TEST_F(Report, OnSomeRulesComparesThemWithAll) {
    add(u"<ALLMESSAGES>", actions(u"<DIST>9</DIST>", u"NO", u"YES"));
    addConditions(u"<WORD><CON><ANY>a</WORD>");
    book.emplace(rows, strings, now);
    const std::vector<std::size_t> places{1};
    const CheckReport found = checkRules(*book, places);
    ASSERT_EQ(found.findings.size(), 1U);
    EXPECT_EQ(found.findings[0].kind->code, "never-runs");
    EXPECT_EQ(found.rules, 1U);
}

/// The rows of the page's table of findings.
std::vector<std::string> documentedFindings() {
    std::ifstream page(KVEX_CHECKS_PAGE);
    std::vector<std::string> rows;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("| `") && (line.find("` | error | ") != std::string::npos ||
                                        line.find("` | warning | ") != std::string::npos ||
                                        line.find("` | note | ") != std::string::npos)) {
            rows.push_back(line);
        }
    }
    return rows;
}

TEST(FindingKinds, AreThoseOfTheDocument) {
    std::vector<std::string> rows;
    for (const FindingKind &kind : findingKinds()) {
        std::ostringstream row;
        row << "| `" << kind.code << "` | " << nameOf(kind.severity) << " | " << kind.summary
            << " |";
        rows.push_back(row.str());
    }
    EXPECT_EQ(documentedFindings(), rows);
}

TEST(FindingKinds, HaveACodeEach) {
    std::set<std::string_view> codes;
    for (const FindingKind &kind : findingKinds()) {
        EXPECT_TRUE(codes.insert(kind.code).second) << kind.code;
    }
}

using Tags = CheckTest;

TEST_F(Tags, AreThoseThatTheEditorWritesInItsOrder) {
    RuleValues rule;
    rule.people.entries = rule.accounts.entries = rule.words.entries = {u"1"};
    rule.dateTime = u"20240301 00:00:00,20240302 00:00:00";
    rule.distribution = rule.alertRecipients = {u"1"};
    rule.replyText = rule.alertText = u"a";
    const RuleWritten written = strings.write(rule);
    std::size_t at = 0;
    const std::u16string both = written.queryParam + written.actionParam;
    for (const Tag &tag : tags()) {
        const std::size_t opening = both.find(tag.opening(), at);
        ASSERT_NE(opening, std::u16string::npos) << toUtf8(tag.name);
        EXPECT_EQ(opening, at);
        EXPECT_EQ(opening >= written.queryParam.size(), tag.isInActions);
        const std::size_t content = opening + tag.opening().size();
        EXPECT_EQ(both.compare(content, 10, u"<CON><ANY>") == 0, tag.hasModifiers);
        const std::size_t closing = both.find(tag.closing(), content);
        ASSERT_NE(closing, std::u16string::npos) << toUtf8(tag.name);
        at = closing + tag.closing().size();
    }
    EXPECT_EQ(at, both.size());
    rule.allMessages = true;
    EXPECT_EQ(strings.write(rule).queryParam, allMessagesTag);
}

} // namespace
} // namespace kvex::host
