#include "tests/process/KvexrulesTest.h"

#include <algorithm>

namespace kvex::process {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Transfer : public KvexrulesTest {
protected:
    void SetUp() override { done({"init", "--sample"}); }

    /// Writes the sample's export with `from` replaced by `to`, and returns its name.
    std::string edited(const std::string &from, const std::string &to) const {
        std::string text = done({"export"});
        const std::size_t at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        writeFile(folder / "edited.json", text.replace(at, from.size(), to));
        return "edited.json";
    }
    std::vector<std::filesystem::path> keptBackups() const {
        const auto kept = folder / "home/.local/state/kvex/backups";
        std::vector<std::filesystem::path> files;
        if (std::filesystem::exists(kept)) {
            for (const auto &entry : std::filesystem::directory_iterator(kept)) {
                files.push_back(entry.path());
            }
        }
        return files;
    }
};

TEST_F(Transfer, ExportsTheNamedRulesInTheirOrder) {
    const std::string text = done({"export", "7", "5", "7"});
    const std::size_t first = text.find("\"name\": \"Advertisements\"");
    EXPECT_LT(first, text.find("\"name\": \"Everything to the system\""));
    EXPECT_EQ(text.find("\"name\": \"Strangers\""), std::string::npos);
    EXPECT_THAT(text, StartsWith("{\n  \"format\": \"kvex-rules\",\n  \"version\": 1,\n  "
                                 "\"users\": {\n    \"1\": \"SYSTEM\"\n  },\n  \"accounts\": {},"));
    EXPECT_EQ(done({"export", "--file", "-"}), done({"export"}));
}

TEST_F(Transfer, ExportRefusesIdsThatAreNoRules) {
    EXPECT_EQ(failed(1, {"export", "7", "8"}),
              "kvexrules: There is no rule 8, so nothing was exported. To list the rules: "
              "kvexrules list\n");
    EXPECT_EQ(failed(2, {"export", "x"}),
              "kvexrules: \"x\" is not the id of a rule. The ids are the numbers that kvexrules "
              "list shows.\n");
}

TEST_F(Transfer, ExportReplacesAnOlderExportButNoOtherFile) {
    EXPECT_EQ(done({"export", "--file", "rules.json"}), "7 rules written.\n");
    EXPECT_EQ(done({"export", "1", "--file", "rules.json"}), "1 rule written.\n");
    EXPECT_EQ(readFile(folder / "rules.json"), done({"export", "1"}));
    writeFile(folder / "mine", "{}");
    EXPECT_EQ(failed(1, {"export", "--file", "mine"}),
              "kvexrules: mine exists and is no export, so it was not changed. Name another "
              "file.\n");
    EXPECT_EQ(readFile(folder / "mine"), "{}");
}

TEST_F(Transfer, ImportSaysWhatItChangesAndKeepsABackup) {
    const std::string before = done({"export"});
    const std::string file = edited("\"active\": false", "\"active\": true");
    EXPECT_EQ(done({"import", file, "--dry-run"}),
              "change 5 \"Advertisements\": switched on\n"
              "Nothing was changed. An import would give this:\n"
              "0 rules added, 1 changed, 0 removed, 6 unchanged.\n");
    EXPECT_EQ(done({"export"}), before);
    EXPECT_TRUE(keptBackups().empty());
    const std::string output = done({"import", file});
    ASSERT_EQ(keptBackups().size(), 1);
    EXPECT_EQ(output, "change 5 \"Advertisements\": switched on\n"
                      "kept: " +
                          keptBackups()[0].string() +
                          "\n0 rules added, 1 changed, 0 removed, 6 unchanged.\n");
    EXPECT_EQ(done({"export"}), readFile(folder / file));
    done({"restore", keptBackups()[0].string(), "--yes"});
    EXPECT_EQ(done({"export"}), before);
}

TEST_F(Transfer, ImportShowsItsProgressOnATerminal) {
    environment["TERM"] = "xterm";
    writeFile(folder / "hand.json", R"({"format": "kvex-rules", "version": 1, "rules": [
{"name": "By hand", "active": true, "rule": {"allMessages": true, "distribution": ["1"]}}]})");
    sqlite3(database, "DELETE FROM SMS_RULES WHERE ID <> 1");
    EXPECT_EQ(atTerminal({"import", "hand.json"}).output,
              "add \"By hand\"\n\rImporting rules\x1b[K\rImporting rules: 50 %\x1b[K"
              "\rImporting rules: 100 %\x1b[K\r\x1b[K"
              "1 rule added, 0 changed, 0 removed, 1 unchanged.\n");
    EXPECT_EQ(atTerminal({"disable", "1"}).output,
              "\rStoring rules\x1b[K\rStoring rules: 50 %\x1b[K\rStoring rules: 100 %\x1b[K"
              "\r\x1b[KRule 1 \"Not stopped in March\" is now off.\n");
    EXPECT_THAT(atTerminal({"backup", "b.db"}).output,
                testing::StartsWith("\rCopying the tables\x1b[K\r\x1b[Ksaved: "));
    EXPECT_THAT(atTerminal({"restore", "b.db", "--yes"}).output,
                testing::StartsWith("\rRestoring the tables\x1b[K\r\x1b[Kunchanged: "));
}

TEST_F(Transfer, ImportWithoutAChangeKeepsNoBackup) {
    done({"export", "--file", "rules.json"});
    EXPECT_EQ(done({"import", "rules.json"}),
              "0 rules added, 0 changed, 0 removed, 7 unchanged.\n");
    EXPECT_TRUE(keptBackups().empty());
}

TEST_F(Transfer, ImportAddsRulesThatWereWrittenByHand) {
    writeFile(folder / "hand.json", R"({"format": "kvex-rules", "version": 1, "rules": [
{"name": "By hand", "active": true, "rule": {"allMessages": true, "distribution": ["1"]}}]})");
    EXPECT_EQ(done({"import", "hand.json", "--as-new"}),
              "add \"By hand\"\n1 rule added, 0 changed, 0 removed, 7 unchanged.\n");
    EXPECT_THAT(done({"show", "8"}), HasSubstr("For ALL Messages\nThen distribute the message to "
                                               "SYSTEM"));
    EXPECT_EQ(sqlite3(database, "SELECT PRIORITY, QueryParam FROM SMS_RULES WHERE ID = 8"),
              "8|<ALLMESSAGES>\n");
}

TEST_F(Transfer, ImportRefusesWhatDoesNotFitAndNamesTheLines) {
    const std::string before = done({"export"});
    const Outcome user = kvexrules({"import", edited("\"Asha Rao\"", "\"Asha\"")});
    EXPECT_EQ(user.status, 1);
    EXPECT_EQ(user.output, "");
    EXPECT_EQ(user.errors, "kvexrules: edited.json:6: The user 2 is \"Asha\" in the document, but "
                           "\"Asha Rao\" in this database.\nkvexrules: Nothing was imported. "
                           "Correct edited.json or the database.\n");
    const Outcome field = kvexrules({"import", edited("\"people\"", "\"peple\"")});
    EXPECT_EQ(field.status, 2);
    EXPECT_EQ(field.errors, "kvexrules: edited.json:27: \"rule\" has no field \"peple\".\n"
                            "kvexrules: Nothing was imported. Correct edited.json.\n");
    const Outcome taken = kvexrules({"import", edited("x", "x"), "--as-new", "--dry-run"});
    EXPECT_EQ(taken.status, 1);
    EXPECT_THAT(taken.errors, HasSubstr("The rule \"Strangers\" cannot be added"));
    EXPECT_EQ(done({"export"}), before);
}

TEST_F(Transfer, ImportNamesTwentyProblemsAtMost) {
    std::string rules;
    for (int rule = 0; rule < 25; ++rule) {
        rules += rule == 0 ? "7" : ",\n7";
    }
    writeFile(folder / "rules.json",
              R"({"format": "kvex-rules", "version": 1, "rules": [)" + rules + "]}");
    const std::string errors = kvexrules({"import", "rules.json"}).errors;
    EXPECT_EQ(std::ranges::count(errors, '\n'), 21);
    EXPECT_THAT(errors, HasSubstr("rules.json:20: A rule must be an object"));
    EXPECT_THAT(errors, HasSubstr("kvexrules: 5 more problems. Nothing was imported."));
}

TEST_F(Transfer, ImportRefusesFilesThatCannotBeRead) {
    EXPECT_EQ(failed(2, {"import", "none.json"}),
              "kvexrules: none.json cannot be read. Name an export of rules.\n");
    EXPECT_EQ(failed(2, {"import", "none.json", "--as-new", "--replace"}),
              "kvexrules: Give --as-new or --replace, but not both.\n");
    writeFile(folder / "text", "rules\n");
    const Outcome text = kvexrules({"import", "text"});
    EXPECT_EQ(text.status, 2);
    EXPECT_THAT(text.errors, StartsWith("kvexrules: text:1: The file is no JSON"));
}

TEST_F(Transfer, ImportReadsStandardInput) {
    done({"export", "--file", "rules.json"});
    const std::string line = program.string() + " import - < rules.json";
    EXPECT_EQ(run("/bin/sh", {"-c", line}, environment, folder.path()).output,
              "0 rules added, 0 changed, 0 removed, 7 unchanged.\n");
}

TEST_F(Transfer, ImportChangesNothingWhereTheDatabaseRefuses) {
    const std::string before = done({"export"});
    const std::string file = edited("\"active\": false", "\"active\": true");
    sqlite3(database, "CREATE TRIGGER refuse BEFORE UPDATE ON SMS_RULES "
                      "BEGIN SELECT RAISE(ABORT, 'not now'); END");
    const Outcome outcome = kvexrules({"import", file});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("not now"));
    EXPECT_EQ(done({"export"}), before);
}

TEST_F(Transfer, ImportNeedsAPlaceForTheBackup) {
    const std::string before = done({"export"});
    const std::string file = edited("\"active\": false", "\"active\": true");
    environment.erase("HOME");
    const Outcome outcome = kvexrules({"import", file});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors,
                HasSubstr("There is no folder for a backup, because HOME is not set."));
    EXPECT_EQ(done({"export"}), before);
}

TEST_F(Transfer, ImportGoesOnWhenTheReaderOfItsOutputHasGone) {
    const std::string file = edited("\"active\": false", "\"active\": true");
    EXPECT_EQ(kvexrules({"import", file}, Output::withoutReader).status, 0);
    EXPECT_EQ(done({"export"}), readFile(folder / file));
}

} // namespace
} // namespace kvex::process
