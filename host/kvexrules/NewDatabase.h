// Making a database's tables.
#pragma once

#include "host/kvexrules/Settings.h"

#include <string>

namespace kvex::host {

enum class Content { empty, sample };

/// Makes the tables that the chosen database lacks, and an SQLite file where there is none, with
/// its folder when it is the user's own; fills the tables with sample data when asked. What it
/// makes in the file system is for its owner alone.
///
/// Gives the database's name, without passwords. Raises a Failure when the tables, or for sample
/// data rows, are there already, and when the database cannot be opened or refuses.
[[nodiscard]] std::string makeDatabase(const Settings &settings, Content content);

} // namespace kvex::host
