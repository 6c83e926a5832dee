// One prepared statement on an ODBC connection.
#pragma once

#include "adapters/odbc/Handles.h"
#include "adapters/odbc/OdbcConnection.h"
#include "adapters/odbc/Parameters.h"
#include "adapters/recordset/Driver.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace kvex::odbc {

class OdbcStatement {
public:
    /// Fails with badArgument when `text` holds no statement. `connection` is the caller's.
    OdbcStatement(const OdbcConnection &connection, std::u16string_view text);

    [[nodiscard]] SQLHANDLE handle() const noexcept { return statement_.get(); }
    [[nodiscard]] const Handle<SQL_HANDLE_STMT> &statement() const noexcept { return statement_; }
    void check(SQLRETURN result) const { statement_.check(result); }
    /// 0 for a statement without a result.
    [[nodiscard]] SQLUSMALLINT columnCount() const;
    /// One value for each "?". Fails, before it runs, for a text that the server cannot hold.
    void execute(const std::vector<ValueView> &parameters);
    /// Goes to the next row; false when there is none.
    [[nodiscard]] bool fetch() const;
    /// How many rows the statement wrote.
    [[nodiscard]] std::int64_t rowCount() const;

private:
    const OdbcConnection &connection_;
    Handle<SQL_HANDLE_STMT> statement_;
    Parameters parameters_;
};

} // namespace kvex::odbc
