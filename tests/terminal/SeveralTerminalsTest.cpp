#include "adapters/terminal/io/PosixDevice.h"
#include "adapters/terminal/io/Terminal.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "tests/terminal/Emulator.h"
#include "tests/terminal/Pty.h"
#include "tests/terminal/Shell.h"

#include <array>
#include <csignal>
#include <deque>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <thread>
#include <utility>
#include <vector>

namespace {

using namespace kvex::terminal;
using kvex::test::areEqual;
using kvex::test::Emulator;
using kvex::test::Pty;

const TerminalKind xterm{"xterm-256color", Characters::unicode, true};

termios settingsOf(const Pty &pty) {
    termios settings{};
    tcgetattr(pty.program, &settings);
    return settings;
}

std::u16string nameOf(int number) {
    return u"window " + kvex::toText(std::int64_t{number});
}

/// Types and shows 200 times on a terminal of its own. Returns what the terminal shows at the end.
std::u16string play(const std::string &type, int number) {
    const Pty pty;
    PosixDevice device(pty.program, pty.program);
    Terminal terminal(device, {type, Characters::unicode, true});
    Emulator screen({80, 24});
    const OpenTerminal open(terminal);
    for (int time = 0; time < 200; ++time) {
        CellGrid grid(terminal.size());
        grid.put({time % 20, time % 24}, nameOf(number), {.bold = true}, {0, 0, 80, 24});
        terminal.show(grid);
        screen.take(pty.read());
        pty.type("a");
        if (terminal.next() != Input(Typed{u"a"})) {
            return u"another input";
        }
    }
    return screen.line(199 % 24);
}

TEST(SeveralTerminals, ShowWindowsInAThreadEach) {
    std::array<std::u16string, 4> shown;
    std::vector<std::thread> threads;
    for (std::size_t number = 0; number < shown.size(); ++number) {
        threads.emplace_back([&shown, number] {
            shown[number] =
                play(number % 2 == 0 ? "xterm-256color" : "linux", static_cast<int>(number));
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    const std::u16string indent(19, u' ');
    for (std::size_t number = 0; number < shown.size(); ++number) {
        EXPECT_EQ(shown[number], indent + nameOf(static_cast<int>(number)));
    }
}

TEST(SeveralTerminals, AreAllGivenBackByOneSignal) {
    const Pty other;
    const termios before = settingsOf(other);
    kvex::test::Shell shell([&other] {
        PosixDevice device(STDIN_FILENO, STDOUT_FILENO);
        PosixDevice otherDevice(other.program, other.program);
        device.acquire("", "");
        otherDevice.acquire("", "left");
        device.write("ready");
        (void)device.read(std::nullopt);
    });
    shell.readUntil("ready");
    EXPECT_FALSE(areEqual(settingsOf(other), before));
    shell.kill(SIGTERM);
    EXPECT_TRUE(areEqual(shell.wait().settings, shell.settings()));
    EXPECT_TRUE(areEqual(settingsOf(other), before));
    EXPECT_EQ(other.read(), "left");
}

int handled = 0;
bool wasRaw = true;
const Pty *watched = nullptr;

/// A host's own handler: the terminal is the user's while it runs.
void handle(int /*signal*/) {
    ++handled;
    wasRaw = (settingsOf(*watched).c_lflag & ICANON) == 0;
}

TEST(Handlers, OfTheHostRunWithTheTerminalGivenBackAndTheWindowsGoOn) {
    const Pty pty;
    watched = &pty;
    handled = 0;
    const auto before = std::signal(SIGTERM, handle);
    PosixDevice device(pty.program, pty.program);
    Terminal terminal(device, xterm);
    {
        const OpenTerminal open(terminal);
        EXPECT_EQ(settingsOf(pty).c_lflag & ICANON, 0U);
        raise(SIGTERM);
        EXPECT_EQ(handled, 1);
        EXPECT_FALSE(wasRaw);
        EXPECT_EQ(settingsOf(pty).c_lflag & ICANON, 0U);
        EXPECT_EQ(terminal.next(), Input(Repaint{}));
    }
    EXPECT_EQ(std::signal(SIGTERM, before), &handle);
}

TEST(Handlers, OfATimerHaveNothingToDoWithTheTerminal) {
    const Pty pty;
    watched = &pty;
    handled = 0;
    const auto before = std::signal(SIGALRM, handle);
    PosixDevice device(pty.program, pty.program);
    Terminal terminal(device, xterm);
    const OpenTerminal open(terminal);
    raise(SIGALRM);
    EXPECT_EQ(handled, 1);
    EXPECT_TRUE(wasRaw);
    std::signal(SIGALRM, before);
}

TEST(Handlers, OfTheHostLearnOfANewSize) {
    const Pty pty;
    watched = &pty;
    handled = 0;
    const auto before = std::signal(SIGWINCH, handle);
    PosixDevice device(pty.program, pty.program);
    Terminal terminal(device, xterm);
    {
        const OpenTerminal open(terminal);
        raise(SIGWINCH);
        EXPECT_EQ(handled, 1);
    }
    EXPECT_EQ(std::signal(SIGWINCH, before), &handle);
}

TEST(Handlers, OfTheHostDoNotLearnOfAHangUpThatClosesTheWindows) {
    const Pty pty;
    handled = 0;
    const auto before = std::signal(SIGHUP, handle);
    PosixDevice device(pty.program, pty.program);
    device.acquire("", "");
    raise(SIGHUP);
    EXPECT_EQ(device.read(std::nullopt).kind, Arrival::Kind::hungUp);
    EXPECT_EQ(handled, 0);
    device.release();
    EXPECT_EQ(std::signal(SIGHUP, before), &handle);
}

TEST(Handlers, IgnoreWhatTheProcessIgnored) {
    const Pty pty;
    const auto before = std::signal(SIGINT, SIG_IGN);
    PosixDevice device(pty.program, pty.program);
    Terminal terminal(device, xterm);
    {
        const OpenTerminal open(terminal);
        raise(SIGINT);
        EXPECT_FALSE(terminal.hasInput());
    }
    EXPECT_EQ(std::signal(SIGINT, before), SIG_IGN);
}

TEST(Handlers, AreTheOldOnesAfterTheLastTerminal) {
    const Pty one;
    const Pty two;
    PosixDevice first(one.program, one.program);
    PosixDevice second(two.program, two.program);
    const auto handlerOf = [](int signal) {
        struct sigaction action {};
        sigaction(signal, nullptr, &action);
        return action.sa_handler;
    };
    const auto before = handlerOf(SIGTERM);
    first.acquire("", "");
    second.acquire("", "");
    EXPECT_NE(handlerOf(SIGTERM), before);
    first.release();
    EXPECT_NE(handlerOf(SIGTERM), before);
    second.release();
    EXPECT_EQ(handlerOf(SIGTERM), before);
}

TEST(SeveralTerminals, AllHangUpByOneSignal) {
    const auto before = std::signal(SIGHUP, SIG_DFL);
    std::array<Pty, 2> ptys;
    std::array<Arrival, 2> arrivals;
    std::deque<PosixDevice> devices;
    std::vector<std::thread> threads;
    for (std::size_t at = 0; at < 2; ++at) {
        devices.emplace_back(ptys[at].program, ptys[at].program).acquire("", "");
    }
    for (std::size_t at = 0; at < 2; ++at) {
        ptys[at].type("a");
        threads.emplace_back([&, at] {
            while (arrivals[at].kind != Arrival::Kind::hungUp) {
                arrivals[at] = devices[at].read(std::nullopt);
                devices[at].write("read");
            }
        });
    }
    for (const Pty &pty : ptys) {
        while (pty.read().empty()) {
        }
    }
    raise(SIGHUP);
    for (std::thread &thread : threads) {
        thread.join();
    }
    devices.clear();
    std::signal(SIGHUP, before);
}

TEST(SeveralTerminals, HaveALimit) {
    std::deque<Pty> ptys(17);
    std::deque<PosixDevice> devices;
    for (const Pty &pty : ptys) {
        devices.emplace_back(pty.program, pty.program);
    }
    for (std::size_t at = 0; at < 16; ++at) {
        devices[at].acquire("", "");
    }
    const termios before = settingsOf(ptys[16]);
    EXPECT_THROW(devices[16].acquire("", ""), kvex::Error);
    EXPECT_TRUE(areEqual(settingsOf(ptys[16]), before));
}

TEST(PosixDevice, RefusesFilesThatAreNoTerminal) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    PosixDevice device(pipe[0], pipe[1]);
    try {
        device.acquire("", "");
        FAIL() << "acquired";
    } catch (const kvex::Error &error) {
        EXPECT_EQ(kvex::toUtf8(error.description()),
                  "The program's input and output are no terminal; start it at a terminal, without "
                  "a redirection, or use a display.");
    }
    close(pipe[0]);
    close(pipe[1]);
}

TEST(PosixDevice, ThatIsNotAcquiredBehavesAsIfHungUp) {
    const Pty pty;
    PosixDevice device(pty.program, pty.program);
    EXPECT_EQ(device.read(std::nullopt).kind, Arrival::Kind::hungUp);
    device.write("nobody reads this");
    device.suspend();
    device.release();
    EXPECT_EQ(pty.read(), "");
}

TEST(PosixDevice, ReadsAFloodInPieces) {
    Pty pty;
    PosixDevice device(pty.program, pty.program);
    device.acquire("", "");
    constexpr std::size_t size = std::size_t{10} << 20;
    std::thread user([&pty] {
        const std::string piece(4096, 'x');
        for (std::size_t sent = 0; sent < size; sent += piece.size()) {
            pty.type(piece);
        }
    });
    std::size_t count = 0;
    while (count < size) {
        const Arrival arrival = device.read(std::nullopt);
        ASSERT_EQ(arrival.kind, Arrival::Kind::bytes);
        count += arrival.bytes.size();
    }
    user.join();
    EXPECT_EQ(count, size);
    close(std::exchange(pty.user, -1));
    EXPECT_EQ(device.read(std::nullopt).kind, Arrival::Kind::hungUp);
    EXPECT_EQ(device.read(std::nullopt).kind, Arrival::Kind::hungUp);
    device.write("nobody reads this");
}

TEST(PosixDevice, WaitsAsLongAsItIsTold) {
    const Pty pty;
    PosixDevice device(pty.program, pty.program);
    device.acquire("", "");
    EXPECT_EQ(device.read(std::chrono::milliseconds(0)).kind, Arrival::Kind::nothing);
    EXPECT_EQ(device.read(std::chrono::milliseconds(1)).kind, Arrival::Kind::nothing);
    pty.type("a");
    const Arrival arrival = device.read(std::nullopt);
    EXPECT_EQ(arrival.kind, Arrival::Kind::bytes);
    EXPECT_EQ(arrival.bytes, "a");
}

TEST(PosixDevice, LearnsOfANewSizeWithoutASignal) {
    const Pty pty;
    PosixDevice device(pty.program, pty.program);
    device.acquire("", "");
    EXPECT_EQ(device.size(), (Size{80, 24}));
    const winsize size{30, 100, 0, 0};
    ioctl(pty.user, TIOCSWINSZ, &size);
    EXPECT_EQ(device.read(std::nullopt).kind, Arrival::Kind::resized);
    EXPECT_EQ(device.size(), (Size{100, 30}));
}

TEST(PosixDevice, OfAnotherSessionIsNotSuspended) {
    const Pty pty;
    PosixDevice device(pty.program, pty.program);
    device.acquire("", "");
    device.suspend();
    EXPECT_EQ(device.read(std::nullopt).kind, Arrival::Kind::resumed);
}

} // namespace
