#include "adapters/odbc/OdbcDriver.h"

#include "adapters/odbc/NewRow.h"
#include "adapters/odbc/OdbcStatement.h"
#include "adapters/odbc/QueryText.h"
#include "adapters/odbc/ResultColumns.h"
#include "adapters/odbc/ResultValues.h"
#include "platform/Error.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>

namespace kvex::odbc {

void OdbcDriver::query(const recordset::Statement &statement, recordset::RowSink &sink) {
    if (statement.parameters.empty() && isPlainQuery(statement.text)) {
        const OdbcStatement query(connection_, statement.text);
        query.executeDirectly();
        return deliverResult(query, sink);
    }
    statements_.run(Purpose::reading, statement, [&](const OdbcStatement &query) {
        deliverResult(query, sink);
        return true;
    });
}

void OdbcDriver::describe(const std::u16string &query, std::vector<recordset::Column> &columns) {
    const OdbcStatement statement(connection_, query);
    statement.prepare();
    std::vector<recordset::Column> now = originsOf(connection_, statement, query);
    if (!std::ranges::equal(now, columns, {}, &recordset::Column::name, &recordset::Column::name)) {
        throw errorWith(refusal::badStatement,
                        u"Another program has changed the table's columns: close the window and "
                        u"open it again.");
    }
    columns = std::move(now);
}

std::int64_t OdbcDriver::execute(const recordset::Statement &statement) {
    return statements_.run(Purpose::writing, statement, std::mem_fn(&OdbcStatement::rowCount));
}

std::vector<Value> OdbcDriver::insert(std::u16string_view table,
                                      const std::vector<recordset::Assignment> &values,
                                      const std::vector<std::u16string_view> &keyColumns) {
    return insertNewRow(connection_.server(), statements_, table, values, keyColumns);
}

std::u16string OdbcDriver::stillHolds(std::u16string_view column, const ValueView &read) const {
    const ServerKind &server = connection_.server();
    std::u16string condition;
    if (std::holds_alternative<std::u16string_view>(read.held())) {
        return condition.append(server.beforeColumn)
            .append(column)
            .append(server.afterColumn)
            .append(server.parameter);
    }
    return condition.append(column).append(u" = ?");
}

std::vector<std::u16string> OdbcDriver::columnsOf(std::u16string_view table) {
    // The server itself knows best which table a statement finds.
    std::vector<std::u16string> names;
    try {
        const OdbcStatement none(connection_,
                                 u"SELECT * FROM " + std::u16string(table) + u" WHERE 1 = 0");
        none.executeDirectly();
        for (ResultColumn &column : resultColumns(none)) {
            names.push_back(std::move(column.name));
        }
    } catch (const Error &error) {
        if (error.number() != refusal::noTable) {
            throw;
        }
    }
    return names;
}

void OdbcDriver::commit() {
    connection_.end(SQL_COMMIT);
    connection_.setAutomaticCommit(true);
}

void OdbcDriver::rollback() noexcept {
    try {
        connection_.end(SQL_ROLLBACK);
        connection_.setAutomaticCommit(true);
    } catch (...) { // NOLINT(bugprone-empty-catch): with its connection the transaction has ended
    }
}

} // namespace kvex::odbc
