// Which database the program works on, in whose name, and where it logs.
#pragma once

#include "host/kvexrules/CommandLine.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kvex::host {

/// What a configuration file says: lines of "key = value" with the keys database, user and log.
/// Blank lines and lines that begin with "#" do not count; blanks around keys and values neither.
struct Configuration {
    std::optional<std::string> database;
    std::optional<std::string> user;
    std::optional<std::string> log;
};

/// Raises a Failure that names `file` and the line for an unknown key, one that is given twice or
/// has no value, and a line without "=".
[[nodiscard]] Configuration parseConfiguration(std::string_view text,
                                               const std::filesystem::path &file);

struct Settings {
    /// A connection string, or the path of a SQLite file.
    std::string database;
    /// A sentence that says who named it: "The database was named by --database."
    std::string databaseOrigin;
    /// It is the user's own, because none was named.
    bool isOwnDatabase = false;
    std::string user;
    /// Absolute; empty when none was chosen.
    std::filesystem::path log;
};

/// The request's options; where it has none, $KVEX_DATABASE, then the user's configuration file
/// kvexrules.conf, then the user's own database and user 1. Raises a Failure for a configuration
/// file that cannot be read, a database's URL, a user who is no number, and a user without a home
/// and a database.
[[nodiscard]] Settings settingsFor(const Request &request);

/// Raises a Failure when a log was chosen that cannot be written.
void requireWritableLog(const Settings &settings);

} // namespace kvex::host
