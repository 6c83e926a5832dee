// kvexrules edit where it shows no window. Other tests show its windows.
#include "tests/process/KvexrulesTest.h"

namespace kvex::process {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class Edit : public KvexrulesTest {
protected:
    void SetUp() override { done({"init", "--sample"}); }

    /// The message when the editor could not open the rules.
    std::string unopened(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"--log", log.string()});
        const Outcome outcome = kvexrules(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.output, "result: 0\n");
        EXPECT_THAT(outcome.errors, AllOf(HasSubstr("The rules could not be opened"),
                                          HasSubstr("The log is " + log.string())));
        EXPECT_THAT(readFile(log), HasSubstr("\tKVEXMessageRules: Error occured. Sub: ShowRuleUI, "
                                             "Module: RuleUI\t"));
        return outcome.errors;
    }

    std::filesystem::path log = folder / "chosen.log";
};

TEST_F(Edit, WithoutADisplayAndATerminalSaysSoBeforeAnythingElse) {
    EXPECT_EQ(failed(2, {"edit", "--log", log.string()}),
              "kvexrules: No window can be shown. The toolkit \"qt\" cannot be used. There is no "
              "display (neither $DISPLAY nor $WAYLAND_DISPLAY is set). Start the program in a "
              "graphical session or over ssh -X. The toolkit \"terminal\" cannot be used. The "
              "standard input and output are no terminal. Start the program at a terminal. "
              "Without windows, kvexrules list and kvexrules show print the rules.\n");
    EXPECT_EQ(failed(2, {}), failed(2, {"edit"}));
    EXPECT_FALSE(std::filesystem::exists(log));
}

TEST_F(Edit, OnADisplayThatCannotBeReachedSaysSo) {
    environment["DISPLAY"] = ":7777";
    EXPECT_THAT(failed(2, {"edit"}),
                AllOf(HasSubstr("no display that can be reached"), Not(HasSubstr("named by"))));
}

TEST_F(Edit, AtATerminalThatItCannotUseSaysWhy) {
    const std::map<std::string, std::string> reasons{
        {"dumb", "This terminal cannot place its cursor (TERM=dumb)"},
        {"nosuchterminal", "The type of this terminal is not known (TERM=nosuchterminal)"},
        {"", "TERM does not say what type your terminal has"},
    };
    for (const auto &[kind, reason] : reasons) {
        environment["TERM"] = kind;
        const Outcome outcome = atTerminal({"edit", "--toolkit", "terminal"});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.output,
                  "kvexrules: No window can be shown. The toolkit \"terminal\" cannot be used. " +
                      reason +
                      "; set TERM to the type that your terminal has, or use a display. Without "
                      "windows, kvexrules list and kvexrules show print the rules.\n");
    }
}

TEST_F(Edit, TheOptionDecidesBeforeTheVariable) {
    environment["KVEX_TOOLKIT"] = "curtains";
    EXPECT_THAT(failed(2, {"edit"}), HasSubstr("$KVEX_TOOLKIT is \"curtains\""));
    EXPECT_THAT(failed(2, {"edit", "--toolkit", "qt"}),
                StartsWith("kvexrules: No window can be shown. The toolkit \"qt\" cannot be used. "
                           "There is no display "));
}

TEST_F(Edit, OffersToMakeADatabaseThatIsMissing) {
    environment["KVEX_DATABASE"] = (folder / "new.db").string();
    const std::string question = "The database file " + (folder / "new.db").string() +
                                 " does not exist. The database was named by $KVEX_DATABASE. "
                                 "Make it, without rules? [y/N] ";
    environment["QT_QPA_PLATFORM"] = "offscreen";
    writeFile(folder / "file", "");
    const Outcome outcome = atTerminal({"edit", "--log", (folder / "file/a.log").string()}, "Y\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.output, StartsWith(question + "kvexrules: The log "));
    EXPECT_EQ(done({"list"}), "");
}

TEST_F(Edit, MakesNoDatabaseWithoutConsent) {
    const std::filesystem::path missing = folder / "new.db";
    environment["QT_QPA_PLATFORM"] = "offscreen";
    for (const char *answer : {"\n", "n\n", "maybe\n", "\x04"}) {
        const Outcome outcome = atTerminal({"edit", "--database", missing.string()}, answer);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.output,
                    EndsWith("kvexrules: The database file " + missing.string() +
                             " does not exist, and was not made. Make it with kvexrules init, or "
                             "name another database.\n"));
        EXPECT_FALSE(std::filesystem::exists(missing));
    }
}

TEST_F(Edit, NamesInitWhereNobodyCanBeAsked) {
    EXPECT_THAT(failed(2, {"edit", "--database", (folder / "new.db").string()}),
                EndsWith("Without windows, kvexrules init makes the database, which does not exist "
                         "yet.\n"));
    EXPECT_FALSE(std::filesystem::exists(folder / "new.db"));
}

TEST_F(Edit, OfAnUnknownProviderSaysSo) {
    environment["QT_QPA_PLATFORM"] = "offscreen";
    EXPECT_THAT(unopened({"--database", "Provider=Paper;PWD=s3cret"}),
                AllOf(HasSubstr("Provider=SQLite"), HasSubstr("named by --database"),
                      Not(HasSubstr("s3cret"))));
    EXPECT_THAT(readFile(log), Not(HasSubstr("s3cret")));
}

TEST_F(Edit, TakesOnlyNumbersForIds) {
    environment["QT_QPA_PLATFORM"] = "offscreen";
    EXPECT_THAT(failed(2, {"edit", "--rule", "one"}), HasSubstr("\"one\" is not the id of a rule"));
    EXPECT_THAT(failed(2, {"edit", "--user", "asha"}),
                HasSubstr("\"asha\" is not the id of a user"));
}

TEST_F(Edit, RefusesALogThatCannotBeWritten) {
    environment["QT_QPA_PLATFORM"] = "offscreen";
    writeFile(folder / "file", "");
    EXPECT_THAT(failed(2, {"edit", "--log", (folder / "file/a.log").string()}),
                AllOf(HasSubstr("cannot be written"), HasSubstr("--log")));
}

} // namespace
} // namespace kvex::process
