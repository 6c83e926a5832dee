// kvexrules try as a process.
#include "tests/process/KvexrulesTest.h"

namespace kvex::process {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Try : public KvexrulesTest {
protected:
    void SetUp() override { done({"init"}); }
    void rule(const std::string &values) const {
        sqlite3(database, "INSERT INTO SMS_RULES (ID, PRIORITY, ACTIVE, Name, QueryParam, "
                          "ActionParam) VALUES (" +
                              values + ")");
    }
    std::string triedWith(const std::string &text) const {
        return done({"try", "--from", "1", "--account", "2", "--text", text});
    }
    std::string file(const std::string &lines) const {
        const std::filesystem::path path = folder / "messages.jsonl";
        writeFile(path, lines);
        return path.string();
    }
};

TEST_F(Try, PlaysTheEnabledRulesByTheirPriorities) {
    rule("1, 3, 1, 'last', '<ALLMESSAGES>', '<DIST>3</DIST>'");
    rule("2, 1, 1, 'first', '<WORD><CON><ANY>x</WORD>', '<DIST>4</DIST>'");
    rule("3, 2, 0, 'off', '<ALLMESSAGES>', '<DELETE>YES</DELETE>'");
    EXPECT_EQ(triedWith("Hello"), "rule 2 \"first\": does not apply: the text does not contain "
                                  "\"x\"\n"
                                  "rule 1 \"last\": applies\n"
                                  "    distributes the message to the users 3\n"
                                  "Processing ended after the last rule.\n");
}

TEST_F(Try, GoesOnAfterARuleThatCannotBeRead) {
    rule("1, 1, 1, 'broken', '<PEOPLE><CON><ANY>1', '<DELETE>YES</DELETE>'");
    rule("2, 2, 1, 'next', '<ALLMESSAGES>', NULL");
    EXPECT_EQ(triedWith("Hello"), "rule 1 \"broken\": does not apply: its conditions cannot be "
                                  "read: <PEOPLE> has no closing tag\n"
                                  "rule 2 \"next\": applies\n"
                                  "Processing ended after the last rule.\n");
}

TEST_F(Try, TakesTheMomentAndTheService) {
    rule("1, 1, 1, 'a', "
         "'<IGNOREIFSERVICE>YES</IGNOREIFSERVICE><DATETIME>20240301 09:00:00,20240301 "
         "10:00:00</DATETIME>', NULL");
    const std::vector<std::string> message{"try", "--from", "1", "--account", "2", "--text", "x"};
    const auto with = [&](std::vector<std::string> more) {
        more.insert(more.begin(), message.begin(), message.end());
        return done(more);
    };
    EXPECT_THAT(with({"--at", "2024-03-01 10:00"}), StartsWith("rule 1 \"a\": applies\n"));
    EXPECT_THAT(with({"--at", "2024-03-01T10:00:01"}),
                StartsWith("rule 1 \"a\": does not apply: it arrived after 2024-03-01 10:00:00\n"));
    EXPECT_THAT(with({"--at", "2024-03-01 10:00", "--service"}),
                StartsWith("rule 1 \"a\": does not apply: it is a service message\n"));
    EXPECT_THAT(with({}), HasSubstr("it arrived after"));
}

TEST_F(Try, ReadsAMomentWithATimeZoneInLocalTime) {
    environment["TZ"] = "IST-5:30";
    rule("1, 1, 1, 'a', '<DATETIME>20240301 14:30:00,20240301 14:30:00</DATETIME>', NULL");
    EXPECT_THAT(done({"try", "--from", "1", "--account", "2", "--text", "x", "--at",
                      "2024-03-01T09:00:00Z"}),
                StartsWith("rule 1 \"a\": applies\n"));
}

TEST_F(Try, CountsTheMessagesOfAFile) {
    rule("1, 1, 1, 'stop', '<WORD><CON><ANY>stop</WORD>', '<DELETE>YES</DELETE>'");
    rule("2, 2, 1, 'one', '<PEOPLE><CON><ANY>1</PEOPLE>', NULL");
    rule("3, 3, 1, 'none', '<ACCOUNT><CON><ANY>9</ACCOUNT>', NULL");
    const std::string lines = R"({"from": "1", "account": 2, "text": "Stop"}
{"from": "+1", "account": 2, "text": "Go"}

{"from": "2", "account": 2, "text": "Go", "at": "2024-03-01 09:00", "service": true})";
    const std::string expected = "3 messages, 3 enabled rules\n"
                                 "  rule 1 \"stop\": 1 message\n"
                                 "  rule 2 \"one\": 1 message\n"
                                 "  rule 3 \"none\": 0 messages\n"
                                 "Messages that no rule touched: 1 (line 4)\n"
                                 "Rules that no message touched: 1\n"
                                 "  rule 3 \"none\"\n";
    EXPECT_EQ(done({"try", "--messages", file(lines)}), expected);
    environment["TERM"] = "xterm";
    EXPECT_THAT(atTerminal({"try", "--messages", file(lines)}).output,
                StartsWith("\rPlaying messages"));
}

TEST_F(Try, NamesTheLineThatIsNoMessage) {
    EXPECT_THAT(failed(2, {"try", "--messages",
                           file("{\"from\": \"1\", \"account\": 2, \"text\": \"\"}\n\n{}\n")}),
                HasSubstr("messages.jsonl:3: \"from\" is missing. Nothing was counted."));
}

TEST_F(Try, NamesAFileThatCannotBeRead) {
    EXPECT_THAT(failed(2, {"try", "--messages", (folder / "none").string()}),
                HasSubstr("cannot be read (No such file or directory)"));
    EXPECT_THAT(failed(2, {"try", "--messages", folder.path().string()}),
                HasSubstr("cannot be read (Is a directory)"));
}

TEST_F(Try, NeedsAWholeMessageOrAFile) {
    EXPECT_THAT(failed(2, {"try"}), HasSubstr("The option --from is missing."));
    EXPECT_THAT(failed(2, {"try", "--from", "1", "--account", "2"}),
                HasSubstr("The option --text is missing."));
    EXPECT_THAT(failed(2, {"try", "--from", "1", "--account", "main", "--text", "a"}),
                HasSubstr("\"main\" is not the id of an account."));
    EXPECT_THAT(
        failed(2, {"try", "--from", "1", "--account", "2", "--text", "a", "--at", "yesterday"}),
        HasSubstr("\"yesterday\" is no moment."));
    EXPECT_THAT(failed(2, {"try", "--messages", "-", "--at", "2024-03-01 09:00"}),
                HasSubstr("--messages and --at exclude each other"));
}

TEST_F(Try, ChangesNothing) {
    done({"init", "--sample", "--database", (folder / "samples.db").string()});
    environment["KVEX_DATABASE"] = (folder / "samples.db").string();
    const std::string before = sqlite3(folder / "samples.db", ".dump");
    triedWith("STOP");
    EXPECT_EQ(sqlite3(folder / "samples.db", ".dump"), before);
}

TEST_F(Try, EndsQuietlyWhenItsReaderHasGone) {
    rule("1, 1, 1, 'a', '<ALLMESSAGES>', NULL");
    const Outcome outcome =
        kvexrules({"try", "--from", "1", "--account", "2", "--text", "a"}, Output::withoutReader);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
}

TEST_F(Try, EscapesWhatCouldDeceiveATerminal) {
    rule("1, 1, 1, 'a' || char(27), '<ALLMESSAGES>', '<REPLY>' || char(155) || ';1</REPLY>'");
    const auto printed = [&](const std::string &format) {
        return atTerminal({"try", "--from", "\x1b[2J", "--account", "2", "--text", "a", "--format",
                           format})
            .output;
    };
    for (const char *format : {"text", "json"}) {
        EXPECT_EQ(printed(format).find('\x1b'), std::string::npos) << printed(format);
        EXPECT_EQ(printed(format).find("\xc2\x9b"), std::string::npos) << printed(format);
    }
}

} // namespace
} // namespace kvex::process
