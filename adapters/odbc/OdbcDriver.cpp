#include "adapters/odbc/OdbcDriver.h"

#include "adapters/odbc/NewRow.h"
#include "adapters/odbc/OdbcStatement.h"
#include "adapters/odbc/ResultColumns.h"
#include "adapters/odbc/ResultValues.h"
#include "platform/Error.h"

#include <algorithm>
#include <string>
#include <utility>

namespace kvex::odbc {

void OdbcDriver::query(const recordset::Statement &statement, recordset::RowSink &sink) {
    OdbcStatement query(connection_, statement.text);
    if (query.columnCount() == 0) {
        throw Error(error_number::badArgument,
                    u"The statement gives no rows: write a query, SELECT.");
    }
    query.execute(statement.parameters);
    deliverResult(query, sink);
}

void OdbcDriver::describe(const std::u16string &query, std::vector<recordset::Column> &columns) {
    const OdbcStatement statement(connection_, query);
    std::vector<recordset::Column> now = originsOf(connection_, statement, query);
    if (!std::ranges::equal(now, columns, {}, &recordset::Column::name, &recordset::Column::name)) {
        throw errorWith(refusal::badStatement,
                        u"Another program has changed the table's columns: close the window and "
                        u"open it again.");
    }
    columns = std::move(now);
}

std::int64_t OdbcDriver::execute(const recordset::Statement &statement) {
    OdbcStatement command(connection_, statement.text);
    command.execute(statement.parameters);
    return command.rowCount();
}

std::vector<Value> OdbcDriver::insert(std::u16string_view table,
                                      const std::vector<recordset::Assignment> &values,
                                      const std::vector<std::u16string_view> &keyColumns) {
    return insertNewRow(connection_, table, values, keyColumns);
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
        OdbcStatement none(connection_,
                           u"SELECT * FROM " + std::u16string(table) + u" WHERE 1 = 0");
        none.execute({});
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
