// Clicks on rows of the rules window, until the rule's description is painted.
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"
#include "bench/windows/Painting.h"
#include "bench/windows/RulesWindow.h"

#include <QApplication>
#include <QDialog>
#include <QMouseEvent>
#include <QTextEdit>
#include <QTreeView>
#include <QVBoxLayout>

#include <map>

namespace kvex::bench {
namespace {

/// How many rows are clicked, one after the other.
constexpr int clicks = 10;

/// Gives the rules that are clicked the same texts at every size: those of the rules 1, 11, 21 and
/// so on up to 91. Some are long, some short.
constexpr const char *sameTexts =
    "WITH source AS MATERIALIZED ("
    "  SELECT ID / 10 AS place, Name, QueryParam, ActionParam FROM SMS_RULES"
    "  WHERE ID <= 100 AND ID % 10 = 1) "
    "UPDATE SMS_RULES SET Name = source.Name, QueryParam = source.QueryParam,"
    " ActionParam = source.ActionParam FROM source "
    "WHERE ID = (SELECT COUNT(*) FROM SMS_RULES) / 2 + 1 + place";

const QString description = QStringLiteral("rtRuleDesc");

void click(QTreeView &list, int row) {
    const QPointF at = list.visualRect(list.model()->index(row, 0)).center();
    QWidget &target = *list.viewport();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, at, target.mapToGlobal(at), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&target, &event);
    }
}

/// Scrolls until a row in the middle of the list is the first one shown, and returns its number.
int scrollToMiddle(QTreeView &list) {
    const int row = list.model()->rowCount() / 2;
    untilPainted(list.objectName(),
                 [&] { list.scrollTo(list.model()->index(row, 0), QTreeView::PositionAtTop); });
    return row;
}

const RuleDatabase &databaseOf(std::size_t rules) {
    static std::map<std::size_t, RuleDatabase> databases;
    const auto [database, isNew] = databases.try_emplace(rules, rules, Place::memory);
    if (isNew) {
        database->second.execute(sameTexts);
    }
    return database->second;
}

void clickRows(benchmark::State &state) {
    requireDisplay();
    QtSession session(databaseOf(sizeOf(state)).connectionString());
    session.open();
    session.showRulesWindow([&state] {
        auto &list = shown<QTreeView>(QStringLiteral("lvwRules"));
        const int first = scrollToMiddle(list);
        for (auto _ : state) {
            Stopwatch watch(state);
            for (int row = first; row < first + clicks; ++row) {
                untilPainted(description, [&] { click(list, row); });
            }
            watch.stop();
        }
        closeWindow();
    });
}

/// Painting waits for the display, and the wait varies.
void manyTimes(benchmark::internal::Benchmark *benchmark) {
    atEverySize(benchmark);
    benchmark->MinTime(0.3);
}
BENCHMARK(clickRows)->Name("row_click")->Apply(manyTimes);

struct Descriptions {
    std::vector<QString> texts;
    QSize box;
};

Descriptions describedRows(std::size_t rules) {
    Descriptions described;
    QtSession session(databaseOf(rules).connectionString());
    session.open();
    session.showRulesWindow([&described] {
        auto &list = shown<QTreeView>(QStringLiteral("lvwRules"));
        const int first = scrollToMiddle(list);
        for (int row = first; row < first + clicks; ++row) {
            click(list, row);
            described.texts.push_back(shown<QTextEdit>(description).toPlainText());
        }
        described.box = shownWidget(description).size();
        closeWindow();
    });
    return described;
}

void setTexts(benchmark::State &state) {
    requireDisplay();
    const Descriptions described = describedRows(sizeOf(state));
    QDialog window;
    auto *box = new QTextEdit(&window);
    box->setObjectName(description);
    (new QVBoxLayout(&window))->addWidget(box);
    box->setFixedSize(described.box);
    window.setModal(true);
    untilPainted(description, [&window] { window.show(); });
    for (auto _ : state) {
        Stopwatch watch(state);
        for (const QString &text : described.texts) {
            untilPainted(description, [&] { box->setPlainText(text); });
        }
        watch.stop();
    }
}
BENCHMARK(setTexts)->Name("row_click.peer")->Apply(manyTimes);

} // namespace
} // namespace kvex::bench
