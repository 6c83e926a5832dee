#include "adapters/sqlite/SqliteDriver.h"

#include "adapters/recordset/RowStatements.h"
#include "adapters/sqlite/ResultColumns.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <sqlite3.h>

#include <algorithm>
#include <string>

namespace kvex::sqlite {
namespace {

std::string_view bytesOf(const void *data, sqlite3_stmt *row, int column) {
    return {static_cast<const char *>(data),
            static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

void deliver(sqlite3_stmt *row, int column, recordset::RowSink &sink) {
    switch (sqlite3_column_type(row, column)) {
    case SQLITE_INTEGER:
        sink.integer(sqlite3_column_int64(row, column));
        break;
    case SQLITE_FLOAT:
        sink.number(sqlite3_column_double(row, column));
        break;
    case SQLITE_TEXT:
        sink.utf8(bytesOf(sqlite3_column_text(row, column), row, column));
        break;
    case SQLITE_BLOB:
        sink.utf8(bytesOf(sqlite3_column_blob(row, column), row, column));
        break;
    default:
        sink.null();
    }
}

/// The key of an inserted row. It has its room before the row is inserted: memory that fails for a
/// number behind that would have the row inserted again.
class Key final : public recordset::RowSink {
public:
    explicit Key(std::size_t parts) { values.reserve(parts); }

    void columns(std::vector<recordset::Column> /*columns*/) override {}
    void null() override { values.emplace_back(Null()); }
    void integer(std::int64_t number) override { values.emplace_back(number); }
    void number(double number) override { values.emplace_back(number); }
    void text(std::u16string_view text) override { values.emplace_back(std::u16string(text)); }
    void utf8(std::string_view text) override { values.emplace_back(fromUtf8(text)); }

    std::vector<Value> values;
};

} // namespace

void SqliteDriver::query(const recordset::Statement &statement, recordset::RowSink &sink) {
    SqliteStatement query(database_, statement.text);
    if (sqlite3_column_count(query.handle()) == 0) {
        throw Error(error_number::badArgument,
                    u"The statement gives no rows: write a query, SELECT.");
    }
    query.bind(statement.parameters);
    // The columns are those of the schema that the first step finds.
    bool row = query.step();
    sink.columns(resultColumns(query));
    const int count = sqlite3_column_count(query.handle());
    int rows = 0;
    for (; row; row = query.step()) {
        for (int column = 0; column < count; ++column) {
            deliver(query.handle(), column, sink);
        }
        ++rows;
    }
    // What was read is held by whoever asked: SQLite need not hold its pages as well. Those of a
    // single row are few, and the ones that the next change needs.
    if (rows > 1) {
        sqlite3_db_release_memory(database_.handle());
    }
}

void SqliteDriver::describe(const std::u16string &query, std::vector<recordset::Column> &columns) {
    describeKeys(database_, SqliteStatement(database_, query), columns);
}

std::int64_t SqliteDriver::execute(const recordset::Statement &statement) {
    database_.requireInPlace();
    SqliteStatement &run = command(statement.text);
    run.bind(statement.parameters);
    try {
        while (run.step()) {
        }
    } catch (...) {
        command_.reset();
        throw;
    }
    run.reset();
    return sqlite3_changes64(database_.handle());
}

SqliteStatement &SqliteDriver::command(const std::u16string &text) {
    // As bytes: the operator compares character by character.
    if (!command_ || !std::ranges::equal(commandText_, text)) {
        command_.reset();
        command_.emplace(database_, text);
        commandText_ = text;
    }
    return *command_;
}

std::vector<Value> SqliteDriver::insert(std::u16string_view table,
                                        const std::vector<recordset::Assignment> &values,
                                        const std::vector<std::u16string_view> &keyColumns) {
    database_.requireInPlace();
    recordset::Statement insertion = recordset::insertRow(table, values, u"DEFAULT VALUES");
    insertion.text.append(u" RETURNING ").append(recordset::listed(keyColumns));
    SqliteStatement run(database_, insertion.text);
    run.bind(insertion.parameters);
    Key key(keyColumns.size());
    // The first step inserts the row, the last one stores it.
    run.step();
    for (std::size_t column = 0; column < keyColumns.size(); ++column) {
        deliver(run.handle(), static_cast<int>(column), key);
    }
    while (run.step()) {
    }
    return std::move(key.values);
}

std::u16string SqliteDriver::stillHolds(std::u16string_view column, const ValueView &read) const {
    // A BLOB is read as text, and a column's collation can take different texts for equal.
    return std::holds_alternative<std::u16string_view>(read.held())
               ? u"CAST(" + std::u16string(column) + u" AS TEXT) = ? COLLATE BINARY"
               : std::u16string(column) + u" = ?";
}

recordset::ColumnTypes SqliteDriver::columnTypes() const {
    // AUTOINCREMENT: the id of a removed row is not given again.
    return {.key = u"INTEGER PRIMARY KEY AUTOINCREMENT",
            .name = u"TEXT",
            .text = u"TEXT",
            .integer = u"INTEGER",
            .behindTable = u""};
}

std::vector<std::u16string> SqliteDriver::columnsOf(std::u16string_view table) {
    SqliteStatement names(database_, u"SELECT name FROM pragma_table_info(?)");
    names.bind({ValueView(table)});
    std::vector<std::u16string> columns;
    while (names.step()) {
        columns.push_back(names.text(0));
    }
    return columns;
}

void SqliteDriver::rollback() noexcept {
    // Without an error where there is no transaction any more.
    sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

} // namespace kvex::sqlite
