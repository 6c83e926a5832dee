// The dialogs of people and accounts with long lists: opens, adds an entry, removes one, presses
// OK.
#include "bench/support/RuleDatabase.h"
#include "bench/support/RuleSet.h"
#include "bench/support/Timing.h"
#include "bench/windows/Painting.h"
#include "bench/windows/RulesWindow.h"
#include "platform/Text.h"
#include "rules/RuleState.h"
#include "ui/conditions/frmRuleAccount.h"
#include "ui/conditions/frmRulePeople.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

namespace kvex::bench {
namespace {

void press(const char *button) {
    shown<QPushButton>(QLatin1String(button)).click();
}

void selectRow(const QString &list, int row) {
    auto &view = shown<QTreeView>(list);
    view.setCurrentIndex(view.model()->index(row, 0));
}

/// A list of `count` numbers from `first` on.
std::u16string entries(std::int64_t first, std::size_t count) {
    std::u16string list = toText(first);
    for (std::size_t added = 1; added < count; ++added) {
        list.append(u";").append(toText(first + static_cast<std::int64_t>(added)));
    }
    return list;
}

/// Shows the dialog, and runs `play` when its list is first painted.
template <class Dialog, class Play>
void timeDialog(benchmark::State &state, const QString &list, const Play &play) {
    Stopwatch watch(state);
    bool played = false;
    const Painting painting(list, [&] {
        if (!std::exchange(played, true)) {
            play();
        }
    });
    Dialog().Show();
    watch.stop();
}

void people(benchmark::State &state) {
    requireDisplay();
    QtSession session(readOnlyDatabase(100).connectionString());
    session.open();
    const std::u16string numbers = entries(9'800'000'000, sizeOf(state));
    const QString list = QStringLiteral("lvwPeople");
    for (auto _ : state) {
        ruleState().strPeople = numbers;
        timeDialog<frmRulePeople>(state, list, [&] {
            shown<QLineEdit>(QStringLiteral("txtMobileNo")).setText(QStringLiteral("9811100011"));
            untilPainted(list, [] { press("cmdAdd"); });
            selectRow(list, 1);
            untilPainted(list, [] { press("cmdRemove"); });
            press("cmdOK");
        });
        if (ruleState().strPeople.size() != numbers.size()) {
            state.SkipWithError("the list has other entries than it should");
        }
    }
}

/// Adds accounts up to the id `last`.
void addAccounts(const RuleDatabase &database, std::size_t last) {
    database.execute(("WITH RECURSIVE n(i) AS (SELECT " + std::to_string(accountCount + 1) +
                      " UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(last) +
                      ") INSERT INTO SMS_ACCOUNT (ID, NAME, BIND_MODE) SELECT i, 'Account ' || i, "
                      "'RECEIVER' FROM n")
                         .c_str());
}

void accounts(benchmark::State &state) {
    requireDisplay();
    const RuleDatabase database(1, Place::memory);
    addAccounts(database, sizeOf(state));
    QtSession session(database.connectionString());
    session.open();
    // All accounts except the last one, which the dialog adds.
    const std::u16string chosen = entries(1, sizeOf(state) - 1);
    const QString list = QStringLiteral("lvwAccountSelected");
    for (auto _ : state) {
        ruleState().varAccounts = chosen;
        timeDialog<frmRuleAccount>(state, list, [&] {
            selectRow(QStringLiteral("lvwAccountSource"), static_cast<int>(sizeOf(state)) - 1);
            untilPainted(list, [] { press("cmdAdd"); });
            selectRow(list, 1);
            untilPainted(list, [] { press("cmdRemove"); });
            press("cmdOK");
        });
        if (ruleState().varAccounts != entries(2, sizeOf(state) - 1)) {
            state.SkipWithError("the list has other entries than it should");
        }
    }
}

void ofEntries(benchmark::internal::Benchmark *benchmark) {
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->Arg(500)->Arg(5'000);
}
BENCHMARK(people)->Name("people_dialog")->Apply(ofEntries);
BENCHMARK(accounts)->Name("account_dialog")->Apply(ofEntries);

} // namespace
} // namespace kvex::bench
