#include "host/kvexrules/Console.h"

#include "host/kvexrules/Failure.h"
#include "tests/host/StandardStream.h"
#include "tests/support/Terminal.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
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
        const StandardStream errors(STDERR_FILENO, terminal.program);
        call();
        std::array<char, 4096> buffer{};
        const ssize_t count = read(terminal.master, buffer.data(), buffer.size());
        return {buffer.data(), static_cast<std::size_t>(count)};
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

TEST_F(ConsoleOnATerminal, LetsNoQuestionControlIt) {
    EXPECT_EQ(answerTo("n\n", "\x1b[2J?"), false);
    EXPECT_EQ(asked, "\uFFFD[2J? [y/N] ");
}

} // namespace
} // namespace kvex::host
