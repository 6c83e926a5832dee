#include "adapters/odbc/ResultColumns.h"

#include "adapters/odbc/QueryText.h"
#include "adapters/odbc/TextReader.h"
#include "adapters/recordset/EqualIgnoringCase.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <tuple>
#include <utility>

namespace kvex::odbc {
namespace {

ValueKind kindOf(SQLLEN type, Utf8Texts utf8) {
    switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return ValueKind::integer;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return ValueKind::decimal;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return ValueKind::number;
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_WCHAR:
    case SQL_WVARCHAR:
        return utf8 == Utf8Texts::all ? ValueKind::utf8 : ValueKind::text;
    case SQL_LONGVARCHAR:
    case SQL_WLONGVARCHAR:
        return utf8 == Utf8Texts::none ? ValueKind::text : ValueKind::utf8;
    default:
        return ValueKind::text;
    }
}

SQLLEN numberOf(const OdbcStatement &query, SQLUSMALLINT column, SQLUSMALLINT which) {
    SQLLEN number = 0;
    query.check(SQLColAttributeW(query.handle(), column, which, nullptr, 0, nullptr, &number));
    return number;
}

/// "" where the driver does not say it.
std::u16string attribute(const OdbcStatement &query, SQLUSMALLINT column, SQLUSMALLINT which) {
    std::array<SQLWCHAR, 512> text{};
    SQLSMALLINT length = 0;
    const SQLRETURN result =
        SQLColAttributeW(query.handle(), column, which, text.data(), sizeof text, &length, nullptr);
    if (!SQL_SUCCEEDED(result)) {
        return {};
    }
    return {text.begin(), std::ranges::find(text, SQLWCHAR{0})};
}

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
    // A part without a text is one that is not asked for.
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

std::vector<ResultColumn> resultColumns(const OdbcStatement &query) {
    std::vector<ResultColumn> columns;
    const SQLUSMALLINT count = query.columnCount();
    const Utf8Texts utf8 = query.connection().utf8Texts();
    for (SQLUSMALLINT i = 1; i <= count; ++i) {
        // For a column's whole description PostgreSQL's driver asks its server; not for these.
        const SQLLEN length = numberOf(query, i, SQL_DESC_LENGTH);
        columns.push_back({.name = attribute(query, i, SQL_DESC_LABEL),
                           .kind = kindOf(numberOf(query, i, SQL_DESC_TYPE), utf8),
                           .length = length > 0 ? static_cast<std::size_t>(length)
                                                : std::numeric_limits<std::size_t>::max()});
    }
    return columns;
}

std::vector<recordset::Column> originsOf(const OdbcConnection &connection,
                                         const OdbcStatement &query, std::u16string_view text) {
    std::vector<recordset::Column> columns;
    std::vector<std::u16string> names;
    std::vector<std::u16string> origins;
    for (ResultColumn &described : resultColumns(query)) {
        names.push_back(described.name);
        columns.push_back({std::move(described.name), {}, {}, 0});
        origins.push_back(
            attribute(query, static_cast<SQLUSMALLINT>(columns.size()), SQL_DESC_BASE_COLUMN_NAME));
    }
    if (!connection.server().saysOrigins) {
        origins = originsIn(text, names);
        origins.resize(columns.size());
    }
    std::map<TableName, std::vector<std::u16string>> keys;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto position = static_cast<SQLUSMALLINT>(i + 1);
        const TableName table{attribute(query, position, SQL_DESC_CATALOG_NAME),
                              attribute(query, position, SQL_DESC_SCHEMA_NAME),
                              attribute(query, position, SQL_DESC_BASE_TABLE_NAME)};
        if (table.table.empty() || origins[i].empty()) {
            continue;
        }
        columns[i].table = qualified(connection, table);
        columns[i].baseColumn = connection.quoted(origins[i]);
        const auto known = keys.find(table);
        const std::vector<std::u16string> &key =
            known != keys.end() ? known->second
                                : keys.emplace(table, keyOf(connection, table)).first->second;
        const bool isPart = std::ranges::any_of(key, [&](const std::u16string &part) {
            return recordset::equalIgnoringCase(part, origins[i]);
        });
        columns[i].keyParts = isPart ? key.size() : 0;
    }
    return columns;
}

} // namespace kvex::odbc
