#include "adapters/sqlite/ResultColumns.h"

#include "platform/Text.h"

#include <sqlite3.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>

namespace kvex::sqlite {
namespace {

std::u16string quoted(std::u16string_view identifier) {
    std::u16string result = u"\"";
    for (const char16_t unit : identifier) {
        result.append(unit == u'"' ? 2 : 1, unit);
    }
    return result + u'"';
}

/// "" for a null pointer.
std::u16string textOf(const char *utf8) {
    return utf8 ? fromUtf8(utf8) : std::u16string();
}

using KeyColumns = std::vector<std::u16string>;

KeyColumns keyColumns(const Database &database, const std::u16string &schema,
                      const std::u16string &table) {
    SqliteStatement columns(database, u"SELECT name FROM pragma_table_info(?, ?) WHERE pk > 0");
    columns.bind({ValueView(table), ValueView(schema)});
    KeyColumns key;
    while (columns.step()) {
        key.push_back(columns.text(0));
    }
    return key;
}

} // namespace

std::vector<recordset::Column> resultColumns(const Database &database,
                                             const SqliteStatement &query) {
    std::map<std::u16string, KeyColumns> keys;
    std::vector<recordset::Column> columns;
    sqlite3_stmt *statement = query.handle();
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        recordset::Column column;
        column.name = textOf(sqlite3_column_name(statement, i));
        const std::u16string table = textOf(sqlite3_column_table_name(statement, i));
        if (!table.empty()) {
            const std::u16string schema = textOf(sqlite3_column_database_name(statement, i));
            const std::u16string origin = textOf(sqlite3_column_origin_name(statement, i));
            column.table = quoted(schema) + u'.' + quoted(table);
            column.baseColumn = quoted(origin);
            if (!keys.contains(column.table)) {
                keys.emplace(column.table, keyColumns(database, schema, table));
            }
            const KeyColumns &key = keys.at(column.table);
            column.keyParts = std::ranges::count(key, origin) > 0 ? key.size() : 0;
        }
        columns.push_back(std::move(column));
    }
    return columns;
}

} // namespace kvex::sqlite
