#include "adapters/odbc/ColumnOrigins.h"

#include "adapters/odbc/OdbcConnection.h"
#include "adapters/odbc/OdbcResult.h"
#include "adapters/odbc/OdbcStatement.h"
#include "adapters/odbc/QueryText.h"
#include "adapters/recordset/EqualIgnoringCase.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace kvex::odbc {
namespace {

struct TableName {
    std::u16string catalog;
    std::u16string schema;
    std::u16string table;

    friend bool operator<(const TableName &left, const TableName &right) {
        return std::tie(left.catalog, left.schema, left.table) <
               std::tie(right.catalog, right.schema, right.table);
    }
};

std::u16string qualified(const OdbcConnection &connection, const TableName &name) {
    const std::u16string &owner = name.schema.empty() ? name.catalog : name.schema;
    const std::u16string table = connection.quoted(name.table);
    return owner.empty() ? table : connection.quoted(owner) + u'.' + table;
}

std::vector<std::u16string> keyOf(const OdbcConnection &connection, const TableName &name) {
    // ODBC ignores a part that is a null pointer; an empty text matches an empty part only.
    const auto part = [](const std::u16string &text) {
        return text.empty() ? nullptr : wide(text.c_str());
    };
    const Handle<SQL_HANDLE_STMT> keys(connection.handle(), SQL_HANDLE_DBC);
    keys.check(SQLPrimaryKeysW(keys.get(), part(name.catalog), SQL_NTS, part(name.schema), SQL_NTS,
                               part(name.table), SQL_NTS));
    constexpr SQLUSMALLINT columnName = 4;
    std::vector<std::u16string> key;
    TextReader reader;
    for (SQLRETURN result = SQLFetch(keys.get()); result != SQL_NO_DATA;
         result = SQLFetch(keys.get())) {
        keys.check(result);
        if (const auto read = reader.read(keys, columnName)) {
            key.emplace_back(*read);
        }
    }
    return key;
}

} // namespace

std::vector<recordset::Column> originsOf(const OdbcStatement &query) {
    std::vector<recordset::Column> columns;
    std::vector<std::u16string> origins;
    const std::vector<std::u16string> names = query.columnNames();
    for (const std::u16string &name : names) {
        columns.push_back({name, {}, {}, 0});
        origins.push_back(
            query.columnText(static_cast<SQLUSMALLINT>(columns.size()), SQL_DESC_BASE_COLUMN_NAME));
    }
    if (!query.connection().server().saysOrigins) {
        origins = originsIn(query.text(), names);
        origins.resize(columns.size());
    }
    std::map<TableName, std::vector<std::u16string>> keys;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto position = static_cast<SQLUSMALLINT>(i + 1);
        const TableName table{query.columnText(position, SQL_DESC_CATALOG_NAME),
                              query.columnText(position, SQL_DESC_SCHEMA_NAME),
                              query.columnText(position, SQL_DESC_BASE_TABLE_NAME)};
        if (table.table.empty() || origins[i].empty()) {
            continue;
        }
        columns[i].table = qualified(query.connection(), table);
        columns[i].baseColumn = query.connection().quoted(origins[i]);
        const auto [key, isNew] = keys.try_emplace(table);
        if (isNew) {
            key->second = keyOf(query.connection(), table);
        }
        const bool isPart = std::ranges::any_of(key->second, [&](const std::u16string &part) {
            return recordset::equalIgnoringCase(part, origins[i]);
        });
        columns[i].keyParts = isPart ? key->second.size() : 0;
    }
    return columns;
}

} // namespace kvex::odbc
