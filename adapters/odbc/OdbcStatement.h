// One statement on an ODBC connection.
#pragma once

#include "adapters/odbc/Handles.h"
#include "adapters/odbc/OdbcConnection.h"
#include "adapters/odbc/Parameters.h"
#include "adapters/recordset/Driver.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::odbc {

class OdbcStatement {
public:
    /// `connection` is the caller's.
    OdbcStatement(const OdbcConnection &connection, std::u16string_view text);

    [[nodiscard]] const OdbcConnection &connection() const noexcept { return connection_; }
    [[nodiscard]] const std::u16string &text() const noexcept { return text_; }
    [[nodiscard]] SQLHANDLE handle() const noexcept { return statement_.get(); }
    [[nodiscard]] const Handle<SQL_HANDLE_STMT> &statement() const noexcept { return statement_; }
    void check(SQLRETURN result) const { statement_.check(result); }
    void leaveToConnection() noexcept { statement_.leaveToOwner(); }

    /// Fails with badArgument when the text holds no statement.
    void prepare() const;
    /// Runs what was prepared, with one value for each "?"; the result of the time before must be
    /// closed. Fails, before it runs, for a text that the server cannot hold.
    void execute(const std::vector<ValueView> &parameters);
    /// Runs it unprepared, on one way to the server and back: it is to have no "?".
    void executeDirectly() const;
    /// Gives up the result, and what it holds on the server.
    void close() const;

    /// 0 for a statement without a result.
    [[nodiscard]] SQLUSMALLINT columnCount() const;
    /// Goes to the next row; false when there is none.
    [[nodiscard]] bool fetch() const;
    /// How many rows the statement wrote.
    [[nodiscard]] std::int64_t rowCount() const;

private:
    const OdbcConnection &connection_;
    std::u16string text_;
    Handle<SQL_HANDLE_STMT> statement_;
    Parameters parameters_;
};

} // namespace kvex::odbc
