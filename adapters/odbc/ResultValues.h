// Reads the values of a result's rows.
#pragma once

#include "adapters/odbc/ResultColumns.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::odbc {

/// One buffer serves the values of all rows.
class ValueReader {
public:
    /// The column of the current row, whole, in pieces where it is long; nothing for Null. The
    /// view is valid until the next call.
    std::optional<std::u16string_view> text(const Handle<SQL_HANDLE_STMT> &row,
                                            SQLUSMALLINT column);
    void deliver(const Handle<SQL_HANDLE_STMT> &row, SQLUSMALLINT column, ValueKind kind,
                 recordset::RowSink &sink);

private:
    std::u16string buffer_ = std::u16string(2048, u'\0');
};

/// The whole result of a statement that has run: the columns' names, then the rows.
void deliverResult(const OdbcStatement &query, recordset::RowSink &sink);

} // namespace kvex::odbc
