#include "adapters/odbc/NewRow.h"

#include "adapters/odbc/ResultValues.h"
#include "adapters/recordset/RowStatements.h"
#include "adapters/recordset/RowStore.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>

namespace kvex::odbc {
namespace {

using recordset::Assignment;
using recordset::Statement;

/// Of the result of any statement: not every driver knows before it runs that it has one.
std::vector<Value> firstRow(PreparedStatements &statements, const Statement &statement) {
    return statements.run(Purpose::writing, statement, [](const OdbcStatement &command) {
        recordset::RowStore rows;
        deliverResult(command, rows);
        std::vector<Value> row;
        for (std::size_t i = 0; rows.rowCount() > 0 && i < rows.columns().size(); ++i) {
            row.push_back(rows.value(0, i).owned());
        }
        return row;
    });
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

std::vector<Value> insertNewRow(const ServerKind &server, PreparedStatements &statements,
                                std::u16string_view table, const std::vector<Assignment> &values,
                                const std::vector<std::u16string_view> &keyColumns) {
    Statement insertion = recordset::insertRow(table, values, server.emptyRow);
    if (server.newKey == NewKey::returning) {
        insertion.text.append(u" RETURNING ").append(recordset::listed(keyColumns));
        return firstRow(statements, insertion);
    }
    if (server.newKey == NewKey::output) {
        // Behind the list of columns.
        const std::u16string_view before = values.empty() ? server.emptyRow : u"VALUES (";
        insertion.text.insert(insertion.text.rfind(before), outputOf(keyColumns));
        return firstRow(statements, insertion);
    }
    std::vector<Value> key;
    for (const std::u16string_view column : keyColumns) {
        if (const Assignment *value = given(values, column)) {
            key.push_back(value->value.owned());
        }
    }
    const bool numbered = server.newKey == NewKey::lastNumber && keyColumns.size() == 1;
    if (key.size() < keyColumns.size() && !numbered) {
        throw errorWith(refusal::badStatement,
                        u"This kind of database does not say which key it gives a new record, so "
                        u"nothing was stored: use another database.");
    }
    statements.run(Purpose::writing, insertion, std::mem_fn(&OdbcStatement::rowCount));
    if (key.size() == keyColumns.size()) {
        return key;
    }
    const std::u16string_view number =
        server.rowNumber.empty() ? keyColumns.front() : server.rowNumber;
    Statement last = recordset::selectRow(table, keyColumns, {});
    last.text.append(u" WHERE ").append(number).append(u" = ").append(server.lastNumber);
    return firstRow(statements, last);
}

} // namespace kvex::odbc
