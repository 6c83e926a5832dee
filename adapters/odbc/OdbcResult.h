// Reads the rows of a result.
#pragma once

#include "adapters/odbc/Handles.h"
#include "adapters/recordset/Driver.h"

#include <optional>
#include <string>
#include <string_view>

namespace kvex::odbc {

class OdbcStatement;

/// Delivers the result of a statement that has run: the columns' names, then all rows.
void deliverResult(const OdbcStatement &query, recordset::RowSink &sink);

/// Reads texts of any length, one after the other, into one buffer.
class TextReader {
public:
    /// The whole text in this column of the current row; nothing for Null. The view is valid until
    /// the next call.
    std::optional<std::u16string_view> read(const Handle<SQL_HANDLE_STMT> &row,
                                            SQLUSMALLINT column);

private:
    std::u16string buffer_ = std::u16string(2048, u'\0');
};

} // namespace kvex::odbc
