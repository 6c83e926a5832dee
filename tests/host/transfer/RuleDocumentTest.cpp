// Export documents: the bytes that are written, and what reading takes and refuses.
#include "host/transfer/RuleDocument.h"

#include "host/transfer/RuleExport.h"
#include "tests/host/transfer/Document.h"

namespace kvex::host {
namespace {

using Lines = std::vector<std::string>;

class RuleDocumentTest : public DocumentTest {
protected:
    std::string exported(const RuleContent &content) {
        const std::vector<RuleRow> rows{{u"9", u"4", content}};
        const std::vector<NamedRow> users{{u"3", u"Ravi"}, {u"12", u"Zoë"}};
        const std::vector<AccountRow> accounts{{{u"2", u"Main"}, u"TRANSCEIVER"}};
        return exportDocument(rows, users, accounts, strings_);
    }
};

TEST_F(RuleDocumentTest, HasTheseBytes) {
    EXPECT_EQ(exported({u"A \"rule\" 🌙", true,
                        u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>98</PEOPLE>",
                        u"<DIST>12;x; 3;99</DIST><REPLY>Hi;2</REPLY>"}),
              R"({
  "format": "kvex-rules",
  "version": 1,
  "users": {
    "3": "Ravi",
    "12": "Zoë",
    "99": null,
    "x": null
  },
  "accounts": {
    "2": "Main"
  },
  "rules": [
    {
      "name": "A \"rule\" 🌙",
      "active": true,
      "rule": {
        "allMessages": false,
        "ignoreIfService": "NO",
        "people": {
          "not": false,
          "all": false,
          "entries": [
            "98"
          ]
        },
        "accounts": {
          "not": false,
          "all": false,
          "entries": []
        },
        "words": {
          "not": false,
          "all": false,
          "asCommand": false,
          "entries": []
        },
        "dateTime": "",
        "distribution": [
          "12",
          "x",
          " 3",
          "99"
        ],
        "reply": {
          "text": "Hi",
          "account": "2"
        },
        "alert": {
          "text": "",
          "account": "",
          "recipients": []
        },
        "delete": "NO",
        "ignoreFurtherRules": "NO"
      },
      "error": null,
      "queryParam": "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>98</PEOPLE>",
      "actionParam": "<DIST>12;x; 3;99</DIST><REPLY>Hi;2</REPLY>"
    }
  ]
}
)");
}

TEST_F(RuleDocumentTest, WithoutRulesHasTheseBytes) {
    EXPECT_EQ(exportDocument({}, {}, {}, strings_),
              "{\n  \"format\": \"kvex-rules\",\n  \"version\": 1,\n  \"users\": {},\n  "
              "\"accounts\": {},\n  \"rules\": []\n}\n");
}

TEST_F(RuleDocumentTest, KeepsWhatCannotBeReadAndWhatIsNull) {
    for (const RuleContent &content :
         {RuleContent{u"unclosed", true, u"<PEOPLE>98", u"<DIST>3</DIST>"},
          RuleContent{u"", false, u"", u""}, RuleContent{{}, true, {}, {}},
          RuleContent{u"half", true, u"<PEOPLE>123456789\U0001F4F1</PEOPLE>", u""},
          RuleContent{u"breaks", true, u"<WORD>\u0001\r\n\u2028</WORD>", u"x\ty"}}) {
        const std::string document = exported(content);
        EXPECT_EQ(document.substr(0, exportStart.size()), exportStart);
        const RuleDocument again = read(document);
        ASSERT_EQ(again.rules.size(), 1);
        EXPECT_EQ(again.rules[0].content, content);
        EXPECT_TRUE(again.rules[0].hasStrings);
    }
}

TEST_F(RuleDocumentTest, SaysWhereTheReadingEnded) {
    const std::string document = exported({u"a", true, u"<PEOPLE>98", u""});
    EXPECT_NE(document.find("\"error\": {\n        \"number\": 5,\n        \"tag\": \"PEOPLE\"\n"),
              std::string::npos)
        << document;
}

TEST_F(RuleDocumentTest, MakesTheStringsOfFieldsAlone) {
    const RuleDocument document =
        read(documentOf(ruleNamed("a", R"("rule": {"people": {"entries": ["98"]},
            "distribution": ["3"], "delete": "YES"})")));
    ASSERT_EQ(document.rules.size(), 1);
    const DocumentRule &rule = document.rules[0];
    EXPECT_FALSE(rule.hasStrings);
    EXPECT_EQ(rule.content.queryParam,
              u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>98</PEOPLE>");
    EXPECT_EQ(rule.content.actionParam,
              u"<DIST>3</DIST><DELETE>YES</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
    EXPECT_EQ(rule.lineOf(u"distribution", 0), 3);
    EXPECT_EQ(rule.lineOf(u"people.entries", 0), 2);
    EXPECT_EQ(rule.lineOf(u"reply.account", 0), 2);
}

TEST_F(RuleDocumentTest, RefusesFieldsThatContradictTheStrings) {
    EXPECT_EQ(problemsOf(documentOf(ruleNamed("a", R"("queryParam": "<ALLMESSAGES>",
"actionParam": "<DIST>3</DIST>", "rule": {"allMessages": true,
"distribution": ["4"]})"))),
              Lines{"4: The field \"distribution\" contradicts \"queryParam\" or \"actionParam\". "
                    "Remove these two and \"error\", so that the fields count, or remove "
                    "\"rule\"."});
    EXPECT_EQ(problemsOf(documentOf(ruleNamed("a", R"("queryParam": "<PEOPLE>", "actionParam": "",
"error": null)"))),
              Lines{"3: \"error\" is not what reading \"queryParam\" and \"actionParam\" gives. "
                    "Remove it."});
}

TEST_F(RuleDocumentTest, RefusesFieldsThatWouldReadBackAsSomethingElse) {
    EXPECT_EQ(
        problemsOf(documentOf(ruleNamed("a", R"("rule": {"reply":
{"text": "a;b", "account": "2"}})"))),
        Lines{"3: The field \"reply.text\" would be read back as something else. Its text may "
              "be empty, have blanks at its ends, or hold \";\" or a tag."});
    EXPECT_EQ(problemsOf(documentOf(ruleNamed("a", R"("rule": {}, "error":
{"number": 5, "tag": "PEOPLE"})"))),
              Lines{"2: A rule with an \"error\" needs \"queryParam\" and \"actionParam\". Remove "
                    "\"error\" if the fields are complete."});
}

TEST_F(RuleDocumentTest, RefusesHalfASurrogatePairInATextToStore) {
    EXPECT_EQ(problemsOf(documentOf(
                  ruleNamed("a", R"("queryParam": {"utf16": "d83d"}, "actionParam": "")"))),
              Lines{"2: The rule holds half a surrogate pair, and no database can store that."});
    EXPECT_EQ(problemsOf(documentOf(
                  ruleNamed("a", R"("queryParam": {"utf16": "d83"}, "actionParam": "")"))),
              Lines{"2: \"utf16\" must have units of four hexadecimal digits, with one blank "
                    "between them."});
}

TEST_F(RuleDocumentTest, RefusesUnknownMembersByNameAndLine) {
    EXPECT_EQ(
        problemsOf(R"({"format": "kvex-rules", "version": 1, "rules": [
{"name": "a", "active": true, "actve": true, "rule": {"delet": "NO",
"people": {"nott": true},
"words": {"not": true}}}],
"user": {}})"),
        (Lines{"5: The document has no field \"user\".", "2: A rule has no field \"actve\".",
               "2: \"rule\" has no field \"delet\".", "3: \"people\" has no field \"nott\"."}));
}

TEST_F(RuleDocumentTest, RefusesValuesOfAnotherKind) {
    EXPECT_EQ(problemsOf(documentOf(R"({"active": 1, "rule": {"people": [],
"distribution": [3],
"dateTime": {"utf8": "a"}, "delete": false}}, 7)")),
              (Lines{"2: A rule lacks the field \"name\".",
                     "2: \"active\" must be true or false, and here is an integer.",
                     "2: \"people\" must be an object, and here is a list.",
                     "4: \"dateTime\" must be a text, and here is an object.",
                     "3: an entry of \"distribution\" must be a text, and here is an integer.",
                     "4: \"delete\" must be a text, and here is true or false.",
                     "4: A rule must be an object, and here is an integer."}));
}

TEST_F(RuleDocumentTest, RefusesARuleWithOneOfItsStrings) {
    EXPECT_EQ(problemsOf(documentOf(ruleNamed("a", R"("rule": {}, "queryParam": "")"))),
              Lines{"2: The rule lacks the field \"actionParam\"."});
    EXPECT_EQ(problemsOf(documentOf(R"({"name": "a", "active": true})")),
              (Lines{"2: The rule lacks the field \"queryParam\".",
                     "2: The rule lacks the field \"actionParam\"."}));
}

TEST_F(RuleDocumentTest, RefusesAnotherFormatOrVersion) {
    EXPECT_EQ(problemsOf("[]"), Lines{"1: The document must be an object, and here is a list."});
    EXPECT_EQ(problemsOf("{\"format\": \"kvex-rule-vectors\",\n\"version\": 1}"),
              Lines{"1: \"format\" must be \"kvex-rules\"."});
    EXPECT_EQ(problemsOf("{\"format\": \"kvex-rules\",\n\"version\": 2}"),
              Lines{"2: \"version\" must be 1. A newer kvexrules may read others."});
}

} // namespace
} // namespace kvex::host
