// What Qt itself offers for a table of a database: a QTableView on a QSqlTableModel.
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

    /// The rules in a window, all rows fetched and sorted as the rules window sorts them, until
    /// `play`, which runs once they were painted, closes it.
    void show(const std::function<void()> &play) const;

private:
    QSqlDatabase database_;
};

} // namespace kvex::bench
