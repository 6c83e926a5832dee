// Presses Move Up 99 times in the rules window, and waits for the painting after each step.
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"
#include "bench/windows/Painting.h"
#include "bench/windows/RulesWindow.h"

#include <QPushButton>
#include <QTreeView>

namespace kvex::bench {
namespace {

constexpr int steps = 99; // from the end of 100 rules to the top

void moveUp(benchmark::State &state) {
    requireDisplay();
    QtSession session(readOnlyDatabase(sizeOf(state)).connectionString());
    session.open();
    for (auto _ : state) {
        session.showRulesWindow([&state] {
            const QString name = QStringLiteral("lvwRules");
            auto &list = shown<QTreeView>(name);
            auto &button = shown<QPushButton>(QStringLiteral("cmdMoveUp"));
            untilPainted(name, [&list] {
                list.setCurrentIndex(list.model()->index(list.model()->rowCount() - 1, 0));
            });
            Stopwatch watch(state);
            for (int step = 0; step < steps; ++step) {
                untilPainted(name, [&button] { button.click(); });
            }
            watch.stop();
            closeWindow();
        });
    }
}
BENCHMARK(moveUp)->Name("move_up")->Apply(atEverySize)->Iterations(1);

} // namespace
} // namespace kvex::bench
