// The program's commands, run inside the test program.
#include "host/kvexrules/CommandLine.h"

#include "host/kvexrules/Failure.h"
#include "host/suite/Databases.h"
#include "platform/Text.h"
#include "tests/host/EnvironmentVariables.h"
#include "tests/host/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kvex::host {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

struct Ended {
    int status;
    std::string output;
    std::string errors;
};

class Commands : public testing::Test {
protected:
    void SetUp() override {
        for (const char *name :
             {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "KVEX_TOOLKIT"}) {
            environment.set(name, std::nullopt);
        }
        environment.set("HOME", (folder / "home").string());
        environment.set("KVEX_DATABASE", file.string());
    }

    static Ended ended(const std::vector<const char *> &arguments) {
        Ended ended{};
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        std::string failure;
        try {
            const Request request = parseArguments(arguments, commands());
            ended.status = request.command->run(request);
        } catch (const Failure &failed) {
            ended.status = failed.status();
            failure = failed.what();
        }
        ended.output = testing::internal::GetCapturedStdout();
        ended.errors = testing::internal::GetCapturedStderr() + failure;
        return ended;
    }

    static std::string done(const std::vector<const char *> &arguments) {
        Ended result = ended(arguments);
        EXPECT_EQ(result.status, exit_status::done) << result.errors;
        EXPECT_EQ(result.errors, "");
        return std::move(result.output);
    }

    static std::string failed(int status, const std::vector<const char *> &arguments) {
        Ended result = ended(arguments);
        EXPECT_EQ(result.status, status);
        EXPECT_EQ(result.output, "");
        return std::move(result.errors);
    }

    /// The rows of a query, with "|" between columns and a newline after each row.
    std::string rows(std::u16string_view query) const {
        const auto connection = openDatabase(fromUtf8(file.string()));
        const auto found = createRecordset();
        found->open(query, *connection);
        std::string text;
        for (; !found->eof(); found->moveNext()) {
            text += toUtf8(textOf(*found, u"T")) + "\n";
        }
        return text;
    }

    void run(const std::u16string &statement) const {
        const auto connection = openDatabase(fromUtf8(file.string()));
        connection->driver().lock()->execute({statement, {}});
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder / "rules.db";
    EnvironmentVariables environment;
};

TEST_F(Commands, VersionIsANumber) {
    EXPECT_THAT(done({"version"}),
                testing::MatchesRegex("kvexrules [0-9]+\\.[0-9]+\\.[0-9]+\ncommit: .+\n(.+\n)+"));
}

TEST_F(Commands, InitMakesTablesOnce) {
    EXPECT_EQ(done({"init"}), "ready: " + file.string() + "\n");
    EXPECT_EQ(done({"list"}), "");
    EXPECT_EQ(failed(1, {"init"}),
              "The database has its tables already, so nothing was changed. Name another with "
              "--database. The database was named by $KVEX_DATABASE.");
}

TEST_F(Commands, InitNamesTheFileOfAConnectionString) {
    const std::string text = "Provider=SQLite;Data Source=" + file.string();
    EXPECT_EQ(done({"init", "--database", text.c_str()}), "ready: " + file.string() + "\n");
}

TEST_F(Commands, ShowKeepsEveryByteInAPipe) {
    done({"init", "--sample"});
    run(u"UPDATE SMS_USERS SET NAME = 'a' || char(27) WHERE ID = 1");
    EXPECT_THAT(done({"show", "7"}), EndsWith("to a\x1b\n"));
}

TEST_F(Commands, EditRefusesALogThatCannotBeWritten) {
    done({"init"});
    environment.set("QT_QPA_PLATFORM", "offscreen");
    writeFile(folder / "file", "");
    const std::string log = (folder / "file/a.log").string();
    EXPECT_EQ(failed(2, {"edit", "--database", "Provider=Paper", "--log", log.c_str()}),
              "The log " + log +
                  " cannot be written (Not a directory). Choose another with --log.");
}

TEST_F(Commands, InitFillsTablesOnce) {
    EXPECT_EQ(done({"init", "--sample"}), "ready: " + file.string() + "\n");
    EXPECT_EQ(failed(1, {"init", "--sample"}),
              "The database holds data already, so nothing was added. Name another with "
              "--database. The database was named by $KVEX_DATABASE.");
}

TEST_F(Commands, InitReportsAMissingServer) {
    EXPECT_THAT(
        failed(2, {"init", "--database", "DSN=none"}),
        EndsWith(" kvexrules init needs a database that exists, and a user who may create tables "
                 "in it. Ask the server's administrator for both. "
                 "The database was named by --database."));
}

TEST_F(Commands, InitReportsAFolderThatItCannotMake) {
    environment.set("KVEX_DATABASE", std::nullopt);
    writeFile(folder / "home/.local", "");
    EXPECT_EQ(failed(2, {"init"}),
              "The folder " + (folder / "home/.local/share/kvex").string() +
                  " for your own database cannot be created (File exists). Make it, or name a "
                  "database with --database.");
}

TEST_F(Commands, InitMakesTheOwnDatabaseForItsOwnerAlone) {
    environment.set("KVEX_DATABASE", std::nullopt);
    const std::filesystem::path own = folder / "home/.local/share/kvex/rules.db";
    writeFile(folder / "before", "");
    EXPECT_EQ(done({"init"}), "ready: " + own.string() + "\n");
    EXPECT_EQ(std::filesystem::status(own).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    // Other files are as before.
    writeFile(folder / "after", "");
    EXPECT_EQ(std::filesystem::status(folder / "after").permissions(),
              std::filesystem::status(folder / "before").permissions());
}

TEST_F(Commands, InitLeavesTheTablesOfAnotherProgram) {
    done({"init"});
    run(u"DROP TABLE SMS_RULES");
    EXPECT_EQ(failed(1, {"init"}), "The database holds the tables of another program, so nothing "
                                   "was changed. Name another with --database. The database was "
                                   "named by $KVEX_DATABASE.");
}

TEST_F(Commands, InitRefusedByTheDatabaseEndsWithOne) {
    done({"init"});
    run(u"CREATE TRIGGER NEVER BEFORE INSERT ON SMS_RULES BEGIN SELECT RAISE(ABORT, 'never'); END");
    EXPECT_THAT(failed(1, {"init", "--sample"}),
                AllOf(HasSubstr("never"), EndsWith(" The database was named by $KVEX_DATABASE.")));
    EXPECT_EQ(rows(u"SELECT count(*) T FROM SMS_USERS"), "0\n");
}

TEST_F(Commands, ListSaysWhereTheNameOfAnUnreadableDatabaseCameFrom) {
    EXPECT_THAT(failed(2, {"list"}),
                AllOf(StartsWith("The database file " + file.string() + " does not exist"),
                      EndsWith(" The database was named by $KVEX_DATABASE.")));
}

TEST_F(Commands, SampleHasTheseRows) {
    done({"init", "--sample"});
    EXPECT_EQ(rows(u"SELECT ID || '|' || NAME T FROM SMS_USERS ORDER BY ID"),
              "1|SYSTEM\n2|Asha Rao\n3|Ravi Kumar\n4|प्रिया शर्मा\n5|Zoë O'Neill\n"
              "6|Night shift 🌙\n7|Meera Nair\n");
    EXPECT_EQ(rows(u"SELECT ID || '|' || NAME || '|' || BIND_MODE T FROM SMS_ACCOUNT ORDER BY ID"),
              "1|Main line|TRANSCEIVER\n2|Bulk sending|TRANSMITTER\n"
              "3|Short code 56070|RECEIVER\n4|दिल्ली कार्यालय|TRANSCEIVER\n"
              "5|Old modem 📟|transceiver\n");
    EXPECT_EQ(rows(u"SELECT ID || '|' || NAME || '|' || DISABLED T FROM SMS_SERVICE ORDER BY ID"),
              "1|Weather|0\n2|Account balance|0\n3|Competition|1\n");
    EXPECT_EQ(rows(u"SELECT SERVICE_ID || '|' || NAME T FROM SMS_SERVICECOMMANDS ORDER BY ID"),
              "1|WEATHER\n1|RAIN\n2|BALANCE\n3|WIN\n");
    EXPECT_EQ(rows(u"SELECT USER_ID || '|' || NAME || '|' || MOBILE T FROM SMS_CONTACTS ORDER BY "
                   u"ID"),
              "1|Branch office|9811100011\n1|Field engineer|9811100022\n"
              "1|अनिल गुप्ता|9811100033\n1|Duty officer 🚨|9811100044\n2|José Müller|9811100055\n");
}

TEST_F(Commands, SampleHasTheseRules) {
    done({"init", "--sample"});
    EXPECT_EQ(rows(u"SELECT PRIORITY || '|' || ACTIVE || '|' || Name T FROM SMS_RULES ORDER BY ID"),
              "1|1|Not stopped in March\n2|1|Help 🌙 at night\n3|1|दिल्ली के संदेश\n4|1|Strangers\n"
              "5|0|Advertisements\n6|1|No services\n7|1|Everything to the system\n");
    EXPECT_EQ(
        rows(u"SELECT QueryParam T FROM SMS_RULES ORDER BY ID"),
        "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>9811100011;9811100022</PEOPLE>"
        "<WORD><NOT><ALL><ASCOMMAND>STOP;HALT</WORD><DATETIME>20240301 09:00:00,20240331 18:30:00"
        "</DATETIME>\n"
        "<IGNOREIFSERVICE>YES</IGNOREIFSERVICE><WORD><CON><ANY>help;मदद;🆘</WORD>\n"
        "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><ACCOUNT><CON><ANY>4;5</ACCOUNT>\n"
        "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><NOT><ANY>9811100011;9811100022;9811100055"
        "</PEOPLE><ACCOUNT><NOT><ANY>1;3</ACCOUNT>\n"
        "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><WORD><CON><ALL>offer;free</WORD>\n"
        "<IGNOREIFSERVICE>YES</IGNOREIFSERVICE>\n"
        "<ALLMESSAGES>\n");
    const std::string goOn = "<DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>\n";
    EXPECT_EQ(rows(u"SELECT ActionParam T FROM SMS_RULES ORDER BY ID"),
              "<DIST>3;7</DIST><REPLY>Received;2</REPLY><ALERT>New message;2;9811100033;9811100044"
              "</ALERT><DELETE>NO</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>\n"
              "<DIST>6;5</DIST><REPLY>आपका संदेश मिला। We call back in the morning 🌙;4</REPLY>" +
                  goOn + "<DIST>4</DIST>" + goOn +
                  "<ALERT>Message from a stranger;1;9811100044</ALERT>" + goOn +
                  "<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>\n"
                  "<DIST>2</DIST>" +
                  goOn + "<DIST>1</DIST>" + goOn);
}

TEST_F(Commands, ListIsInPriorityOrderWithoutRemovedRules) {
    done({"init", "--sample"});
    run(u"UPDATE SMS_RULES SET PRIORITY = 1 WHERE ID IN (3, 4)");
    run(u"UPDATE SMS_RULES SET PRIORITY = 1, Name = NULL, ACTIVE = 2 WHERE ID = 2");
    run(u"UPDATE SMS_RULES SET DELETED = 1 WHERE ID > 5");
    EXPECT_EQ(done({"list"}), "1  on   1  stops  Not stopped in March\n2  off  2  -      \n"
                              "3  on   3  -      दिल्ली के संदेश\n4  on   4  -      Strangers\n"
                              "5  off  5  stops  Advertisements\n");
}

TEST_F(Commands, ShowPrintsTheRulesAskedFor) {
    done({"init", "--sample"});
    const std::string all = "Apply this Rule after the message arrives\nFor ALL Messages\n"
                            "Then distribute the message to SYSTEM\n";
    const std::string asha = "Apply this Rule after the message arrives\n"
                             "If the message is not a Service message \n"
                             "Then distribute the message to Asha Rao\n";
    EXPECT_EQ(done({"show", "7", "006"}), all + "\n" + asha);
    run(u"UPDATE SMS_RULES SET DELETED = 1 WHERE ID < 6");
    EXPECT_EQ(done({"show", "--all", "--format", "text"}), asha + "\n" + all);
    EXPECT_THAT(done({"show", "7", "6", "--format", "ansi"}),
                EndsWith("\033[34mSYSTEM\033[0m\n\n" + asha.substr(0, asha.find("Asha")) +
                         "\033[34mAsha Rao\033[0m\n"));
    EXPECT_THAT(done({"show", "7", "--format", "html"}),
                AllOf(StartsWith("<!DOCTYPE html>"), HasSubstr("<pre id=\"rule-7\">Apply"),
                      EndsWith("</pre>\n</body>\n</html>\n")));
}

TEST_F(Commands, ShowGoesOnAfterARuleThatIsNotThere) {
    done({"init", "--sample"});
    const Ended result = ended({"show", "99", "7"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, StartsWith("Apply this Rule"));
    EXPECT_EQ(result.errors, "kvexrules: There is no rule 99. To list the rules: kvexrules list\n");
}

TEST_F(Commands, ShowPrintsTheStoredTextsOfARuleThatCannotBeLoaded) {
    done({"init", "--sample"});
    run(u"UPDATE SMS_RULES SET QueryParam = '<ACCOUNT><CON><ANY>x</ACCOUNT><WORD>PWD=a' WHERE ID = "
        u"6");
    const std::string log = (folder / "a.log").string();
    const Ended result = ended({"show", "6", "7", "--log", log.c_str()});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(
        result.errors,
        "kvexrules: Not all of rule 6 could be read. Type mismatch. The log is " + log +
            ".\n"
            "kvexrules: OK in the editor would replace both texts by what was read before the "
            "error and what you enter there. The other conditions and actions would be lost. "
            "Correct the row in the database. Its texts are now:\n"
            "QueryParam: <ACCOUNT><CON><ANY>x</ACCOUNT><WORD>PWD=a\n"
            "ActionParam: <DIST>2</DIST><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO"
            "</IGNOREFURTHERRULES>\n");
    EXPECT_THAT(result.output, EndsWith("\n\nApply this Rule after the message arrives\n"
                                        "For ALL Messages\nThen distribute the message to "
                                        "SYSTEM\n"));
}

TEST_F(Commands, ShowPrintsTheStoredTextsOfARuleThatCannotBeDescribed) {
    done({"init", "--sample"});
    run(u"UPDATE SMS_RULES SET QueryParam = NULL, ActionParam = '<DIST>x</DIST>' WHERE ID = 6");
    const Ended result = ended({"show", "6"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors,
                EndsWith(".\nkvexrules: OK in the editor would write both texts again, and keep "
                         "the parts that cannot be described. Choose those parts again there, or "
                         "correct the row in the database. Its texts are now:\n"
                         "QueryParam: \nActionParam: <DIST>x</DIST>\n"));
}

TEST_F(Commands, ShowNeedsAllTables) {
    done({"init"});
    run(u"DROP TABLE SMS_SERVICECOMMANDS");
    EXPECT_THAT(failed(2, {"show", "--all"}),
                AllOf(StartsWith("The rules could not be opened. The database " + file.string() +
                                 " lacks a table (no such table: SMS_SERVICECOMMANDS). Make the "
                                 "tables with kvexrules init, or name another database. The log "
                                 "is "),
                      EndsWith(". The database was named by $KVEX_DATABASE.")));
}

TEST_F(Commands, ShowReadsRulesWithoutAPrimaryKey) {
    done({"init", "--sample"});
    const std::string rules = done({"show", "--all"});
    run(u"CREATE TABLE KEYLESS AS SELECT * FROM SMS_RULES");
    run(u"DROP TABLE SMS_RULES");
    run(u"ALTER TABLE KEYLESS RENAME TO SMS_RULES");
    EXPECT_EQ(done({"show", "--all"}), rules);
}

TEST_F(Commands, ShowRefusesUnknownFormatsMissingIdsAndTextsThatAreNoId) {
    EXPECT_EQ(failed(2, {"show", "1", "--format", "pdf"}),
              "There is no format \"pdf\". The formats are text, ansi and html.");
    for (const std::vector<const char *> &arguments :
         {std::vector<const char *>{"show"}, std::vector<const char *>{"show", "--all", "1"}}) {
        EXPECT_EQ(failed(2, arguments),
                  "Name the ids of the rules to show, or --all, but not both. "
                  "The ids are the numbers that kvexrules list shows.");
    }
    EXPECT_EQ(
        failed(2, {"show", "one"}),
        "\"one\" is not the id of a rule. The ids are the numbers that kvexrules list shows.");
}

TEST_F(Commands, EditWithoutADisplayAndATerminalSaysWhatToDo) {
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        environment.set(name, "");
    }
    const std::string noDisplay =
        "No window can be shown. The toolkit \"qt\" cannot be used. There is no display (neither "
        "$DISPLAY nor $WAYLAND_DISPLAY is set). Start the program in a graphical session or over "
        "ssh -X. "
        "Without windows, kvexrules ";
    EXPECT_EQ(failed(2, {"edit", "--toolkit", "qt"}),
              noDisplay + "init makes the database, which does not exist yet.");
    done({"init"});
    EXPECT_EQ(failed(2, {"edit", "--toolkit", "qt"}),
              noDisplay + "list and kvexrules show print the rules.");
    EXPECT_THAT(failed(2, {"edit", "--rule", "one"}),
                StartsWith("\"one\" is not the id of a rule."));
}

TEST_F(Commands, EditOffersTheKnownToolkits) {
    EXPECT_EQ(failed(2, {"edit", "--toolkit", "curtains"}),
              "There is no toolkit \"curtains\". The toolkits are qt and terminal.");
}

TEST_F(Commands, EditOnADisplayThatIsGoneDoesNotMentionTheDatabase) {
    done({"init"});
    environment.set("QT_QPA_PLATFORM", std::nullopt);
    environment.set("WAYLAND_DISPLAY", std::nullopt);
    environment.set("DISPLAY", ":7777");
    EXPECT_EQ(failed(2, {"edit", "--toolkit", "qt"}),
              "No window can be shown. The toolkit \"qt\" cannot be used. There is no display "
              "that can be reached. Start the program in a graphical session, or set DISPLAY. "
              "Without windows, kvexrules list and kvexrules show print the rules.");
}

TEST_F(Commands, EditSaysWhereTheNameOfAnUnusableDatabaseCameFrom) {
    environment.set("QT_QPA_PLATFORM", "offscreen");
    const std::string log = (folder / "a.log").string();
    const Ended result = ended({"edit", "--log", log.c_str(), "--database", "Provider=Paper"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "result: 0\n");
    EXPECT_THAT(result.errors, AllOf(StartsWith("kvexrules: The rules could not be opened. The "
                                                "connection string names no database"),
                                     EndsWith(". The log is " + log +
                                              ". The database was named by --database.\n")));
}

TEST_F(Commands, RegisterPrintsWhatItRegisters) {
    const std::string component =
        (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "libKVEXMessageRules.so")
            .string();
    const std::filesystem::path classes = folder / "home/.local/share/kvex/classes";
    EXPECT_EQ(done({"register"}), "registered: " + component + "\n");
    EXPECT_FALSE(std::filesystem::is_empty(classes));
    EXPECT_EQ(done({"unregister"}), "unregistered: " + component + "\n");
    EXPECT_TRUE(std::filesystem::is_empty(classes));
}

TEST_F(Commands, RegisterNeedsAHome) {
    environment.set("HOME", std::nullopt);
    for (const char *command : {"register", "unregister"}) {
        EXPECT_EQ(failed(2, {command}),
                  "There is no folder for the registration: neither $XDG_DATA_HOME nor $HOME names "
                  "one. Set one of them to an absolute path.");
    }
}

} // namespace
} // namespace kvex::host
