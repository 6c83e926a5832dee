#include "adapters/sqlite/Provider.h"

#include "adapters/recordset/RowStatements.h"
#include "adapters/sqlite/DatabaseCopy.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/SqliteResult.h"
#include "adapters/sqlite/SqliteStatement.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <sqlite3.h>

#include <algorithm>
#include <optional>
#include <string>

namespace kvex::sqlite {
namespace {

using recordset::Assignment;
using recordset::Statement;

/// The key of an inserted row. It allocates its room before the row is inserted. If memory failed
/// for a number after that, the caller would insert the row again.
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

class SqliteDriver final : public recordset::Driver {
public:
    SqliteDriver(const recordset::ConnectionString &text, SqliteConnection::Missing missing)
        : connection_(text, missing) {}

    void query(const Statement &statement, recordset::RowSink &sink) override;
    void describe(const std::u16string &query, std::vector<recordset::Column> &columns) override;
    std::int64_t execute(const Statement &statement) override;
    std::vector<Value> insert(std::u16string_view table, const std::vector<Assignment> &values,
                              const std::vector<std::u16string_view> &keyColumns) override;
    [[nodiscard]] std::u16string stillHolds(std::u16string_view column,
                                            const ValueView &read) const override;
    [[nodiscard]] recordset::ColumnTypes columnTypes() const override;
    [[nodiscard]] std::vector<std::u16string> columnsOf(std::u16string_view table) override;
    bool copyTo(const std::string &file) override;
    void begin() override { connection_.execute("BEGIN IMMEDIATE"); }
    void beginSnapshot() override { connection_.execute("BEGIN"); }
    void commit() override { connection_.execute("COMMIT"); }
    void rollback() noexcept override;

private:
    /// The statement with this text; the last one stays prepared for a repetition.
    SqliteStatement &command(const std::u16string &text);

    SqliteConnection connection_;
    /// The last change. Many changes with the same text often follow each other.
    std::u16string commandText_;
    std::optional<SqliteStatement> command_;
};

void SqliteDriver::query(const Statement &statement, recordset::RowSink &sink) {
    SqliteStatement query(connection_, statement.text);
    if (sqlite3_column_count(query.handle()) == 0) {
        throw Error(error_number::badArgument, u"The statement returns no rows.");
    }
    query.bind(statement.parameters);
    const int rows = deliverResult(query, sink);
    // The caller holds what was read, so SQLite need not keep its pages too. Those of a single row
    // are few, and the next change needs them.
    if (rows > 1) {
        sqlite3_db_release_memory(connection_.handle());
    }
}

void SqliteDriver::describe(const std::u16string &query, std::vector<recordset::Column> &columns) {
    describeKeys(SqliteStatement(connection_, query), columns);
}

std::int64_t SqliteDriver::execute(const Statement &statement) {
    connection_.requireInPlace();
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
    return sqlite3_changes64(connection_.handle());
}

SqliteStatement &SqliteDriver::command(const std::u16string &text) {
    // This compares blocks of memory, which is faster than operator==: that compares single
    // characters.
    if (!command_ || !std::ranges::equal(commandText_, text)) {
        command_.reset();
        command_.emplace(connection_, text);
        commandText_ = text;
    }
    return *command_;
}

std::vector<Value> SqliteDriver::insert(std::u16string_view table,
                                        const std::vector<Assignment> &values,
                                        const std::vector<std::u16string_view> &keyColumns) {
    connection_.requireInPlace();
    Statement insertion = recordset::insertRow(table, values, u"DEFAULT VALUES");
    insertion.text.append(u" RETURNING ").append(recordset::listed(keyColumns));
    SqliteStatement run(connection_, insertion.text);
    run.bind(insertion.parameters);
    Key key(keyColumns.size());
    // The first step inserts the row, the last one stores it.
    run.step();
    for (std::size_t column = 0; column < keyColumns.size(); ++column) {
        deliverValue(run, static_cast<int>(column), key);
    }
    while (run.step()) {
    }
    return std::move(key.values);
}

std::u16string SqliteDriver::stillHolds(std::u16string_view column, const ValueView &read) const {
    // A BLOB is read as text; a column's collation may treat different texts as equal.
    return std::holds_alternative<std::u16string_view>(read.held())
               ? u"CAST(" + std::u16string(column) + u" AS TEXT) = ? COLLATE BINARY"
               : std::u16string(column) + u" = ?";
}

recordset::ColumnTypes SqliteDriver::columnTypes() const {
    // With AUTOINCREMENT, SQLite never gives the id of a removed row again.
    return {.key = u"INTEGER PRIMARY KEY AUTOINCREMENT",
            .name = u"TEXT",
            .text = u"TEXT",
            .integer = u"INTEGER",
            .behindTable = u""};
}

std::vector<std::u16string> SqliteDriver::columnsOf(std::u16string_view table) {
    SqliteStatement names(connection_, u"SELECT name FROM pragma_table_info(?)");
    names.bind({ValueView(table)});
    std::vector<std::u16string> columns;
    while (names.step()) {
        columns.push_back(names.text(0));
    }
    return columns;
}

bool SqliteDriver::copyTo(const std::string &file) {
    copyDatabase(connection_, file);
    return true;
}

void SqliteDriver::rollback() noexcept {
    // This ignores the error that SQLite reports when it has already ended the transaction.
    sqlite3_exec(connection_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

template <SqliteConnection::Missing missing>
std::unique_ptr<recordset::Driver> connect(const recordset::ConnectionString &text) {
    return std::make_unique<SqliteDriver>(text, missing);
}

constexpr std::u16string_view form = u"Provider=SQLite;Data Source=PATH, or as the PATH alone";

} // namespace

recordset::Provider provider() {
    return {form, &namesSqlite, &connect<SqliteConnection::Missing::refuse>};
}

recordset::Provider creatingProvider() {
    return {form, &namesSqlite, &connect<SqliteConnection::Missing::create>};
}

std::string libraryVersion() {
    return sqlite3_libversion();
}

} // namespace kvex::sqlite
