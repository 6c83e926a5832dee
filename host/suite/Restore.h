// Brings the server's tables back to what a backup holds.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "host/suite/SchemaSteps.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace kvex::host {

/// How many rows of a table the restore added, changed and removed.
struct RestoredTable {
    std::u16string_view name;
    std::size_t added = 0;
    std::size_t changed = 0;
    std::size_t removed = 0;
};

/// Makes the tables hold the rows of the backup with their ids. It writes only rows that differ, so
/// what refers to the others stays. Columns that the backup lacks keep their values, or get their
/// defaults in a new row. All is one transaction, in which no other program can write the tables.
/// `keep` runs in it before the first change, unless
/// nothing differs. New rows get ids above all that were ever there.
///
/// A copy of an older backup is upgraded first. Tables that the backup lacks stay as they are.
///
/// After a failure nothing was changed. The errors:
/// - badArgument: the file is no backup of these tables, or it is newer than the tables or than
/// this
///   program.
/// - badArgument: a table has no ids of its own, or the database would not keep a value as it is.
/// - badArgument with the help context newerSchema: the tables are newer than this program.
/// - what the driver and `keep` report.
std::vector<RestoredTable> restore(recordset::ClientConnection &target,
                                   const std::filesystem::path &backup,
                                   const std::function<void()> &keep,
                                   std::span<const SchemaStep> steps = schemaSteps());

} // namespace kvex::host
