#include "adapters/odbc/NewRow.h"

#include "adapters/odbc/OdbcError.h"
#include "adapters/recordset/RowStatements.h"
#include "adapters/recordset/RowStore.h"

#include <algorithm>
#include <optional>
#include <string>

namespace kvex::odbc {
namespace {

using recordset::Assignment;
using recordset::Statement;

std::vector<Value> firstRow(recordset::Driver &driver, const Statement &statement) {
    recordset::RowStore rows;
    driver.query(statement, rows);
    std::vector<Value> row;
    for (std::size_t column = 0; rows.rowCount() > 0 && column < rows.columns().size(); ++column) {
        row.push_back(rows.value(0, column).owned());
    }
    return row;
}

std::u16string outputOf(const std::vector<std::u16string_view> &keyColumns) {
    std::u16string list;
    for (const std::u16string_view column : keyColumns) {
        list.append(list.empty() ? u"OUTPUT " : u", ").append(u"INSERTED.").append(column);
    }
    return list + u' ';
}

const Assignment *given(const std::vector<Assignment> &values, std::u16string_view column) {
    const auto found = std::ranges::find(values, column, &Assignment::column);
    return found == values.end() || found->value.isNull() ? nullptr : &*found;
}

} // namespace

std::vector<Value> insertNewRow(recordset::Driver &driver, const ServerKind &server,
                                std::u16string_view table, const std::vector<Assignment> &values,
                                const std::vector<std::u16string_view> &keyColumns) {
    Statement insertion = recordset::insertRow(table, values, server.emptyRow);
    if (server.newKey == NewKey::returning) {
        insertion.text.append(u" RETURNING ").append(recordset::listed(keyColumns));
        return firstRow(driver, insertion);
    }
    if (server.newKey == NewKey::output) {
        // Behind the list of columns.
        const std::u16string_view before = values.empty() ? server.emptyRow : u"VALUES (";
        insertion.text.insert(insertion.text.rfind(before), outputOf(keyColumns));
        return firstRow(driver, insertion);
    }
    std::vector<Value> key;
    for (const std::u16string_view column : keyColumns) {
        if (const Assignment *value = given(values, column)) {
            key.push_back(value->value.owned());
        }
    }
    const bool numbered = server.newKey == NewKey::lastInsertId && keyColumns.size() == 1;
    if (key.size() < keyColumns.size() && !numbered) {
        throw errorWith(refusal::badStatement,
                        u"This kind of database does not say which key it gives a new record, so "
                        u"nothing was stored: use another database.");
    }
    driver.execute(insertion);
    return key.empty() ? firstRow(driver, {u"SELECT LAST_INSERT_ID()", {}}) : key;
}

} // namespace kvex::odbc
