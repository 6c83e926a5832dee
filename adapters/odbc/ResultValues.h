// Reads the values of a result's rows.
#pragma once

#include "adapters/odbc/OdbcStatement.h"
#include "adapters/recordset/Driver.h"

namespace kvex::odbc {

/// The whole result of a statement that has run: the columns' names, then the rows.
void deliverResult(const OdbcStatement &query, recordset::RowSink &sink);

} // namespace kvex::odbc
