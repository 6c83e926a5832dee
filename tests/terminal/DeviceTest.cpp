#include "adapters/terminal/io/PosixDevice.h"

#include "adapters/terminal/io/Terminal.h"
#include "platform/Error.h"
#include "tests/terminal/Shell.h"

#include <csignal>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace kvex::terminal;
using kvex::controls::Key;
using kvex::test::areEqual;
using kvex::test::Ending;
using kvex::test::Shell;

/// What the terminal is given at the end, for xterm-256color.
const std::string left = "\x1b(B\x1b[m\x1b[r\x1b[?2004l\x1b[?1006l\x1b[?1000l\x1b[?7h\x1b[?1l\x1b>"
                         "\x1b[?25h\x1b[?1049l\x1b[23;0;0t";
constexpr int hungUpStatus = 7;

void show(Terminal &terminal, std::u16string_view text) {
    CellGrid grid(terminal.size());
    grid.put({0, 0}, text, {}, {0, 0, 80, 24});
    terminal.show(grid);
}

/// Shows "Rules" again whenever it must, and the size after a change. Ctrl+Z suspends, "q" ends.
void playWindows(Terminal &terminal) {
    show(terminal, u"Rules");
    for (;;) {
        const Input input = terminal.next();
        if (input == Input(Stroke{Key::suspend})) {
            terminal.suspend();
        } else if (input == Input(Repaint{})) {
            show(terminal, u"Rules");
        } else if (input == Input(Resized{})) {
            show(terminal,
                 u"columns: " + std::u16string(1, terminal.size().columns == 50 ? u'5' : u'?'));
        } else if (input == Input(HungUp{})) {
            std::_Exit(hungUpStatus);
        } else if (input == Input(Typed{u"q"})) {
            return;
        }
    }
}

/// A program that opens the terminal and does something in it.
std::function<void()> opening(const std::function<void(Terminal &)> &action) {
    return [action] {
        PosixDevice device(STDIN_FILENO, STDOUT_FILENO);
        Terminal terminal(device, {"xterm-256color", Characters::unicode, true});
        const OpenTerminal open(terminal);
        action(terminal);
    };
}

void expectRestored(Shell &shell, const Ending &ending) {
    EXPECT_TRUE(areEqual(ending.settings, shell.settings()));
    const std::string rest = shell.rest();
    EXPECT_TRUE(rest.ends_with(left)) << rest;
}

class EndingSignal : public testing::TestWithParam<int> {};

TEST_P(EndingSignal, LeavesTheTerminalAsItWas) {
    Shell shell(opening(playWindows));
    shell.readUntil("Rules");
    EXPECT_FALSE(areEqual(shell.settingsNow(), shell.settings()));
    shell.kill(GetParam());
    const Ending ending = shell.wait();
    EXPECT_TRUE(WIFSIGNALED(ending.status));
    EXPECT_EQ(WTERMSIG(ending.status), GetParam());
    expectRestored(shell, ending);
}

INSTANTIATE_TEST_SUITE_P(Signals, EndingSignal,
                         testing::Values(SIGTERM, SIGINT, SIGQUIT, SIGSEGV, SIGABRT, SIGBUS, SIGFPE,
                                         SIGILL, SIGPIPE, SIGALRM, SIGUSR1, SIGUSR2, SIGXCPU,
                                         SIGXFSZ, SIGSYS, SIGTRAP),
                         [](const auto &signal) {
                             return std::string(sigabbrev_np(signal.param));
                         });

struct End {
    const char *name;
    std::function<void(Terminal &)> action;
    std::function<bool(int status)> isExpected;
    /// What the program wrote to its diagnostic stream.
    std::string message = {};
};

class ProgramsEnd : public testing::TestWithParam<End> {};

TEST_P(ProgramsEnd, LeavesTheTerminalAsItWas) {
    Shell shell(opening(GetParam().action));
    const Ending ending = shell.wait();
    EXPECT_TRUE(GetParam().isExpected(ending.status)) << ending.status;
    EXPECT_TRUE(areEqual(ending.settings, shell.settings()));
    const std::string rest = shell.rest();
    EXPECT_TRUE(rest.ends_with(left + GetParam().message)) << rest;
}

bool isAborted(int status) {
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}

bool isDone(int status) {
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Uses up the stack before it comes to an end.
std::size_t recurse(std::size_t depth) { // NOLINT
    volatile std::size_t room[500] = {};
    room[depth % 500] = depth;
    return depth == 0 ? 0 : recurse(depth - 1) + room[depth % 500];
}

void throwError() {
    throw std::runtime_error("a bug");
}

void crash(Terminal & /*terminal*/) noexcept { // NOLINT: nothing catches the exception.
    throwError();
}

INSTANTIATE_TEST_SUITE_P(
    Ends, ProgramsEnd,
    testing::Values(End{"Return", [](Terminal &) {}, isDone},
                    End{"Exit", [](Terminal &) { std::exit(3); },
                        [](int status) { return WIFEXITED(status) && WEXITSTATUS(status) == 3; }},
                    End{"ExitInAnOpenWindowOverAnother",
                        [](Terminal &terminal) {
                            terminal.open();
                            show(terminal, u"Rules");
                            std::exit(0);
                        },
                        isDone},
                    End{"Abort", [](Terminal &) { std::abort(); }, isAborted},
                    End{"StackOverflow", [](Terminal &) { (void)recurse(1'000'000'000); },
                        [](int status) {
                            return WIFSIGNALED(status) && WTERMSIG(status) == SIGSEGV;
                        }},
                    End{"CaughtException",
                        [](Terminal &terminal) {
                            try {
                                const OpenTerminal open(terminal);
                                throw std::runtime_error("of a window");
                            } catch (const std::runtime_error &) {
                                show(terminal, u"Rules");
                            }
                        },
                        isDone},
                    End{"UncaughtException", crash, isAborted,
                        "terminate called after throwing an instance of 'std::runtime_error'\r\n"
                        "  what():  a bug\r\n"}),
    [](const auto &end) { return end.param.name; });

TEST(Suspend, ByTheUserGivesTheTerminalBackAndTakesItAgain) {
    Shell shell(opening(playWindows));
    shell.readUntil("Rules");
    const termios raw = shell.settingsNow();
    for (int time = 0; time < 3; ++time) {
        shell.type("\x1a");
        const Ending stop = shell.wait();
        EXPECT_TRUE(WIFSTOPPED(stop.status));
        EXPECT_EQ(WSTOPSIG(stop.status), SIGTSTP);
        expectRestored(shell, stop);
        shell.foreground();
        const std::string again = shell.readUntil("Rules");
        EXPECT_TRUE(again.starts_with("\x1b[?1049h")) << again;
        EXPECT_TRUE(areEqual(shell.settingsNow(), raw));
    }
    shell.type("q");
    const Ending end = shell.wait();
    EXPECT_TRUE(isDone(end.status));
    expectRestored(shell, end);
}

TEST(Suspend, FromOutsideGivesTheTerminalBackAndTakesItAgain) {
    Shell shell(opening(playWindows));
    shell.readUntil("Rules");
    shell.kill(SIGTSTP);
    const Ending stop = shell.wait();
    EXPECT_TRUE(WIFSTOPPED(stop.status));
    expectRestored(shell, stop);
    shell.foreground();
    shell.readUntil("Rules");
    shell.type("q");
    EXPECT_TRUE(isDone(shell.wait().status));
}

TEST(Suspend, CanBeFollowedByTheEnd) {
    Shell shell(opening(playWindows));
    shell.readUntil("Rules");
    shell.type("\x1a");
    expectRestored(shell, shell.wait());
    shell.kill(SIGTERM);
    shell.background();
    const Ending end = shell.wait();
    EXPECT_TRUE(WIFSIGNALED(end.status));
    EXPECT_EQ(WTERMSIG(end.status), SIGTERM);
    EXPECT_TRUE(areEqual(end.settings, shell.settings()));
    EXPECT_EQ(shell.rest(), "");
}

TEST(Suspend, LeavesTheTerminalToTheShellWhileInTheBackground) {
    Shell shell(opening(playWindows));
    shell.readUntil("Rules");
    shell.type("\x1a");
    expectRestored(shell, shell.wait());
    shell.background();
    const Ending stop = shell.wait();
    EXPECT_TRUE(WIFSTOPPED(stop.status));
    EXPECT_EQ(WSTOPSIG(stop.status), SIGTTOU);
    EXPECT_TRUE(areEqual(stop.settings, shell.settings()));
    EXPECT_EQ(shell.rest(), "");
    shell.foreground();
    shell.readUntil("Rules");
    shell.type("q");
    EXPECT_TRUE(isDone(shell.wait().status));
}

TEST(Suspend, ThatNoHandlerSeesEndsWithTheSameModes) {
    Shell shell(opening(playWindows));
    shell.readUntil("Rules");
    const termios raw = shell.settingsNow();
    shell.kill(SIGSTOP);
    EXPECT_TRUE(WIFSTOPPED(shell.wait().status));
    shell.foreground();
    shell.readUntil("Rules");
    EXPECT_TRUE(areEqual(shell.settingsNow(), raw));
    shell.type("q");
    const Ending end = shell.wait();
    EXPECT_TRUE(isDone(end.status));
    expectRestored(shell, end);
}

TEST(Suspend, InTheBackgroundCanBeFollowedByTheEnd) {
    Shell shell(opening(playWindows));
    shell.readUntil("Rules");
    shell.kill(SIGSTOP);
    (void)shell.wait();
    shell.background();
    EXPECT_TRUE(WIFSTOPPED(shell.wait().status));
    shell.kill(SIGTERM);
    shell.background();
    const Ending end = shell.wait();
    EXPECT_TRUE(WIFSIGNALED(end.status));
    EXPECT_EQ(shell.rest(), "");
}

TEST(HangUp, ReachesTheWindowsWhenTheLineIsLost) {
    Shell shell(opening(playWindows));
    shell.readUntil("Rules");
    shell.hangUp();
    const Ending end = shell.wait();
    EXPECT_TRUE(WIFEXITED(end.status));
    EXPECT_EQ(WEXITSTATUS(end.status), hungUpStatus);
}

TEST(HangUp, ReachesTheWindowsAsASignalAndLeavesTheTerminalAsItWas) {
    Shell shell(opening([](Terminal &terminal) {
        show(terminal, u"Rules");
        while (terminal.next() != Input(HungUp{})) {
        }
    }));
    shell.readUntil("Rules");
    shell.kill(SIGHUP);
    const Ending end = shell.wait();
    EXPECT_TRUE(isDone(end.status));
    expectRestored(shell, end);
}

TEST(Keys, ThatSendSignalsAreKeysOfTheWindows) {
    Shell shell(opening([](Terminal &terminal) {
        show(terminal, u"Rules");
        show(terminal, terminal.next() == Input(Stroke{Key::copy}) ? u"copied" : u"other");
        show(terminal, terminal.next() == Input(Stroke{Key::enter}) ? u"entered" : u"other");
        (void)terminal.next();
    }));
    shell.readUntil("Rules");
    shell.type("\x03");
    shell.readUntil("copied");
    shell.type("\r");
    shell.readUntil("entered");
    shell.type("\x1c");
    const Ending end = shell.wait();
    EXPECT_TRUE(WIFSIGNALED(end.status));
    EXPECT_EQ(WTERMSIG(end.status), SIGQUIT);
    expectRestored(shell, end);
}

TEST(Size, OfTheTerminalArrivesWhenItChanges) {
    Shell shell(opening(playWindows));
    shell.readUntil("Rules");
    shell.resize({50, 20});
    shell.readUntil("columns: 5");
    shell.type("q");
    EXPECT_TRUE(isDone(shell.wait().status));
}

TEST(Diagnostics, AppearAfterTheWindows) {
    Shell shell(opening([](Terminal &terminal) {
        show(terminal, u"Rules");
        std::fputs("a warning\n", stderr);
        (void)terminal.next();
    }));
    EXPECT_EQ(shell.readUntil("Rules").find("warning"), std::string::npos);
    shell.type("x");
    const Ending end = shell.wait();
    EXPECT_TRUE(isDone(end.status));
    EXPECT_EQ(shell.rest(), left + "a warning\r\n");
}

TEST(Diagnostics, AppearAfterASignal) {
    Shell shell(opening([](Terminal &terminal) {
        std::fputs("a warning\n", stderr);
        show(terminal, u"Rules");
        (void)terminal.next();
    }));
    shell.readUntil("Rules");
    shell.kill(SIGSEGV);
    EXPECT_TRUE(WIFSIGNALED(shell.wait().status));
    EXPECT_EQ(shell.rest(), left + "a warning\r\n");
}

TEST(Diagnostics, AppearOnceWhenTheProgramIsSuspended) {
    Shell shell(opening([](Terminal &terminal) {
        std::fputs("first\n", stderr);
        playWindows(terminal);
        std::fputs("second\n", stderr);
    }));
    shell.readUntil("Rules");
    shell.type("\x1a");
    (void)shell.wait();
    EXPECT_EQ(shell.rest(), left + "first\r\n");
    shell.foreground();
    shell.readUntil("Rules");
    shell.type("q");
    (void)shell.wait();
    EXPECT_EQ(shell.rest(), left + "second\r\n");
}

TEST(Diagnostics, ThatGoElsewhereAreNotHeld) {
    Shell shell([] {
        std::freopen("/dev/null", "w", stderr); // NOLINT
        opening([](Terminal &terminal) {
            std::fputs("a warning\n", stderr);
            show(terminal, u"Rules");
        })();
    });
    EXPECT_TRUE(isDone(shell.wait().status));
    EXPECT_EQ(shell.rest().find("warning"), std::string::npos);
}

TEST(Children, OfTheProgramLeaveTheTerminalAlone) {
    Shell shell(opening([](Terminal &terminal) {
        const pid_t child = fork();
        if (child == 0) {
            std::exit(0);
        }
        waitpid(child, nullptr, 0);
        const pid_t returning = fork();
        if (returning == 0) {
            return;
        }
        waitpid(returning, nullptr, 0);
        const pid_t killed = fork();
        if (killed == 0) {
            raise(SIGTERM);
        }
        int status = 0;
        waitpid(killed, &status, 0);
        show(terminal, WIFSIGNALED(status) ? u"Rules" : u"other");
        (void)terminal.next();
    }));
    EXPECT_EQ(shell.readUntil("Rules").find("\x1b[?1049l"), std::string::npos);
    EXPECT_FALSE(areEqual(shell.settingsNow(), shell.settings()));
    shell.kill(SIGTERM);
    expectRestored(shell, shell.wait());
}

} // namespace
