#include "bench/windows/TableWindow.h"

#include "bench/windows/Painting.h"

#include <QDialog>
#include <QSqlError>
#include <QSqlTableModel>
#include <QTableView>
#include <QVBoxLayout>

#include <stdexcept>

namespace kvex::bench {
namespace {

const QString connectionName = QStringLiteral("table window");
const QString viewName = QStringLiteral("table");

} // namespace

TableDatabase::TableDatabase(const std::string &file)
    : database_(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName)) {
    database_.setDatabaseName(QString::fromStdString(file));
    if (!database_.open()) {
        throw std::runtime_error(database_.lastError().text().toStdString());
    }
}

TableDatabase::~TableDatabase() {
    database_ = {};
    QSqlDatabase::removeDatabase(connectionName);
}

void TableDatabase::show(const std::function<void()> &play) const {
    QSqlTableModel model(nullptr, database_);
    model.setTable(QStringLiteral("SMS_RULES"));
    model.setFilter(QStringLiteral("DELETED = 0"));
    model.setSort(model.fieldIndex(QStringLiteral("PRIORITY")), Qt::AscendingOrder);
    if (!model.select()) {
        throw std::runtime_error(model.lastError().text().toStdString());
    }
    while (model.canFetchMore()) {
        model.fetchMore();
    }
    QDialog window;
    auto *view = new QTableView(&window);
    view->setObjectName(viewName);
    view->setModel(&model);
    (new QVBoxLayout(&window))->addWidget(view);
    // About the size of the rules window.
    window.resize(760, 620);
    bool played = false;
    const Painting painting(viewName, [&] {
        if (!std::exchange(played, true)) {
            play();
        }
    });
    window.exec();
}

} // namespace kvex::bench
