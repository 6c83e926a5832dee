// Statements on an ODBC connection: a single one, and those that stay prepared.
#pragma once

#include "adapters/odbc/Handles.h"
#include "adapters/recordset/Driver.h"
#include "platform/Value.h"

#include <cstdint>
#include <deque>
#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::odbc {

class OdbcConnection;

class OdbcStatement {
public:
    /// The connection must outlive the statement.
    OdbcStatement(const OdbcConnection &connection, std::u16string_view text);

    [[nodiscard]] const OdbcConnection &connection() const noexcept { return connection_; }
    [[nodiscard]] const std::u16string &text() const noexcept { return text_; }
    [[nodiscard]] SQLHANDLE handle() const noexcept { return statement_.get(); }
    [[nodiscard]] const Handle<SQL_HANDLE_STMT> &statement() const noexcept { return statement_; }
    void check(SQLRETURN result) const { statement_.check(result); }
    void leaveToConnection() noexcept { statement_.leaveToOwner(); }

    /// Fails with badArgument when the text is empty.
    void prepare() const;
    /// Runs the prepared statement with one value for each "?". An earlier result must be closed.
    /// Refuses a text that the server cannot hold before it runs anything.
    void execute(const std::vector<ValueView> &parameters);
    /// Runs a statement without "?" in one round trip, without preparing it.
    void executeDirectly() const;
    /// Closes the result, here and on the server.
    void close() const;

    /// 0 for a statement without a result.
    [[nodiscard]] SQLUSMALLINT columnCount() const;
    /// Columns are numbered from 1; `field` is SQL_DESC_... Asks the driver, not the server.
    [[nodiscard]] SQLLEN columnNumber(SQLUSMALLINT column, SQLUSMALLINT field) const;
    /// "" when the driver does not know it.
    [[nodiscard]] std::u16string columnText(SQLUSMALLINT column, SQLUSMALLINT field) const;
    [[nodiscard]] std::vector<std::u16string> columnNames() const;
    /// Goes to the next row; false when there is none.
    [[nodiscard]] bool fetch() const;
    /// How many rows the statement wrote.
    [[nodiscard]] std::int64_t rowCount() const;

private:
    /// A parameter's value, which the driver reads when the statement runs.
    struct Parameter {
        std::int64_t integer = 0;
        double number = 0;
        std::u16string text;
        SQLLEN length = SQL_NULL_DATA;
    };

    void bind(const std::vector<ValueView> &values);
    void checkRun(SQLRETURN result) const;

    const OdbcConnection &connection_;
    std::u16string text_;
    Handle<SQL_HANDLE_STMT> statement_;
    std::deque<Parameter> parameters_;
};

enum class Purpose { reading, writing };

/// Keeps the statements that ran last prepared, so that the text of a repeated one is sent only
/// once. The connection frees them when it closes.
class PreparedStatements {
public:
    /// The connection must outlive the object.
    explicit PreparedStatements(const OdbcConnection &connection) : connection_(connection) {}
    ~PreparedStatements();
    PreparedStatements(const PreparedStatements &) = delete;
    PreparedStatements &operator=(const PreparedStatements &) = delete;

    /// Runs the statement, passes it to `use`, closes its result and returns what `use` gave. For
    /// reading, fails with badArgument before it runs a statement without a result.
    template <class Use>
    auto run(Purpose purpose, const recordset::Statement &statement, const Use &use) {
        OdbcStatement &run = executed(purpose, statement);
        try {
            auto used = use(run);
            run.close();
            return used;
        } catch (...) {
            statements_.pop_front();
            throw;
        }
    }

    /// Frees all statements.
    void clear() noexcept { statements_.clear(); }

private:
    /// Puts the statement first in the list; drops one that fails.
    OdbcStatement &executed(Purpose purpose, const recordset::Statement &statement);
    OdbcStatement &executedNew(Purpose purpose, const recordset::Statement &statement);

    const OdbcConnection &connection_;
    std::list<OdbcStatement> statements_;
};

} // namespace kvex::odbc
