#include "adapters/sqlite/SqliteResult.h"

#include "adapters/sqlite/SqliteStatement.h"
#include "platform/Text.h"

#include <sqlite3.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>

namespace kvex::sqlite {
namespace {

std::u16string quoted(std::u16string_view identifier) {
    std::u16string result;
    result.reserve(identifier.size() + 2);
    result.push_back(u'"');
    for (const char16_t unit : identifier) {
        result.append(unit == u'"' ? 2 : 1, unit);
    }
    result.push_back(u'"');
    return result;
}

/// "" for a null pointer.
std::u16string textOf(const char *utf8) {
    return utf8 ? fromUtf8(utf8) : std::u16string();
}

/// The column's table, qualified and quoted for a statement; "" for an expression.
std::u16string tableOf(sqlite3_stmt *query, int column) {
    const std::u16string table = textOf(sqlite3_column_table_name(query, column));
    return table.empty()
               ? table
               : quoted(textOf(sqlite3_column_database_name(query, column))) + u'.' + quoted(table);
}

std::u16string baseColumnOf(sqlite3_stmt *query, int column) {
    const std::u16string origin = textOf(sqlite3_column_origin_name(query, column));
    return origin.empty() ? origin : quoted(origin);
}

/// The key of the table that the query's column comes from.
std::vector<std::u16string> keyColumns(const SqliteStatement &query, int column) {
    const std::u16string table = textOf(sqlite3_column_table_name(query.handle(), column));
    const std::u16string schema = textOf(sqlite3_column_database_name(query.handle(), column));
    // The table function of the same name takes SQLite several times as long.
    SqliteStatement columns(query.connection(),
                            u"PRAGMA " + quoted(schema) + u".table_info(" + quoted(table) + u")");
    constexpr int name = 1;
    constexpr int keyPosition = 5;
    std::vector<std::u16string> key;
    while (columns.step()) {
        if (sqlite3_column_int(columns.handle(), keyPosition) > 0) {
            key.push_back(quoted(columns.text(name)));
        }
    }
    return key;
}

std::vector<recordset::Column> resultColumns(const SqliteStatement &query) {
    std::vector<recordset::Column> columns;
    const int count = sqlite3_column_count(query.handle());
    columns.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        columns.push_back({.name = textOf(sqlite3_column_name(query.handle(), i)),
                           .table = tableOf(query.handle(), i),
                           .baseColumn = baseColumnOf(query.handle(), i)});
    }
    return columns;
}

std::string_view bytesOf(const void *data, sqlite3_stmt *row, int column) {
    return {static_cast<const char *>(data),
            static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

} // namespace

void deliverValue(const SqliteStatement &statement, int column, recordset::RowSink &sink) {
    sqlite3_stmt *row = statement.handle();
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

int deliverResult(SqliteStatement &query, recordset::RowSink &sink) {
    // The first step may read a changed schema, so the columns are known only after it.
    bool row = query.step();
    sink.columns(resultColumns(query));
    const int count = sqlite3_column_count(query.handle());
    int rows = 0;
    for (; row; row = query.step()) {
        for (int column = 0; column < count; ++column) {
            deliverValue(query, column, sink);
        }
        ++rows;
    }
    return rows;
}

void describeKeys(const SqliteStatement &query, std::vector<recordset::Column> &columns) {
    std::map<std::u16string, std::vector<std::u16string>> keys;
    const auto count = static_cast<std::size_t>(sqlite3_column_count(query.handle()));
    for (std::size_t i = 0; i < std::min(count, columns.size()); ++i) {
        recordset::Column &column = columns[i];
        const auto position = static_cast<int>(i);
        if (column.table.empty() || column.table != tableOf(query.handle(), position) ||
            column.baseColumn != baseColumnOf(query.handle(), position)) {
            continue;
        }
        const auto [key, isNew] = keys.try_emplace(column.table);
        if (isNew) {
            key->second = keyColumns(query, position);
        }
        const bool isPart = std::ranges::count(key->second, column.baseColumn) > 0;
        column.keyParts = isPart ? key->second.size() : 0;
    }
}

} // namespace kvex::sqlite
