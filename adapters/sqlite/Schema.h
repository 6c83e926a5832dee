// The tables of the server's database.
#pragma once

#include <string_view>

namespace kvex::sqlite {

/// Makes the database file that `connectionString` names if there is none, and those of the
/// server's six tables that it lacks, all or none. True when a table was made.
///
/// Fails with badArgument for a connection string that is not SQLite's, and with the provider's
/// number when the database refuses or has a table of one of these names without one of the
/// columns that are needed; nothing is changed then.
bool createSchema(std::u16string_view connectionString);

} // namespace kvex::sqlite
