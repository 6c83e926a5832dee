// Which rules an import adds, changes and removes, in which order, and what it refuses.
#include "host/transfer/ImportPlan.h"

#include "host/transfer/ImportCheck.h"
#include "tests/host/transfer/Document.h"

namespace kvex::host {
namespace {

using Lines = std::vector<std::string>;

class ImportPlanTest : public DocumentTest {
protected:
    /// Rules for all messages with these names, and with the ids 1, 2 and so on.
    static std::vector<RuleRow> rowsNamed(const std::vector<std::u16string> &names) {
        std::vector<RuleRow> rows;
        for (const std::u16string &name : names) {
            const std::u16string number = fromUtf8(std::to_string(rows.size() + 1));
            rows.push_back({number, number, {name, true, u"<ALLMESSAGES>", u"a"}});
        }
        return rows;
    }
    std::string namesOf(const std::vector<std::string> &names) {
        std::string rules;
        for (const std::string &name : names) {
            rules += (rules.empty() ? "" : ",\n") + ruleNamed(name);
        }
        return documentOf(rules);
    }
    /// The names after the import; a new rule has a "+".
    std::string orderAfter(const std::vector<std::u16string> &stored,
                           const std::vector<std::string> &names,
                           ImportMode mode = ImportMode::update) {
        const std::vector<RuleRow> rows = rowsNamed(stored);
        const RuleDocument document = read(namesOf(names));
        const ImportPlan plan = planImport(document, rows, mode);
        std::string order;
        for (const PlannedRule &rule : plan.order) {
            order += rule.row ? toUtf8(rows[*rule.row].content.name.value_or(u""))
                              : "+" + toUtf8(document.rules[*rule.rule].content.name.value_or(u""));
        }
        for (const std::size_t row : plan.removed) {
            order += "-" + toUtf8(rows[row].content.name.value_or(u""));
        }
        return order;
    }
    Lines misfits(const std::string &text, const RuleTables &tables,
                  ImportMode mode = ImportMode::update) {
        const RuleDocument document = read(text);
        Problems problems;
        checkImport(planImport(document, tables.rules, mode), document, tables, strings_, problems);
        return shown(problems);
    }
};

TEST_F(ImportPlanTest, GivesTheRulesOfTheDocumentItsOrder) {
    EXPECT_EQ(orderAfter({u"a", u"b", u"c"}, {"c", "a", "b"}), "cab");
    EXPECT_EQ(orderAfter({u"a", u"b", u"c"}, {"c", "a"}), "cba");
    EXPECT_EQ(orderAfter({}, {"b", "a"}), "+b+a");
}

TEST_F(ImportPlanTest, PutsANewRuleBehindTheOneBeforeIt) {
    EXPECT_EQ(orderAfter({u"a", u"b"}, {"a", "x", "b"}), "a+xb");
    EXPECT_EQ(orderAfter({u"a", u"b"}, {"x", "b", "y"}), "a+xb+y");
    EXPECT_EQ(orderAfter({u"a", u"b"}, {"x", "y"}), "ab+x+y");
    EXPECT_EQ(orderAfter({u"a", u"z", u"b"}, {"a", "x", "b", "y"}), "a+xzb+y");
}

TEST_F(ImportPlanTest, RemovesOnlyOnRequest) {
    EXPECT_EQ(orderAfter({u"a", u"b", u"c"}, {"c", "x"}, ImportMode::replace), "c+x-a-b");
    EXPECT_EQ(orderAfter({u"a"}, {}, ImportMode::replace), "-a");
    EXPECT_EQ(orderAfter({u"a"}, {}), "a");
}

TEST_F(ImportPlanTest, AddsEveryRuleAtTheEndOnRequest) {
    EXPECT_EQ(orderAfter({u"a", u"b"}, {"a", "x"}, ImportMode::asNew), "ab+a+x");
}

TEST_F(ImportPlanTest, PairsRulesOfTheSameNameInTheirOrder) {
    EXPECT_EQ(orderAfter({u"a", u"a"}, {"a", "a", "a"}), "aa+a");
    EXPECT_EQ(orderAfter({u"a", u"A"}, {"A"}), "aA");
}

TEST_F(ImportPlanTest, SaysWhatItChanges) {
    std::vector<RuleRow> rows = rowsNamed({u"a", u"b", u"c", u"d"});
    rows[1].content.queryParam = u"<PEOPLE>";
    rows[1].content.isActive = false;
    const RuleDocument document =
        read(documentOf(ruleNamed("c") + "," + ruleNamed("b") + "," + ruleNamed("x\\ny")));
    const ImportPlan plan = planImport(document, rows, ImportMode::replace);
    const ImportEffect effect = effectOf(plan, document, rows, strings_);
    const std::string refused =
        " (the editor would refuse it: Please select some actions for this Rule.)";
    EXPECT_EQ(effect.lines, (Lines{"remove 1 \"a\"", "remove 4 \"d\"",
                                   "change 2 \"b\": conditions, switched on" + refused,
                                   "add \"x\\ny\"" + refused}));
    EXPECT_EQ(effect.added, 1);
    EXPECT_EQ(effect.changed, 1);
    EXPECT_EQ(effect.removed, 2);
    EXPECT_EQ(effect.unchanged, 1);
    EXPECT_TRUE(effect.reorders);
    EXPECT_TRUE(effect.writes);
    EXPECT_TRUE(effect.replacesStored());
}

TEST_F(ImportPlanTest, WritesNothingWhenAllIsStoredAlready) {
    const std::vector<RuleRow> rows = rowsNamed({u"a", u"b"});
    const RuleDocument document = read(namesOf({"a", "b"}));
    const auto effect =
        effectOf(planImport(document, rows, ImportMode::replace), document, rows, strings_);
    EXPECT_EQ(effect.unchanged, 2);
    EXPECT_FALSE(effect.writes);
    EXPECT_FALSE(effect.replacesStored());
}

TEST_F(ImportPlanTest, RefusesUsersAndAccountsThatTheDatabaseKnowsOtherwise) {
    const std::string unknown = ", which this database does not have.";
    const std::string nowKnown = " was unknown when the rules were exported, but it is ";
    const RuleTables tables{
        {}, {{u"1", u"Ann"}, {u"2", u"Bob"}, {u"3", u"Cy"}}, {{{u"5", u"Main"}, u"RECEIVER"}}};
    EXPECT_EQ(misfits(R"({"format": "kvex-rules", "version": 1, "users": {
"1": "Ann",
"2": "Bert",
"3": null,
"4": "Dan",
"8": null},
"accounts": {"6": "Other"}, "rules": [
{"name": "a", "active": true, "rule": {"allMessages": true, "distribution": [
"1", "8",
"9"], "reply": {"text": "t", "account": "7"}}}]})",
                      tables),
              (Lines{"3: The user 2 is \"Bert\" in the document, but \"Bob\" in this database.",
                     "4: The user 3" + nowKnown + "\"Cy\" in this database.",
                     "5: There is no user 4 (\"Dan\") in this database.",
                     "7: There is no account 6 (\"Other\") in this database.",
                     "10: The rule \"a\" refers to the user \"9\"" + unknown,
                     "10: The rule \"a\" refers to the account \"7\"" + unknown}));
}

TEST_F(ImportPlanTest, RefusesNamesThatAreTaken) {
    const RuleTables tables{rowsNamed({u"First"}), {}, {}};
    const Lines taken{"2: The rule \"FIRST\" cannot be added, because a stored rule has this name "
                      "already."};
    EXPECT_EQ(misfits(documentOf(ruleNamed("FIRST")), tables), taken);
    EXPECT_EQ(misfits(documentOf(ruleNamed("FIRST")), tables, ImportMode::replace), Lines{});
    EXPECT_EQ(misfits(documentOf(ruleNamed("First")), tables, ImportMode::asNew),
              Lines{"2: The rule \"First\" cannot be added, because a stored rule has this name "
                    "already."});
    EXPECT_EQ(misfits(documentOf(ruleNamed("FIRST") + "," + ruleNamed("First")), tables), Lines{});
}

TEST_F(ImportPlanTest, ChecksARuleWithoutItsStringsAsTheEditorDoes) {
    const std::string fields = R"("rule": {"allMessages": true, "delete": "YES"})";
    const auto misfit = [&](const std::string &name, const std::string &rule) {
        return misfits(documentOf(ruleNamed(name, rule)), {});
    };
    EXPECT_EQ(misfit("a", fields), Lines{});
    EXPECT_EQ(misfit("a", R"("rule": {})"),
              Lines{"2: The rule \"a\" cannot be stored. Please select some conditions for this "
                    "Rule."});
    EXPECT_EQ(misfit(" a", fields),
              Lines{"2: The rule \" a\" cannot be stored. Its name has blanks at its ends."});
    EXPECT_EQ(misfit(std::string(51, 'a'), fields),
              Lines{"2: The rule \"" + std::string(51, 'a') +
                    "\" cannot be stored. Its name is longer than 50 characters."});
    EXPECT_EQ(misfit("O'Neill", fields),
              Lines{"2: The rule \"O'Neill\" cannot be stored. Its name has an apostrophe, for "
                    "which the editor cannot search."});
    EXPECT_EQ(
        misfits(documentOf(ruleNamed("a") + ",\n" + ruleNamed("A", fields)), {}),
        Lines{"3: The rule \"A\" cannot be stored. A Rule already exists in this name, please "
              "select a different name."});
}

} // namespace
} // namespace kvex::host
