#include "tests/process/KvexrulesTest.h"

namespace kvex::process {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

class Show : public KvexrulesTest {
protected:
    void SetUp() override { done({"init", "--sample"}); }

    /// Changes rule 6 so that its conditions cannot be read.
    void spoilRule() const {
        sqlite3(database, "UPDATE SMS_RULES SET QueryParam = '<PEOPLE><CON><ANY>98111' "
                          "WHERE ID = 6");
    }

    std::filesystem::path log = folder / "chosen.log";
};

const std::string stopInMarch =
    "Apply this Rule after the message arrives\n"
    "If the message is from 9811100011 or 9811100022\n"
    "and the message does not contain the words  (as SMS Command) STOP and HALT\n"
    "and the message is received between 01/03/2024 09:00:00 Hrs. to 31/03/2024 18:30:00 Hrs.\n"
    "Then distribute the message to Ravi Kumar and Meera Nair\n"
    "and send Reply 'Received' to the Sender through Account 'Bulk sending'\n"
    "and send Alert 'New message' through the Account 'Bulk sending' to 9811100033 and "
    "9811100044\n"
    "and do not process any more Rules\n";

const std::string helpAtNight =
    "Apply this Rule after the message arrives\n"
    "If the message is not a Service message \n"
    "and the message contains the words help or मदद or 🆘\n"
    "Then distribute the message to Night shift 🌙 and Zoë O'Neill\n"
    "and send Reply 'आपका संदेश मिला। We call back in the morning 🌙' to the Sender through Account "
    "'दिल्ली कार्यालय'\n";

const std::string delhi = "Apply this Rule after the message arrives\n"
                          "If the message is received through दिल्ली कार्यालय or Old modem 📟\n"
                          "Then distribute the message to प्रिया शर्मा\n";

const std::string strangers =
    "Apply this Rule after the message arrives\n"
    "If the message is not from 9811100011 or 9811100022 or 9811100055\n"
    "and the message is not received through Main line or Short code 56070\n"
    "Then send Alert 'Message from a stranger' through the Account 'Main line' to 9811100044\n";

const std::string advertisements = "This Rule is disabled\n"
                                   "If the message contains the words offer and free\n"
                                   "Then Delete it\n"
                                   "and do not process any more Rules\n";

const std::string noServices = "Apply this Rule after the message arrives\n"
                               "If the message is not a Service message \n"
                               "Then distribute the message to Asha Rao\n";

const std::string everything = "Apply this Rule after the message arrives\n"
                               "For ALL Messages\n"
                               "Then distribute the message to SYSTEM\n";

TEST_F(Show, PrintsADescriptionLineForLine) {
    EXPECT_EQ(done({"show", "1"}), stopInMarch);
    EXPECT_EQ(done({"show", "--format", "text", "007"}), everything);
}

TEST_F(Show, PrintsRulesInTheOrderAskedFor) {
    EXPECT_EQ(done({"show", "7", "5"}), everything + "\n" + advertisements);
}

TEST_F(Show, PrintsAllRulesInPriorityOrder) {
    sqlite3(database, "UPDATE SMS_RULES SET PRIORITY = 0 WHERE ID = 7");
    EXPECT_EQ(done({"show", "--all"}), everything + "\n" + stopInMarch + "\n" + helpAtNight + "\n" +
                                           delhi + "\n" + strangers + "\n" + advertisements + "\n" +
                                           noServices);
}

TEST_F(Show, PrintsNothingOfNoRules) {
    sqlite3(database, "DELETE FROM SMS_RULES");
    EXPECT_EQ(done({"show", "--all"}), "");
}

TEST_F(Show, ColoursForATerminal) {
    EXPECT_THAT(done({"show", "1", "--format", "ansi"}),
                HasSubstr("the words \033[31m (as SMS Command) \033[0m\033[34mSTOP and HALT\033["
                          "0m\n"));
}

TEST_F(Show, WritesAWellFormedPage) {
    sqlite3(database, "UPDATE SMS_USERS SET NAME = '<SYSTEM> & Co' WHERE ID = 1");
    const std::string page = done({"show", "7", "1", "--format", "html"});
    EXPECT_THAT(page, StartsWith("<!DOCTYPE html>\n"));
    EXPECT_THAT(page,
                HasSubstr("<body>\n<pre id=\"rule-7\">Apply this Rule after the message arrives\n"
                          "For ALL Messages\nThen distribute the message to "
                          "<span style=\"color:#0000ff\">&lt;SYSTEM&gt; &amp; Co</span></pre>\n"
                          "<pre id=\"rule-1\">Apply"));
    EXPECT_THAT(page, EndsWith("Rules</pre>\n</body>\n</html>\n"));
}

TEST_F(Show, ReportsAMissingRuleAndShowsTheOthers) {
    const Outcome outcome = kvexrules({"show", "99", "7", "98"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, everything);
    EXPECT_EQ(outcome.errors, "kvexrules: There is no rule 99. To list the rules: "
                              "kvexrules list\n"
                              "kvexrules: There is no rule 98. To list the rules: "
                              "kvexrules list\n");
}

TEST_F(Show, DoesNotShowADeletedRule) {
    sqlite3(database, "UPDATE SMS_RULES SET DELETED = 1 WHERE ID = 7");
    EXPECT_THAT(failed(1, {"show", "7"}), HasSubstr("no rule 7"));
}

TEST_F(Show, ReportsAndLogsARuleThatCannotBeReadWhole) {
    spoilRule();
    const Outcome outcome = kvexrules({"show", "6", "7", "--log", log.string()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, EndsWith("\n" + everything));
    EXPECT_THAT(outcome.errors,
                AllOf(HasSubstr("Not all of rule 6 could be read. Invalid procedure call or "
                                "argument. Parts of the rule with the ID 6, \"No services\", could "
                                "not be read. The log is " +
                                log.string() + ".\n"),
                      Not(HasSubstr("rule 7"))));
    EXPECT_THAT(readFile(log),
                MatchesRegex("[-0-9]+T[0-9:]+[-+][0-9:]+\tKVEXMessageRules: Error "
                             "occured. Sub: LoadRuleFromDB, Module: General\t5\t"
                             "[^\t\n]*\tInvalid procedure call or argument. Parts of "
                             "the rule with the ID 6, \"No services\", could not be "
                             "read.\n"));
}

TEST_F(Show, SaysWhatOkWouldLoseOfARuleThatCannotBeLoaded) {
    spoilRule();
    EXPECT_THAT(kvexrules({"show", "6"}).errors,
                AllOf(HasSubstr("OK in the editor would replace both texts"),
                      HasSubstr("QueryParam: <PEOPLE><CON><ANY>98111\n"
                                "ActionParam: <DIST>2</DIST><DELETE>NO</DELETE>"
                                "<IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>\n"),
                      Not(HasSubstr("kvexrules edit"))));
}

TEST_F(Show, SaysThatOkWouldNotRepairARuleThatCannotBeDescribed) {
    sqlite3(database, "UPDATE SMS_RULES SET QueryParam = 'PWD=x\x1b', ActionParam = "
                      "'<DIST>Asha</DIST>' WHERE ID = 6");
    EXPECT_THAT(
        kvexrules({"show", "6"}).errors,
        AllOf(HasSubstr("keep the parts that cannot be described. Choose those parts again"),
              HasSubstr("QueryParam: PWD=x\x1b\nActionParam: <DIST>Asha</DIST>\n")));
}

TEST_F(Show, SaysWhatOkWouldLoseWhenTheDescriptionFailsToo) {
    sqlite3(database, "UPDATE SMS_RULES SET QueryParam = '<ACCOUNT><CON><ANY>Asha</ACCOUNT><WORD>' "
                      "WHERE ID = 6");
    EXPECT_THAT(kvexrules({"show", "6"}).errors,
                HasSubstr("OK in the editor would replace both texts"));
}

TEST_F(Show, LetsNoRuleControlATerminal) {
    sqlite3(database, "UPDATE SMS_USERS SET NAME = 'a\x1b[2J\\' WHERE ID = 1");
    EXPECT_THAT(done({"show", "7"}), EndsWith("to a\x1b[2J\\\n"));
    const Outcome outcome = atTerminal({"show", "7"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, EndsWith("to a\\u{1b}[2J\\\\\n"));
    EXPECT_THAT(atTerminal({"show", "7", "--format", "html"}).output,
                HasSubstr(">a\xEF\xBF\xBD[2J"));
}

TEST_F(Show, HasColoursOnATerminalThatWantsThem) {
    sqlite3(database, "UPDATE SMS_USERS SET NAME = 'a\x1b[2J\\' WHERE ID = 1");
    environment["TERM"] = "xterm";
    const std::string coloured = "to \x1b[34ma\\u{1b}[2J\\\\\x1b[0m\n";
    EXPECT_THAT(atTerminal({"show", "7"}).output, EndsWith(coloured));
    const std::string plain = atTerminal({"show", "7", "--format", "text"}).output;
    EXPECT_THAT(plain, EndsWith("to a\\u{1b}[2J\\\\\n"));
    EXPECT_THAT(done({"show", "7"}), EndsWith("to a\x1b[2J\\\n"));
    environment["NO_COLOR"] = "1";
    EXPECT_EQ(atTerminal({"show", "7"}).output, plain);
    EXPECT_THAT(atTerminal({"show", "7", "--format", "ansi"}).output, HasSubstr("to \x1b[34m"));
    environment.erase("NO_COLOR");
    environment["TERM"] = "dumb";
    EXPECT_EQ(atTerminal({"show", "7"}).output, plain);
}

TEST_F(Show, LetsNoStoredTextControlATerminal) {
    sqlite3(database, "UPDATE SMS_RULES SET QueryParam = '<PEOPLE>\x1b[2J' WHERE ID = 6");
    EXPECT_THAT(kvexrules({"show", "6"}).errors, HasSubstr("<PEOPLE>\x1b[2J\n"));
    EXPECT_THAT(atTerminal({"show", "6"}).output,
                AllOf(HasSubstr("<PEOPLE>\\u{1b}[2J\n"), Not(HasSubstr("\x1b"))));
}

TEST_F(Show, NeedsIdsOrAll) {
    EXPECT_THAT(failed(2, {"show"}), HasSubstr("--all"));
    EXPECT_THAT(failed(2, {"show", "--all", "1"}), HasSubstr("not both"));
    EXPECT_THAT(failed(2, {"show", "one"}), HasSubstr("\"one\" is not the id of a rule"));
}

TEST_F(Show, RefusesAnUnknownFormat) {
    EXPECT_THAT(failed(2, {"show", "1", "--format", "pdf"}), HasSubstr("text, ansi and html"));
}

TEST_F(Show, RefusesALogThatCannotBeWritten) {
    writeFile(folder / "file", "");
    EXPECT_THAT(failed(2, {"show", "1", "--log", (folder / "file/a.log").string()}),
                AllOf(HasSubstr("cannot be written"), HasSubstr("--log")));
}

TEST_F(Show, NeedsAllTablesOfTheServer) {
    sqlite3(database, "DROP TABLE SMS_SERVICECOMMANDS");
    EXPECT_THAT(failed(2, {"show", "1", "--log", log.string()}),
                AllOf(HasSubstr("SMS_SERVICECOMMANDS"), HasSubstr(log.string())));
    EXPECT_THAT(readFile(log), HasSubstr("SMS_SERVICECOMMANDS"));
}

// AddressSanitizer needs more addresses than the limit allows.
#ifndef __SANITIZE_ADDRESS__
TEST_F(Show, EndsWithASentenceWhenTheRulesDoNotFitIntoMemory) {
    sqlite3(database, "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 8) "
                      "INSERT INTO SMS_RULES (Name, QueryParam, ActionParam) "
                      "SELECT 'big ' || i, printf('%.*c', 60000000, 'x'), '' FROM n");
    const Outcome outcome =
        run("/bin/sh",
            {"-c", "ulimit -v 700000; exec \"$0\" show 1 --log chosen.log", program.string()},
            environment, folder.path());
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors,
              "kvexrules: The rules could not be opened. Out of memory. The log is " +
                  log.string() + ". The database was named by $KVEX_DATABASE.\n");
}
#endif

TEST_F(Show, ChangesNothingInTheDatabase) {
    const std::string before = sqlite3(database, ".dump");
    done({"show", "--all"});
    EXPECT_EQ(sqlite3(database, ".dump"), before);
}

} // namespace
} // namespace kvex::process
