#include "host/kvexrules/Console.h"

#include "host/kvexrules/Failure.h"
#include "tests/host/EnvironmentVariables.h"
#include "tests/host/StandardStream.h"
#include "tests/support/Terminal.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace kvex::host {
namespace {

template <class Call> std::string errorsOf(const Call &call) {
    testing::internal::CaptureStderr();
    call();
    return testing::internal::GetCapturedStderr();
}

class ConsoleOnATerminal : public testing::Test {
protected:
    /// Returns what `call` writes to standard error, which is a terminal meanwhile.
    template <class Call> std::string shown(const Call &call) const {
        constexpr char end = '\0';
        {
            const StandardStream errors(STDERR_FILENO, terminal.program);
            call();
            EXPECT_EQ(write(STDERR_FILENO, &end, 1), 1);
        }
        // The terminal passes on what several writes wrote in pieces of its own.
        std::string text;
        for (char letter = ' '; read(terminal.master, &letter, 1) == 1 && letter != end;) {
            text += letter;
        }
        return text;
    }

    std::optional<bool> answerTo(const std::string &typed, std::string_view question = "Sure?") {
        const StandardStream input(STDIN_FILENO, terminal.program);
        EXPECT_EQ(write(terminal.master, typed.data(), typed.size()),
                  static_cast<ssize_t>(typed.size()));
        std::optional<bool> answer;
        asked = shown([&] { answer = askAtTerminal(question); });
        return answer;
    }

    test::Terminal terminal;
    std::string asked;
    EnvironmentVariables environment;
};

TEST(Console, PrintsExactlyTheText) {
    testing::internal::CaptureStdout();
    print("a\x1b\n");
    print("");
    print("b");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "a\x1b\nb");
}

TEST(Console, SaysWhyTheOutputCannotBeWritten) {
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    const StandardStream output(STDOUT_FILENO, full);
    close(full);
    try {
        print("a");
        ADD_FAILURE() << "no Failure was raised";
    } catch (const Failure &failure) {
        EXPECT_STREQ(failure.what(),
                     "The output cannot be written (No space left on device). "
                     "Redirect it to a terminal, a pipe or a disk with free space.");
        EXPECT_EQ(failure.status(), exit_status::unusable);
    }
}

TEST(Console, KnowsWhenTheReaderHasGone) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    const auto before = std::signal(SIGPIPE, SIG_DFL);
    {
        const StandardStream output(STDOUT_FILENO, ends[1]);
        close(ends[0]);
        close(ends[1]);
        secureStandardStreams();
        EXPECT_THROW(print("a"), ReaderGone);
    }
    std::signal(SIGPIPE, before);
}

TEST(Console, ComplainsInItsNameWithoutPasswords) {
    EXPECT_EQ(errorsOf([] { complain("PWD=s3cret; मदद \x1b"); }), "kvexrules: PWD=***; मदद \x1b\n");
}

TEST(Console, PrintsALineExactlyWithoutATerminal) {
    testing::internal::CaptureStdout();
    printLine("a\x1b\\");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "a\x1b\\\n");
}

TEST(Console, CanComplainWithoutChangingTheText) {
    EXPECT_EQ(errorsOf([] { complainExactly("PWD=x\x1b\\"); }), "PWD=x\x1b\\\n");
}

TEST(Console, AsksNobodyWithoutATerminal) {
    const test::Terminal terminal;
    std::optional<bool> answer = true;
    {
        const StandardStream input(STDIN_FILENO, terminal.program);
        EXPECT_EQ(errorsOf([&] { answer = askAtTerminal("Sure?"); }), "");
        EXPECT_EQ(answer, std::nullopt);
    }
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    const StandardStream input(STDIN_FILENO, nothing);
    const StandardStream errors(STDERR_FILENO, terminal.program);
    close(nothing);
    EXPECT_EQ(askAtTerminal("Sure?"), std::nullopt);
}

TEST(Console, KnowsWhetherItPrintsToATerminal) {
    const test::Terminal terminal;
    testing::internal::CaptureStdout();
    EXPECT_FALSE(printsToTerminal());
    static_cast<void>(testing::internal::GetCapturedStdout());
    const StandardStream output(STDOUT_FILENO, terminal.program);
    EXPECT_TRUE(printsToTerminal());
}

TEST_F(ConsoleOnATerminal, LetsNoComplaintControlIt) {
    EXPECT_EQ(shown([] { complain("a\\\x1b[2J\r\nb"); }), "kvexrules: a\\\uFFFD[2J\nb\n");
    EXPECT_EQ(shown([] { complainExactly("a\\\x1b[2J\nb"); }), "a\\\\\\u{1b}[2J\\nb\n");
}

TEST_F(ConsoleOnATerminal, LetsNoPrintedLineControlIt) {
    const StandardStream output(STDOUT_FILENO, terminal.program);
    EXPECT_EQ(shown([] { printLine("a\\\x1b[2J\nb"); }), "a\\\\\\u{1b}[2J\\nb\n");
}

TEST_F(ConsoleOnATerminal, TakesOnlyYesForConsent) {
    for (const char *yes : {"y\n", "Y\n", "yes\n", "YES\n"}) {
        EXPECT_EQ(answerTo(yes), true) << yes;
    }
    EXPECT_EQ(asked, "Sure? [y/N] ");
    for (const char *no : {"\n", "n\n", "no\n", "yeah\n", "ye\n"}) {
        EXPECT_EQ(answerTo(no), false) << no;
    }
}

TEST_F(ConsoleOnATerminal, ShowsProgressAndWipesIt) {
    environment.set("TERM", "xterm");
    EXPECT_EQ(shown([] {
                  Progress progress("Painting", 300);
                  for (int step = 0; step < 6; ++step) {
                      progress.step();
                  }
              }),
              "\rPainting\x1b[K\rPainting: 1 %\x1b[K\rPainting: 2 %\x1b[K\r\x1b[K");
}

TEST_F(ConsoleOnATerminal, ShowsNoProgressWhereItCannotBeWiped) {
    for (const auto &name : {std::optional<std::string>("dumb"), std::optional<std::string>()}) {
        environment.set("TERM", name);
        EXPECT_EQ(shown([] {
                      Progress("Painting", 1).step();
                      complain("done");
                  }),
                  "kvexrules: done\n");
    }
}

TEST(Console, ShowsNoProgressInAPipe) {
    EnvironmentVariables environment;
    environment.set("TERM", "xterm");
    EXPECT_EQ(errorsOf([] { Progress("Painting", 1).step(); }), "");
}

TEST(Console, PrintsColoursOnlyToATerminalThatHasThem) {
    EnvironmentVariables environment;
    environment.set("TERM", "xterm");
    environment.set("NO_COLOR", std::nullopt);
    testing::internal::CaptureStdout();
    EXPECT_FALSE(printsColours());
    static_cast<void>(testing::internal::GetCapturedStdout());
    const test::Terminal terminal;
    const StandardStream output(STDOUT_FILENO, terminal.program);
    EXPECT_TRUE(printsColours());
    environment.set("NO_COLOR", "");
    EXPECT_TRUE(printsColours());
    environment.set("NO_COLOR", "0");
    EXPECT_FALSE(printsColours());
    environment.set("NO_COLOR", "");
    environment.set("TERM", "dumb");
    EXPECT_FALSE(printsColours());
    environment.set("TERM", std::nullopt);
    EXPECT_FALSE(printsColours());
}

TEST(Console, ReportsWhatWasDoneEvenWhenTheReaderHasGone) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    {
        const StandardStream output(STDOUT_FILENO, ends[1]);
        close(ends[0]);
        close(ends[1]);
        EXPECT_EQ(errorsOf([] { report("1 removed."); }), "kvexrules: 1 removed.\n");
    }
    std::signal(SIGPIPE, before);
}

TEST_F(ConsoleOnATerminal, LetsNoQuestionControlIt) {
    EXPECT_EQ(answerTo("n\n", "\x1b[2J?"), false);
    EXPECT_EQ(asked, "\uFFFD[2J? [y/N] ");
}

} // namespace
} // namespace kvex::host
