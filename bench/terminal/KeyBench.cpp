// One arrow key in a long list: the time from the key to the last byte written, and the bytes.
#include "bench/support/RuleSet.h"
#include "bench/support/Timing.h"
#include "bench/terminal/HandPainter.h"
#include "bench/terminal/KeyTimer.h"
#include "host/addressbook/AddressBookWindow.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <termios.h>

namespace kvex::bench {
namespace {

constexpr std::string_view up = "\x1b[A";
constexpr std::string_view down = "\x1b[B";
constexpr std::string_view pageDown = "\x1b[6~";
constexpr std::string_view tab = "\t";
constexpr std::string_view escape = "\x1b";

/// What the arrow down does: selects the row below, or also scrolls the list.
enum class Step { selects, scrolls };

void press(KeyTimer &timer, Step step) {
    if (step == Step::selects) {
        timer.press(up);
    }
    timer.press(down);
}

/// The names are those of rules, in several scripts. The numbers follow no order.
std::vector<host::Contact> contacts(std::size_t count) {
    std::vector<host::Contact> all;
    std::int64_t number = 0;
    for (const RuleRow &rule : ruleRows(count)) {
        number = (number + 61'803'399) % 100'000'000;
        all.push_back(
            {toText(std::int64_t{rule.priority}), rule.name, toText(9'800'000'000 + number)});
    }
    return all;
}

/// Shows an address book. When `script` begins, the selected row is the last one in view.
void showContacts(std::size_t count, const std::function<void(KeyTimer &timer)> &script) {
    KeyTimer timer;
    host::AddressBookWindow window(timer.toolkit(), contacts(count), true);
    timer.onWindow = [&] {
        timer.press(tab);
        timer.press(pageDown);
        script(timer);
        timer.press(escape);
    };
    static_cast<void>(window.show());
}

void pressKeys(benchmark::State &state, Step step) {
    showContacts(sizeOf(state), [&](KeyTimer &timer) {
        for (auto _ : state) {
            press(timer, step);
            state.SetIterationTime(timer.seconds());
        }
    });
}

void countBytes(benchmark::State &state, Step step) {
    constexpr int keys = 50;
    showContacts(sizeOf(state), [&](KeyTimer &timer) {
        for (auto _ : state) {
            std::size_t most = 0;
            for (int key = 0; key < keys; ++key) {
                press(timer, step);
                most = std::max(most, timer.written());
            }
            state.SetIterationTime(timer.seconds());
            report(state, static_cast<double>(most));
        }
    });
}

/// A slow line of 9,600 baud takes less than half a second for these.
void allowedBytes(benchmark::State &state) {
    for (auto _ : state) {
        state.SetIterationTime(1);
        report(state, 400);
    }
}

/// The screens after some keys.
std::vector<HandPainter> screensAfter(std::size_t count, Step step) {
    std::vector<HandPainter> screens;
    showContacts(count, [&](KeyTimer &timer) {
        for (int key = 0; key < 2; ++key) {
            press(timer, step);
            screens.emplace_back(timer.everything());
        }
    });
    return screens;
}

/// A program that reads the key and writes the whole screen.
void repaint(benchmark::State &state, Step step) {
    const std::vector<HandPainter> screens = screensAfter(sizeOf(state), step);
    const test::Pty terminal;
    termios modes{};
    tcgetattr(terminal.program, &modes);
    cfmakeraw(&modes);
    tcsetattr(terminal.program, TCSANOW, &modes);
    std::size_t keys = 0;
    for (auto _ : state) {
        static_cast<void>(terminal.read());
        Stopwatch watch(state);
        terminal.type(down);
        std::array<char, 16> key{};
        if (read(terminal.program, key.data(), key.size()) <= 0) {
            throw std::runtime_error("no key has arrived");
        }
        const std::string bytes = screens[++keys % screens.size()].painted();
        if (write(terminal.program, bytes.data(), bytes.size()) <= 0) {
            throw std::runtime_error("the terminal takes no bytes");
        }
        watch.stop();
    }
}

void atSomeSizes(benchmark::internal::Benchmark *benchmark) {
    atEverySize(benchmark);
    benchmark->Iterations(50);
}
BENCHMARK_CAPTURE(pressKeys, selects, Step::selects)->Name("terminal_key")->Apply(atSomeSizes);
BENCHMARK_CAPTURE(repaint, selects, Step::selects)->Name("terminal_key.peer")->Apply(atSomeSizes);
BENCHMARK_CAPTURE(pressKeys, scrolls, Step::scrolls)->Name("terminal_scroll")->Apply(atSomeSizes);
BENCHMARK_CAPTURE(repaint, scrolls, Step::scrolls)
    ->Name("terminal_scroll.peer")
    ->Apply(atSomeSizes);

void once(benchmark::internal::Benchmark *benchmark) {
    atEverySize(benchmark);
    benchmark->Iterations(1);
}
BENCHMARK_CAPTURE(countBytes, selects, Step::selects)->Name("terminal_key_bytes")->Apply(once);
BENCHMARK(allowedBytes)->Name("terminal_key_bytes.peer")->Apply(once);
BENCHMARK_CAPTURE(countBytes, scrolls, Step::scrolls)->Name("terminal_scroll_bytes")->Apply(once);
BENCHMARK(allowedBytes)->Name("terminal_scroll_bytes.peer")->Apply(once);

} // namespace
} // namespace kvex::bench
