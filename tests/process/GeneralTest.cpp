// What all commands do alike.
#include "tests/process/KvexrulesTest.h"

namespace kvex::process {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class Kvexrules : public KvexrulesTest {};

TEST_F(Kvexrules, PrintsItsVersion) {
    const std::string component =
        (builtProgram().parent_path() / "libKVEXMessageRules.so").string();
    EXPECT_THAT(done({"version"}),
                testing::MatchesRegex("kvexrules [0-9]+\\.[0-9]+\\.[0-9]+\n"
                                      "commit: ([0-9a-f]{12}(-changed)?|unknown)\n"
                                      "component: " +
                                      component +
                                      "\n"
                                      "toolkit qt: Qt 6\\.[0-9.]+\n"
                                      "toolkit terminal: terminfo [0-9.]+\n"
                                      "SQLite: 3\\.[0-9.]+\n"
                                      "ODBC driver manager: [0-9]{2}\\.[0-9]{2}\\.[0-9.]+\n"
                                      "Unicode: utf8proc [0-9.]+\n"));
    EXPECT_EQ(done({"--version"}), done({"version"}));
}

TEST_F(Kvexrules, HelpsOnStandardOutput) {
    const std::string help = done({"help"});
    EXPECT_THAT(help, AllOf(HasSubstr("Usage: kvexrules"), HasSubstr("--database"),
                            HasSubstr("unregister"), HasSubstr("Exit status")));
    EXPECT_EQ(done({"--help"}), help);
}

TEST_F(Kvexrules, ExplainsACommand) {
    const std::string help = done({"help", "contacts", "list"});
    EXPECT_THAT(help, AllOf(HasSubstr("Usage: kvexrules contacts list"),
                            HasSubstr("  $ kvexrules contacts list | head -1\n")));
    EXPECT_EQ(done({"contacts", "list", "--help"}), help);
    EXPECT_EQ(done({"contacts", "-h", "list"}), help);
    EXPECT_THAT(done({"contacts", "--help"}), HasSubstr(help));
    EXPECT_EQ(failed(2, {"help", "lst"}),
              "kvexrules: There is no command \"lst\". Did you mean list? See: kvexrules help\n");
}

TEST_F(Kvexrules, RefusesWhatItDoesNotKnow) {
    EXPECT_THAT(failed(2, {"lsit"}), HasSubstr("no command \"lsit\""));
    EXPECT_THAT(failed(2, {"list", "--quick"}), HasSubstr("no option --quick"));
    EXPECT_THAT(failed(2, {"list", "extra"}), HasSubstr("does not take \"extra\""));
    EXPECT_THAT(failed(2, {"list", "--sample"}), HasSubstr("has no option --sample"));
    EXPECT_THAT(failed(2, {"list", "--database"}), HasSubstr("needs a value"));
}

TEST_F(Kvexrules, DoesNotNeedALocale) {
    done({"init", "--sample"});
    environment["LC_ALL"] = "C";
    const std::string list = done({"list"});
    EXPECT_THAT(list, HasSubstr("दिल्ली के संदेश"));
    environment["LC_ALL"] = "nowhere";
    EXPECT_EQ(done({"list"}), list);
}

TEST_F(Kvexrules, EndsQuietlyWhenTheReaderHasGone) {
    done({"init", "--sample"});
    const Outcome outcome = kvexrules({"list"}, Output::withoutReader);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
}

TEST_F(Kvexrules, EndsQuietlyInEveryCommandThatOnlyPrints) {
    done({"init", "--sample"});
    const std::string other = (folder / "other.db").string();
    for (const std::vector<std::string> &command : {std::vector<std::string>{"list"},
                                                    {"show", "--all"},
                                                    {"show", "--all", "--format", "html"},
                                                    {"contacts", "list"},
                                                    {"contacts", "export"},
                                                    {"contacts", "export", "-", "--format", "csv"},
                                                    {"init", "--database", other},
                                                    {"register"},
                                                    {"unregister"},
                                                    {"help"},
                                                    {"help", "show"},
                                                    {"version"}}) {
        const Outcome outcome = kvexrules(command, Output::withoutReader);
        EXPECT_EQ(outcome.status, 0) << command.front();
        EXPECT_EQ(outcome.errors, "") << command.front();
    }
}

TEST_F(Kvexrules, SaysElsewhereWhatItDidWhenTheReaderHasGone) {
    done({"init", "--sample"});
    writeFile(folder / "a.csv", "Name,Mobile\nMeera,98111\n");
    const std::vector<std::pair<std::vector<std::string>, std::string>> commands{
        {{"contacts", "import", "a.csv"}, "kvexrules: 1 contact added, 0 skipped.\n"},
        {{"contacts", "remove", "1"}, "kvexrules: 1 contact removed.\n"},
        {{"contacts", "export", "b.csv"}, "kvexrules: 4 contacts written.\n"}};
    for (const auto &[command, sentence] : commands) {
        const Outcome outcome = kvexrules(command, Output::withoutReader);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.errors, sentence);
    }
}

TEST_F(Kvexrules, ReportsOutputThatCannotBeWritten) {
    done({"init", "--sample"});
    for (const Output output : {Output::closed, Output::full}) {
        const Outcome outcome = kvexrules({"list"}, output);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.errors, HasSubstr("The output cannot be written"));
    }
}

TEST_F(Kvexrules, KeepsItsOutputOutOfFilesWhenItIsClosed) {
    EXPECT_EQ(kvexrules({"init", "--sample"}, Output::closed).status, 2);
    EXPECT_EQ(sqlite3(database, "PRAGMA integrity_check"), "ok\n");
    EXPECT_EQ(sqlite3(database, "SELECT count(*) FROM SMS_RULES"), "7\n");
}

TEST_F(Kvexrules, LoadsNoWindowsForATerminal) {
    done({"init", "--sample"});
    // The loader writes the names of the libraries to standard error.
    environment["LD_DEBUG"] = "files";
    EXPECT_THAT(kvexrules({"show", "7"}).errors,
                AllOf(HasSubstr("libKVEXMessageRules.so"), Not(HasSubstr("libQt6"))));
}

TEST_F(Kvexrules, ReadsTheUsersConfigurationFile) {
    environment.erase("KVEX_DATABASE");
    const std::filesystem::path chosen = folder / "chosen.db";
    writeFile(folder / "home/.config/kvex/kvexrules.conf",
              "# where our rules are\ndatabase = " + chosen.string() + "\n");
    EXPECT_EQ(done({"init"}), "ready: " + chosen.string() + "\n");
    EXPECT_EQ(done({"list"}), "");
    EXPECT_EQ(sqlite3(chosen, "SELECT count(*) FROM SMS_RULES"), "0\n");
}

TEST_F(Kvexrules, NamesTheLineOfAConfigurationThatItCannotRead) {
    const std::filesystem::path file = folder / "config/kvex/kvexrules.conf";
    environment["XDG_CONFIG_HOME"] = (folder / "config").string();
    writeFile(file, "user = 1\ncolour = red\n");
    EXPECT_THAT(failed(2, {"list"}), HasSubstr(file.string() + ":2: "));
}

} // namespace
} // namespace kvex::process
