// What Qt itself offers to show a database table: a QTableView on a QSqlTableModel.
#pragma once

#include <QSqlDatabase>

#include <functional>
#include <string>

namespace kvex::bench {

/// Qt's connection to an SQLite file.
class TableDatabase {
public:
    explicit TableDatabase(const std::string &file);
    ~TableDatabase();
    TableDatabase(const TableDatabase &) = delete;
    TableDatabase &operator=(const TableDatabase &) = delete;

    /// Shows the rules in a window, with all rows fetched and sorted as in the rules window. `play`
    /// runs when they are first painted, and must close the window.
    void show(const std::function<void()> &play) const;

private:
    QSqlDatabase database_;
};

} // namespace kvex::bench
