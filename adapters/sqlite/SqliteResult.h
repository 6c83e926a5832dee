// Reads the result of a statement, and finds the keys of the tables that its columns come from.
#pragma once

#include "adapters/recordset/Driver.h"

#include <vector>

namespace kvex::sqlite {

class SqliteStatement;

/// Runs the query and delivers its result: the columns without their keys, then all rows. Returns
/// the number of rows.
int deliverResult(SqliteStatement &query, recordset::RowSink &sink);

/// Delivers the value of a column, from 0, in the row that the statement stands on.
void deliverValue(const SqliteStatement &statement, int column, recordset::RowSink &sink);

/// Sets `keyParts` in the columns of an earlier run of `query`. A column that the query no longer
/// has stays as it is.
void describeKeys(const SqliteStatement &query, std::vector<recordset::Column> &columns);

} // namespace kvex::sqlite
