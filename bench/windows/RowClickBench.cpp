// A click on a row of the rules window, until the rule's description is painted.
#include "bench/support/RuleDatabase.h"
#include "bench/support/Timing.h"
#include "bench/windows/Display.h"
#include "bench/windows/Painting.h"
#include "bench/windows/RulesWindow.h"

#include <QApplication>
#include <QDialog>
#include <QMouseEvent>
#include <QTextEdit>
#include <QTreeView>
#include <QVBoxLayout>

namespace kvex::bench {
namespace {

/// So many rows are clicked one after the other: what they say is long and short.
constexpr int clicks = 10;

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

/// Makes a row in the middle of the list the first one shown; gives its number.
int scrollToMiddle(QTreeView &list) {
    const int row = list.model()->rowCount() / 2;
    untilPainted(list.objectName(),
                 [&] { list.scrollTo(list.model()->index(row, 0), QTreeView::PositionAtTop); });
    return row;
}

void clickRows(benchmark::State &state) {
    requireDisplay();
    QtSession session(readOnlyDatabase(sizeOf(state)).connectionString());
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
BENCHMARK(clickRows)->Name("row_click")->Apply(atEverySize);

std::vector<QString> describedRows(std::size_t rules) {
    std::vector<QString> texts;
    QtSession session(readOnlyDatabase(rules).connectionString());
    session.open();
    session.showRulesWindow([&texts] {
        auto &list = shown<QTreeView>(QStringLiteral("lvwRules"));
        const int first = scrollToMiddle(list);
        for (int row = first; row < first + clicks; ++row) {
            click(list, row);
            texts.push_back(shown<QTextEdit>(description).toPlainText());
        }
        closeWindow();
    });
    return texts;
}

void setTexts(benchmark::State &state) {
    requireDisplay();
    const std::vector<QString> texts = describedRows(sizeOf(state));
    QDialog window;
    auto *box = new QTextEdit(&window);
    box->setObjectName(description);
    (new QVBoxLayout(&window))->addWidget(box);
    // As large as the rules window's box.
    window.resize(740, 160);
    window.setModal(true);
    untilPainted(description, [&window] { window.show(); });
    for (auto _ : state) {
        Stopwatch watch(state);
        for (const QString &text : texts) {
            untilPainted(description, [&] { box->setPlainText(text); });
        }
        watch.stop();
    }
}
BENCHMARK(setTexts)->Name("row_click.peer")->Apply(atEverySize);

} // namespace
} // namespace kvex::bench
