// One key in a long list in a terminal, from its bytes to the last byte of the new picture. It is
// compared with a program that knows its screen and paints it anew by hand.
#include "adapters/terminal/TerminalToolkit.h"
#include "adapters/terminal/io/Terminal.h"
#include "bench/support/Timing.h"
#include "platform/controls/DesignPieces.h"
#include "platform/controls/ListView.h"
#include "tests/terminal/FakeDevice.h"

#include <array>
#include <string>

namespace kvex::bench {
namespace {

using namespace terminal;

const TerminalKind kind{"xterm-256color", Characters::unicode, true};
constexpr std::array keys{"\x1b[A", "\x1b[B"};

std::u16string rowText(std::size_t row) {
    const std::string digits = std::to_string(row);
    return u"The rule number " + std::u16string(digits.begin(), digits.end());
}

std::unique_ptr<Window> windowWithList(TerminalToolkit &toolkit, std::size_t rows) {
    ControlDesign list{ControlKind::listView, u"lvw"};
    list.columnHeaders = true;
    list.checkBoxes = true;
    auto window = toolkit.createWindow({u"frmTest", u"Rules", {list}, column({place(u"lvw")})});
    auto &view = window->get<ListView>(u"lvw");
    view.addColumn(u"Rules", 1);
    for (std::size_t row = 1; row <= rows; ++row) {
        view.addRow(rowText(row));
    }
    view.select(static_cast<int>(rows / 2));
    return window;
}

void key(benchmark::State &state) {
    test::FakeDevice device;
    TerminalToolkit toolkit(device, kind);
    const auto window = windowWithList(toolkit, sizeOf(state));
    std::optional<Stopwatch> watch;
    std::size_t number = 0;
    // The window waits for the next key when it has shown what the last one did.
    device.onWait = [&] {
        if (watch) {
            watch->stop();
            benchmark::DoNotOptimize(device.taken());
        }
        if (state.KeepRunning()) {
            watch.emplace(state);
            device.type(keys[number++ % keys.size()]);
        }
    };
    window->showModal();
}
BENCHMARK(key)->Name("terminal_key")->Apply(atEverySize);

/// The same picture: a title, headers and a page of rows, one of them selected.
CellGrid picture(Size size, std::size_t first, int selected) {
    CellGrid grid(size);
    const Rect all{0, 0, size.columns, size.rows};
    grid.fill({0, 0, size.columns, 1}, {.bold = true, .reverse = true});
    grid.put({1, 0}, u"Rules", {.bold = true, .reverse = true}, all);
    grid.put({2, 1}, u"Rules", {.bold = true}, all);
    for (int row = 2; row < size.rows - 1; ++row) {
        const Style style{.reverse = row == selected};
        grid.fill({2, row, size.columns - 4, 1}, style);
        grid.put({1, row}, u"│", {}, all);
        grid.put({2, row}, u"[ ] " + rowText(first + static_cast<std::size_t>(row)), style, all);
        grid.put({size.columns - 2, row}, u"│", {}, all);
    }
    grid.put({1, size.rows - 1}, u"Tab: next   Esc: cancel", {}, all);
    grid.cursor = Point{2, selected};
    return grid;
}

void repaint(benchmark::State &state) {
    test::FakeDevice device;
    Terminal terminal(device, kind);
    const OpenTerminal open(terminal);
    const std::size_t first = sizeOf(state) / 2;
    terminal.show(picture(terminal.size(), first, 4));
    std::size_t number = 0;
    for (auto _ : state) {
        Stopwatch watch(state);
        device.type(keys[number % keys.size()]);
        benchmark::DoNotOptimize(terminal.next());
        terminal.show(picture(terminal.size(), first, 4 + static_cast<int>(number++ % 2)));
        watch.stop();
        benchmark::DoNotOptimize(device.taken());
    }
}
BENCHMARK(repaint)->Name("terminal_key.peer")->Apply(atEverySize);

} // namespace
} // namespace kvex::bench
