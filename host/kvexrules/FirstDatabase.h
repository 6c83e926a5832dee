// A database that is missing when the program is first started: the user may have it made.
#pragma once

#include "host/kvexrules/Settings.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kvex::host {

/// The path of the SQLite file that `settings` name when nothing is there; else nothing.
[[nodiscard]] std::optional<std::string> missingFile(const Settings &settings);

/// Shows a question to the user: what he answered, nothing when he could not be asked.
using Question = std::function<std::optional<bool>(std::string_view text)>;

/// Asks whether to make the database that is missing, and makes it with empty tables on "yes"
/// alone. Does nothing when no file is missing or the user cannot be asked. Raises a Failure when
/// he declines, or when it cannot be made.
void offerDatabase(const Settings &settings, const Question &ask);

} // namespace kvex::host
