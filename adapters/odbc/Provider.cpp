#include "adapters/odbc/Provider.h"

#include "adapters/odbc/ColumnOrigins.h"
#include "adapters/odbc/ConnectionText.h"
#include "adapters/odbc/OdbcConnection.h"
#include "adapters/odbc/OdbcResult.h"
#include "adapters/odbc/OdbcStatement.h"
#include "adapters/odbc/QueryText.h"
#include "adapters/recordset/RowStatements.h"
#include "adapters/recordset/RowStore.h"
#include "platform/Error.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>

namespace kvex::odbc {
namespace {

using recordset::Assignment;
using recordset::Statement;

/// SQL Server's clause that returns these columns of the new row.
std::u16string outputOf(const std::vector<std::u16string_view> &keyColumns) {
    std::u16string list;
    for (const std::u16string_view column : keyColumns) {
        list.append(list.empty() ? u"OUTPUT " : u", ").append(u"INSERTED.").append(column);
    }
    return list + u' ';
}

/// The value that the statement gives this column; nullptr for none and for Null.
const Assignment *given(const std::vector<Assignment> &values, std::u16string_view column) {
    const auto found = std::ranges::find(values, column, &Assignment::column);
    return found == values.end() || found->value.isNull() ? nullptr : &*found;
}

/// Puts the names in the place of "{table}" and "{column}".
std::u16string withNames(std::u16string_view text, std::u16string_view table,
                         std::u16string_view column) {
    std::u16string result(text);
    for (const auto &[mark, name] :
         {std::pair(std::u16string_view(u"{table}"), table), {u"{column}", column}}) {
        for (std::size_t at = 0; (at = result.find(mark)) != std::u16string::npos;) {
            result.replace(at, mark.size(), name);
        }
    }
    return result;
}

class OdbcDriver final : public recordset::Driver {
public:
    explicit OdbcDriver(const recordset::ConnectionString &text) : connection_(text) {}

    void query(const Statement &statement, recordset::RowSink &sink) override;
    void describe(const std::u16string &query, std::vector<recordset::Column> &columns) override;
    std::int64_t execute(const Statement &statement) override;
    std::vector<Value> insert(std::u16string_view table, const std::vector<Assignment> &values,
                              const std::vector<std::u16string_view> &keyColumns) override;
    [[nodiscard]] std::u16string stillHolds(std::u16string_view column,
                                            const ValueView &read) const override;
    [[nodiscard]] recordset::ColumnTypes columnTypes() const override {
        return connection_.server().columnTypes;
    }
    [[nodiscard]] std::vector<std::u16string> columnsOf(std::u16string_view table) override;
    [[nodiscard]] bool lacks(std::u16string_view table) override;
    void continueNumbering(std::u16string_view table, std::u16string_view column) override;
    void begin() override { connection_.setAutomaticCommit(false); }
    void beginSnapshot() override;
    void beginAlone(const std::vector<std::u16string_view> &tables) override;
    void commit() override;
    void rollback() noexcept override;

private:
    /// Ends the transaction's mode. Never fails, because the transaction itself has ended.
    void commitAutomatically() noexcept;
    /// Runs a statement without values and ignores its result.
    void run(const std::u16string &text) const;
    /// Every later call fails with noConnection. The server undoes what is not committed.
    void disconnect() noexcept;
    /// The values of the first row that the statement returns.
    std::vector<Value> firstRow(const Statement &statement);

    OdbcConnection connection_;
    PreparedStatements statements_{connection_};
};

void OdbcDriver::query(const Statement &statement, recordset::RowSink &sink) {
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
    std::vector<recordset::Column> now = originsOf(statement);
    if (!std::ranges::equal(now, columns, {}, &recordset::Column::name, &recordset::Column::name)) {
        throw errorWith(refusal::badStatement, HelpContext::changedByAnother,
                        u"Another program has changed the table's columns.");
    }
    columns = std::move(now);
}

std::int64_t OdbcDriver::execute(const Statement &statement) {
    return statements_.run(Purpose::writing, statement, std::mem_fn(&OdbcStatement::rowCount));
}

std::vector<Value> OdbcDriver::insert(std::u16string_view table,
                                      const std::vector<Assignment> &values,
                                      const std::vector<std::u16string_view> &keyColumns) {
    const ServerKind &server = connection_.server();
    Statement insertion = recordset::insertRow(table, values, server.emptyRow);
    if (server.newKey == NewKey::returning) {
        insertion.text.append(u" RETURNING ").append(recordset::listed(keyColumns));
        return firstRow(insertion);
    }
    if (server.newKey == NewKey::output) {
        // OUTPUT follows the list of columns.
        const std::u16string_view before = values.empty() ? server.emptyRow : u"VALUES (";
        insertion.text.insert(insertion.text.rfind(before), outputOf(keyColumns));
        return firstRow(insertion);
    }
    std::vector<Value> key;
    for (const std::u16string_view column : keyColumns) {
        if (const Assignment *value = given(values, column)) {
            key.push_back(value->value.owned());
        }
    }
    const bool numbered = server.newKey == NewKey::lastNumber && keyColumns.size() == 1;
    if (key.size() < keyColumns.size() && !numbered) {
        throw errorWith(refusal::badStatement, HelpContext::noNewKey,
                        u"This kind of database does not report the key of a new record.");
    }
    statements_.run(Purpose::writing, insertion, std::mem_fn(&OdbcStatement::rowCount));
    if (key.size() == keyColumns.size()) {
        return key;
    }
    const std::u16string_view number =
        server.rowNumber.empty() ? keyColumns.front() : server.rowNumber;
    Statement last = recordset::selectRow(table, keyColumns, {});
    last.text.append(u" WHERE ").append(number).append(u" = ").append(server.lastNumber);
    return firstRow(last);
}

std::vector<Value> OdbcDriver::firstRow(const Statement &statement) {
    // Purpose::reading asks for a result before the INSERT runs; not every driver knows it then.
    return statements_.run(Purpose::writing, statement, [](const OdbcStatement &command) {
        recordset::RowStore rows;
        deliverResult(command, rows);
        std::vector<Value> row;
        for (std::size_t i = 0; rows.rowCount() > 0 && i < rows.columns().size(); ++i) {
            row.push_back(rows.value(0, i).owned());
        }
        return row;
    });
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
    if (lacks(table)) {
        return {};
    }
    try {
        const OdbcStatement none(connection_,
                                 u"SELECT * FROM " + std::u16string(table) + u" WHERE 1 = 0");
        none.executeDirectly();
        return none.columnNames();
    } catch (const Error &error) {
        if (error.number() != refusal::noTable) {
            throw;
        }
        return {};
    }
}

bool OdbcDriver::lacks(std::u16string_view table) {
    // The catalogue may list several tables of this name; this finds the one that statements use.
    const std::u16string_view tableQuery = connection_.server().tableQuery;
    if (tableQuery.empty()) {
        return false;
    }
    recordset::RowStore name;
    query({withNames(tableQuery, table, u""), {}}, name);
    return name.value(0, 0).isNull();
}

void OdbcDriver::continueNumbering(std::u16string_view table, std::u16string_view column) {
    const std::u16string_view numbering = connection_.server().numbering;
    if (!numbering.empty()) {
        run(withNames(numbering, table, column));
    }
}

void OdbcDriver::beginSnapshot() {
    connection_.isolate();
    begin();
}

void OdbcDriver::beginAlone(const std::vector<std::u16string_view> &tables) {
    beginSnapshot();
    for (const std::u16string_view table : tables) {
        run(withNames(connection_.server().lock, table, u""));
    }
}

void OdbcDriver::run(const std::u16string &text) const {
    const OdbcStatement statement(connection_, text);
    statement.executeDirectly();
}

void OdbcDriver::commit() {
    connection_.end(SQL_COMMIT);
    commitAutomatically();
}

void OdbcDriver::rollback() noexcept {
    try {
        connection_.end(SQL_ROLLBACK);
    } catch (...) {
        return disconnect();
    }
    commitAutomatically();
}

void OdbcDriver::commitAutomatically() noexcept {
    try {
        connection_.setAutomaticCommit(true);
    } catch (...) {
        disconnect();
    }
}

void OdbcDriver::disconnect() noexcept {
    statements_.clear();
    connection_.disconnect();
}

} // namespace

recordset::Provider provider() {
    return {
        u"Driver={NAME};Server=HOST;Database=NAME;UID=USER;PWD={PASSWORD}, or DSN=NAME for ODBC",
        &namesOdbc,
        [](const recordset::ConnectionString &text) -> std::unique_ptr<recordset::Driver> {
            return std::make_unique<OdbcDriver>(text);
        }};
}

} // namespace kvex::odbc
